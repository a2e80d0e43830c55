#pragma once

#include <QDialog>

namespace zolt {

/// A tool window over the main frame. One that acts as a dialog disables the frame
/// while it stands. On closing, the frame is enabled again and takes the focus.
class ToolFrm : public QDialog {
    Q_OBJECT

public:
    enum Kind { BesideTheFrame, DisablesTheFrame };
    ToolFrm(const QString &caption, Kind kind, QWidget *owner);

protected:
    /// What this window does when it closes, before the frame takes the focus back.
    virtual void closing() {}

    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    Kind m_kind;
};

} // namespace zolt
