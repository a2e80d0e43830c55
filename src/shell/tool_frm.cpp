#include "shell/tool_frm.h"

#include "shell/mdi_frm.h"
#include "shell/windows.h"

#include <QCloseEvent>

namespace zolt {

ToolFrm::ToolFrm(const QString &caption, Kind kind, QWidget *owner) : QDialog(owner), m_kind(kind) {
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void ToolFrm::showEvent(QShowEvent *event) {
    if (m_kind == DisablesTheFrame)
        if (MDIFrm *frame = loaded<MDIFrm>())
            frame->setEnabled(false);
    QDialog::showEvent(event);
}

void ToolFrm::closeEvent(QCloseEvent *event) {
    closing();
    QDialog::closeEvent(event);
    if (MDIFrm *frame = loaded<MDIFrm>()) {
        if (m_kind == DisablesTheFrame)
            frame->setEnabled(true);
        frame->activateWindow();
        frame->setFocus();
    }
}

} // namespace zolt
