#include "shell/pictures/edit_text_insert_velda_frm.h"

namespace zolt {

EditTextInsertVeldaFrm::EditTextInsertVeldaFrm(QWidget *owner)
    : TextInsertFrm(kInsertZoltImage, &Settings::DfDirIHa, owner) {
    addInsertButtons(CantStop);
}

std::optional<std::string> EditTextInsertVeldaFrm::imageText() {
    return m_picture.text;
}

} // namespace zolt
