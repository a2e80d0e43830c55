#pragma once

#include "shell/pictures/text_insert_frm.h"

namespace zolt {

/// Inserts an ASCII GROB, turned into image text.
class EditTextInsertGrobFrm : public TextInsertFrm {
    Q_OBJECT

public:
    explicit EditTextInsertGrobFrm(QWidget *owner);
};

} // namespace zolt
