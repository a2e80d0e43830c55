#include "platform/held_keys.h"

#include "platform/held_text.h"

namespace zolt {

namespace {

bool isLineEndKey(const QKeyEvent &event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

QString heldOutsideText(QStringView text) {
    return heldText(bytesOfOutsideText(text));
}

bool belongsToWindow(const QKeyEvent &event) {
    const bool ctrl = event.modifiers() & Qt::ControlModifier;
    const bool alt = event.modifiers() & Qt::AltModifier;
    if (ctrl == alt || event.key() >= Qt::Key_Escape)
        return false;
    switch (event.key()) {
    case Qt::Key_X:
    case Qt::Key_C:
    case Qt::Key_V:
    case Qt::Key_Y:
        return alt || event.modifiers() & Qt::ShiftModifier;
    case Qt::Key_Z:
        return alt;
    default:
        return true;
    }
}

bool typesCharacters(const QKeyEvent &event) {
    const QString text = event.text();
    return !text.isEmpty() && text[0] >= u' ' && text[0] != u'\x7F';
}

QKeyEvent heldKey(const QKeyEvent &event) {
    QString text = event.text();
    Qt::KeyboardModifiers modifiers = event.modifiers();
    if (event.key() == Qt::Key_Tab && !modifiers)
        text = heldText("\t");
    else if (isLineEndKey(event))
        modifiers &= ~Qt::ShiftModifier;
    else if (typesCharacters(event))
        text = heldOutsideText(text);
    return QKeyEvent(event.type(), event.key(), modifiers, event.nativeScanCode(), event.nativeVirtualKey(),
                     event.nativeModifiers(), text, event.isAutoRepeat(),
                     static_cast<quint16>(event.count()));
}

} // namespace zolt
