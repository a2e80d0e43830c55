#pragma once

#include "shell/pictures/text_insert_frm.h"

namespace zolt {

/// Inserts a stored image text as it stands.
class EditTextInsertVeldaFrm : public TextInsertFrm {
    Q_OBJECT

public:
    explicit EditTextInsertVeldaFrm(QWidget *owner);

protected:
    std::optional<std::string> imageText() override;
};

} // namespace zolt
