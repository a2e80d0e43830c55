#pragma once

#include "shell/base/tool_frm.h"

class QRadioButton;

namespace zolt {

/// Asks in which edition a file of an unknown kind is to open. While it stands
/// the frame is hidden.
class MensagemFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit MensagemFrm(QWidget *owner);

signals:
    /// The edition in which the file is to open, 1 textual or 2 graphical.
    void chosen(int edition);

public slots:
    void openInChosenEdition();

private:
    QRadioButton *Option1;
    QRadioButton *Option2;
};

} // namespace zolt
