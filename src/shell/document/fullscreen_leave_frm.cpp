#include "shell/document/fullscreen_leave_frm.h"

#include "shell/widgets/command_button.h"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace zolt {

namespace {

/// Beside the button, so that a title has room and the mouse something to drag.
constexpr int kGround = 32;
/// Between the window and the edge of the screen, in pixels.
constexpr int kDistance = 16;
/// What a title and borders add before a window manager has told it.
constexpr QSize kFirstDecoration(8, 40);
/// The characters around the caret are to be seen as well.
constexpr QMargins kAroundCaret(60, 20, 60, 20);

} // namespace

FullscreenLeaveFrm::FullscreenLeaveFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Full screen"), BesideTheFrame, owner) {
    setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    QPushButton *button =
        newButton(this, "Command1", QStringLiteral("&Close full screen mode"), &QWidget::close);
    button->setToolTip(QStringLiteral("F11 or Esc. F6 goes from the text to this window and back."));
    auto *column = new QVBoxLayout(this);
    column->addWidget(button);
    column->setContentsMargins(kGround, kGround / 2, kGround, kGround / 2);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

QPoint FullscreenLeaveFrm::corner(const QRect &caret, const QRect &room) const {
    QRect place({}, isVisible() ? frameGeometry().size() : sizeHint() + kFirstDecoration);
    place.moveTopRight(room.topRight() + QPoint(-kDistance, kDistance));
    if (place.intersects(caret.marginsAdded(kAroundCaret)))
        place.moveBottom(room.bottom() - kDistance);
    return place.topLeft();
}

void FullscreenLeaveFrm::showBeside(const QRect &caret, const QRect &room) {
    layout()->activate(); // a size given later would have the window manager place it anew
    move(corner(caret, room));
    show();
}

void FullscreenLeaveFrm::avoid(const QRect &caret, const QRect &room) {
    if (frameGeometry().intersects(caret))
        move(corner(caret, room));
}

void FullscreenLeaveFrm::closing() {
    parentWidget()->close();
}

void FullscreenLeaveFrm::mousePressEvent(QMouseEvent *event) {
    m_dragged = event->globalPosition().toPoint() - pos();
}

void FullscreenLeaveFrm::mouseMoveEvent(QMouseEvent *event) {
    if (event->buttons() & Qt::LeftButton)
        move(event->globalPosition().toPoint() - m_dragged);
}

} // namespace zolt
