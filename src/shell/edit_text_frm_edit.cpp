// The Edit menu's commands of the text edition's window.

#include "platform/text_pane.h"
#include "shell/edit_text_find_frm.h"
#include "shell/edit_text_frm.h"
#include "shell/mdi_frm.h"
#include "shell/shared_values.h"

namespace zolt {

void EditTextFrm::EditarCortar() {
    activePane().setFocus();
    activePane().cut();
}

void EditTextFrm::EditarCopiar() {
    activePane().setFocus();
    activePane().copy();
}

void EditTextFrm::EditarColar() {
    activePane().setFocus();
    activePane().paste();
}

void EditTextFrm::EditarAnularintrodução() {
    activePane().setFocus();
    activePane().undoToggle();
}

void EditTextFrm::EditarSeleccionarTudo() {
    activePane().setFocus();
    activePane().setSelStart(0);
    activePane().setSelLength(activePane().length());
}

void EditTextFrm::EditarLocalizar() {
    EditTextFindFrm &window = load<EditTextFindFrm>();
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
}

void EditTextFrm::EditarLocalizarESubstituir() {
    m_frame->MostrarEditTextFindFrm();
    loaded<EditTextFindFrm>()->focusFindBox();
}

void EditTextFrm::EditarTranslinearpalavras() {
    TextPane &from = activePane();
    shared::settings.TxtWWrap = &from == &pane(1) ? 2 : 1;
    TextPane &to = activePane();
    to.setText(from.Text());
    to.setSelStart(from.SelStart());
    to.setSelLength(from.SelLength());
    showActivePane();
    updateStatus();
}

} // namespace zolt
