#include "shell/pictures/edit_graph_insert_image_frm.h"

namespace zolt {

EditGraphInsertImageFrm::EditGraphInsertImageFrm(QWidget *owner)
    : GraphInsertFrm(kInsertPcPicture, &Settings::DfDirCnv, owner) {}

} // namespace zolt
