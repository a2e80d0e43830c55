#pragma once

#include "shell/pictures/graph_insert_frm.h"

namespace zolt {

/// Inserts a PC picture in its colours.
class EditGraphInsertImageFrm : public GraphInsertFrm {
    Q_OBJECT

public:
    explicit EditGraphInsertImageFrm(QWidget *owner);
};

} // namespace zolt
