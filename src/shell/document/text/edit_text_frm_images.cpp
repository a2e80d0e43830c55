// The text edition's commands that bring pictures.

#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

namespace zolt {

void EditTextFrm::MnuInserirImagemBmpgifjpg() {
    m_frame->MostrarEditTextInsertImageFrm();
}
void EditTextFrm::MnuInserirImagemGrob() {
    m_frame->MostrarEditTextInsertGrobFrm();
}
void EditTextFrm::MnuInserirImagemFormatovelda() {
    m_frame->MostrarEditTextInsertVeldaFrm();
}
void EditTextFrm::MnuFerramentasConverterformatos() {
    m_frame->MostrarEditTextConvImgFrm();
}

} // namespace zolt
