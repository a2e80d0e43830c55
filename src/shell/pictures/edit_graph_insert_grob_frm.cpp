#include "shell/pictures/edit_graph_insert_grob_frm.h"

namespace zolt {

EditGraphInsertGrobFrm::EditGraphInsertGrobFrm(QWidget *owner)
    : GraphInsertFrm(kInsertGrob, &Settings::DfDirIGr, owner) {}

} // namespace zolt
