// The Edit menu's commands of the text edition's window.

#include "platform/text_pane.h"
#include "shell/base/command_table.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/tools/edit_text_find_frm.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QToolBar>

namespace zolt {

namespace {

/// What greys out together, and when it can act.
struct EditCommand {
    const char *menuItem;
    const char *popUpItem;
    QList<const char *> tools;
    bool (*canAct)(const TextPane &pane, bool clipboardFits);
};

bool hasSelection(const TextPane &pane, bool) {
    return pane.textCursor().hasSelection();
}

const QList<EditCommand> &editCommands() {
    static const QList<EditCommand> commands{
        {"MnuEditarAnularintrodução",
         "MnuPopUpAnularintroducao",
         {"Anular Introdução", "Refazer Introdução"},
         [](const TextPane &pane, bool) { return pane.canUndoToggle(); }},
        {"MnuEditarCortar", "MnuPopUpCortar", {"Cortar"}, hasSelection},
        {"MnuEditarCopiar", "MnuPopUpCopiar", {"Copiar"}, hasSelection},
        {"MnuEditarColar", "MnuPopUpColar", {"Colar"}, [](const TextPane &, bool fits) { return fits; }},
        {"MnuEditarSeleccionartudo",
         "MnuPopUpSeleccionartudo",
         {},
         [](const TextPane &pane, bool) { return pane.length() > 0; }},
    };
    return commands;
}

} // namespace

void EditTextFrm::gatherEditActions() {
    for (const EditCommand &command : editCommands()) {
        QList<QAction *> actions{menuItem(command.menuItem), zolt::menuItem({MnuPopUp}, command.popUpItem)};
        for (const char *tool : command.tools)
            actions << m_frame->toolbar(2)->findChild<QAction *>(QString::fromUtf8(tool));
        m_editActions << actions;
    }
    // To ask another program for its clipboard takes a while: not at every key.
    const auto lookAtClipboard = [this] {
        m_clipboardFits = activePane().canPaste();
        updateEditActions();
    };
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, lookAtClipboard);
    lookAtClipboard();
}

void EditTextFrm::updateEditActions() {
    for (qsizetype i = 0; i < m_editActions.size(); ++i)
        for (QAction *action : m_editActions[i])
            action->setEnabled(editCommands()[i].canAct(activePane(), m_clipboardFits));
}

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
    const bool touched = m_touched;
    TextPane &from = activePane();
    shared::settings.TxtWWrap = &from == &pane(1) ? 2 : 1;
    TextPane &to = activePane();
    to.setText(from.Text());
    to.setSelStart(from.SelStart());
    to.setSelLength(from.SelLength());
    m_touched = touched;
    showActivePane();
    updateStatus();
}

} // namespace zolt
