#include "shell/pictures/edit_text_insert_grob_frm.h"

namespace zolt {

EditTextInsertGrobFrm::EditTextInsertGrobFrm(QWidget *owner)
    : TextInsertFrm(kInsertGrob, &Settings::DfDirIGr, owner) {
    addInsertButtons(CanStop);
}

} // namespace zolt
