#pragma once

#include "shell/base/tool_frm.h"

#include <array>

class QAbstractButton;
class QLineEdit;

namespace zolt {

/// The margins of printed pages, in centimetres of 576 twips, and their orientation.
class EditPageSetupFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditPageSetupFrm(QWidget *owner);

public slots:
    /// Stores the margins, from top to right, up to one that is none, and closes.
    void accept() override;
    /// Shows the margins of a fresh program and chooses portrait; stores no margin.
    void setDefaults();

private:
    QWidget *buildMargins();
    QWidget *buildOrientation();

    /// Top, bottom, left, right: Text1, Text3, Text2, Text4.
    std::array<QLineEdit *, 4> m_margins{};
    QAbstractButton *Picture1 = nullptr;
    QAbstractButton *Picture2 = nullptr;
};

} // namespace zolt
