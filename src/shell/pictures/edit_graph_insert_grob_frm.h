#pragma once

#include "shell/pictures/graph_insert_frm.h"

namespace zolt {

/// Inserts the dots of an ASCII GROB.
class EditGraphInsertGrobFrm : public GraphInsertFrm {
    Q_OBJECT

public:
    explicit EditGraphInsertGrobFrm(QWidget *owner);
};

} // namespace zolt
