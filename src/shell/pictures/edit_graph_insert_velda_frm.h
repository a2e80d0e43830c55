#pragma once

#include "shell/pictures/graph_insert_frm.h"

namespace zolt {

/// Inserts the dots of a stored image text.
class EditGraphInsertVeldaFrm : public GraphInsertFrm {
    Q_OBJECT

public:
    explicit EditGraphInsertVeldaFrm(QWidget *owner);
};

} // namespace zolt
