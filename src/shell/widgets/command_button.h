#pragma once

#include <QPushButton>

namespace zolt {

/// A button of that object name, which calls a window's operation when it is pressed; the
/// caller's layout owns it.
template <class Window, class Operation>
QPushButton *newButton(Window *window, const char *name, const QString &caption, Operation operation) {
    auto *button = new QPushButton(caption);
    button->setObjectName(QString::fromUtf8(name));
    QObject::connect(button, &QPushButton::clicked, window, operation);
    return button;
}

} // namespace zolt
