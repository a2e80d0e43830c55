#include "platform/held_keys.h"

#include "platform/held_text.h"

namespace zolt {

namespace {

bool isLineEndKey(const QKeyEvent &event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

bool isByteDigit(const QKeyEvent &event) {
    return event.modifiers() == (Qt::AltModifier | Qt::KeypadModifier) && event.key() >= Qt::Key_0 &&
           event.key() <= Qt::Key_9;
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
    const bool isCommand = event.modifiers() & Qt::ControlModifier && !(event.modifiers() & Qt::AltModifier);
    return !isCommand && !text.isEmpty() && text[0] >= u' ' && text[0] != u'\x7F';
}

QKeyEvent heldKey(const QKeyEvent &event, const CharactersOf &characters) {
    QString text = event.text();
    Qt::KeyboardModifiers modifiers = event.modifiers();
    if (event.key() == Qt::Key_Tab && !modifiers)
        text = characters("\t");
    else if (isLineEndKey(event))
        modifiers &= ~Qt::ShiftModifier;
    else if (typesCharacters(event))
        text = characters(bytesOfOutsideText(text));
    return QKeyEvent(event.type(), event.key(), modifiers, event.nativeScanCode(), event.nativeVirtualKey(),
                     event.nativeModifiers(), text, event.isAutoRepeat(),
                     static_cast<quint16>(event.count()));
}

} // namespace zolt
