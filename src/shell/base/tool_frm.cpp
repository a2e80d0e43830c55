#include "shell/base/tool_frm.h"

#include "platform/svg_icon.h"
#include "shell/base/frame.h"
#include "shell/base/long_work.h"
#include "shell/base/windows.h"

#include <QCloseEvent>

namespace zolt {

ToolFrm::ToolFrm(const QString &caption, Kind kind, QWidget *owner) : QDialog(owner), m_kind(kind) {
    setWindowTitle(caption);
    setWindowIcon(svgIcon(QStringLiteral("zolt")));
}

void ToolFrm::showEvent(QShowEvent *event) {
    if (QWidget *frame = frameWindow()) {
        if (m_kind == DisablesTheFrame)
            frame->setEnabled(false);
        if (m_kind == HidesTheFrame)
            frame->hide();
    }
    QDialog::showEvent(event);
}

void ToolFrm::present() {
    show();
    raise();
    activateWindow();
}

void ToolFrm::reject() {
    close();
}

void ToolFrm::closeEvent(QCloseEvent *event) {
    closing();
    event->accept();
    markClosed(*this);
    outliveWork(*this);
    if (QWidget *frame = frameWindow()) {
        if (m_kind == DisablesTheFrame)
            frame->setEnabled(true);
        if (m_kind == HidesTheFrame)
            frame->show();
        if (frame->isEnabled())
            mainFrame()->takeFocusBack();
    }
}

} // namespace zolt
