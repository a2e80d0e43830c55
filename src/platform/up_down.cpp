#include "platform/up_down.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace zolt {

UpDown::UpDown(int least, int most, int value, QLineEdit *box)
    : m_least(least), m_most(most), m_value(value) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    const auto addButton = [&](Qt::ArrowType arrow, void (UpDown::*step)()) {
        auto *button = new QToolButton;
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(18, box->sizeHint().height() / 2);
        connect(button, &QToolButton::clicked, this, step);
        column->addWidget(button);
    };
    addButton(Qt::UpArrow, &UpDown::stepUp);
    addButton(Qt::DownArrow, &UpDown::stepDown);
    box->installEventFilter(this);
}

void UpDown::setValue(int value) {
    if (value < m_least || value > m_most || value == m_value)
        return;
    m_value = value;
    emit valueChanged(value);
}

bool UpDown::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            key == Qt::Key_Up ? stepUp() : stepDown();
            return true;
        }
    } else if (event->type() == QEvent::Wheel) {
        static_cast<QWheelEvent *>(event)->angleDelta().y() > 0 ? stepUp() : stepDown();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace zolt
