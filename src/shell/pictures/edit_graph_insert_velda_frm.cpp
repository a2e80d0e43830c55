#include "shell/pictures/edit_graph_insert_velda_frm.h"

namespace zolt {

EditGraphInsertVeldaFrm::EditGraphInsertVeldaFrm(QWidget *owner)
    : GraphInsertFrm(kInsertZoltImage, &Settings::DfDirIHa, owner) {}

} // namespace zolt
