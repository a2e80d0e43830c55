#include "platform/cls_style.h"

#include <QLayout>
#include <QWindow>

namespace zolt {

namespace {

constexpr Qt::WindowFlags kControlBox = Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
/// Without these Qt adds the control box again.
constexpr Qt::WindowFlags kOnlyWhatIsSaid = Qt::CustomizeWindowHint | Qt::WindowTitleHint;

} // namespace

bool clsStyle::ControlBox() const {
    return m_client && m_client->windowFlags().testFlags(kControlBox);
}

bool clsStyle::setControlBox(bool on) {
    if (!m_client)
        return false;
    const Qt::WindowFlags flags = m_client->windowFlags();
    setFlags(on ? flags | kControlBox : (flags & ~kControlBox) | kOnlyWhatIsSaid);
    return ControlBox() == on;
}

bool clsStyle::Sizable() const {
    if (!m_client)
        return false;
    const QLayout *layout = m_client->layout();
    const bool fixedByLayout = layout && layout->sizeConstraint() == QLayout::SetFixedSize;
    return !fixedByLayout && m_client->minimumSize() != m_client->maximumSize();
}

bool clsStyle::setSizable(bool on) {
    if (!m_client)
        return false;
    QLayout *layout = m_client->layout();
    if (layout)
        layout->setSizeConstraint(on ? QLayout::SetDefaultConstraint : QLayout::SetFixedSize);
    if (on) {
        m_client->setMinimumSize(0, 0);
        m_client->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    } else if (!layout) {
        m_client->setFixedSize(m_client->size());
    }
    return Sizable() == on;
}

bool clsStyle::ToolWindow() const {
    return m_client && m_client->windowType() == Qt::Tool;
}

bool clsStyle::setToolWindow(bool on) {
    if (!m_client)
        return false;
    if (ToolWindow() != on)
        setFlags((m_client->windowFlags() & ~Qt::WindowType_Mask) | (on ? Qt::Tool : Qt::Dialog));
    return ToolWindow() == on;
}

bool clsStyle::TopMost() const {
    return m_client && m_client->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

bool clsStyle::setTopMost(bool on) {
    if (!m_client)
        return false;
    Qt::WindowFlags flags = m_client->windowFlags();
    setFlags(flags.setFlag(Qt::WindowStaysOnTopHint, on));
    return TopMost() == on;
}

/// A visible window changes in place: QWidget::setWindowFlags would hide it, and the one
/// that it shows again has lost its focus and may stand elsewhere.
void clsStyle::setFlags(Qt::WindowFlags flags) {
    QWindow *native = m_client->windowHandle();
    if (!m_client->isVisible() || !native)
        return m_client->setWindowFlags(flags);
    m_client->overrideWindowFlags(flags);
    native->setFlags(flags);
}

} // namespace zolt
