#pragma once

#include <QDialog>

namespace zolt {

/// A window before the main frame. One that acts as a dialog disables the frame
/// while it stands, a chooser hides it. On closing, by whatever way, the frame is
/// there again and takes the focus.
class ToolFrm : public QDialog {
    Q_OBJECT

public:
    enum Kind { BesideTheFrame, DisablesTheFrame, HidesTheFrame };
    ToolFrm(const QString &caption, Kind kind, QWidget *owner);

    /// Shows the window and gives it the keyboard.
    void present();

public slots:
    /// Escape closes the window as its close button does.
    void reject() override;

protected:
    /// What this window does when it closes, before the frame takes the focus back.
    virtual void closing() {}

    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    Kind m_kind;
};

} // namespace zolt
