#include "platform/bytes_edit.h"

#include "platform/held_text.h"

namespace zolt {

BytesEdit::BytesEdit(QWidget *parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, &BytesEdit::holdBytes);
}

std::string BytesEdit::Text() const {
    const QString characters = text();
    std::string bytes;
    for (const QChar &character : characters) {
        const char16_t unit = character.unicode();
        if (unit >= kHeldByte && unit <= kHeldByte + 0xFF)
            bytes += static_cast<char>(byteOfHeldCharacter(character));
        else if (!character.isLowSurrogate())
            bytes += bytesOfOutsideText(QStringView(&character, 1));
    }
    return bytes;
}

void BytesEdit::holdBytes() {
    const QString held = heldText(Text());
    if (held == text())
        return;
    const int place = cursorPosition();
    setText(held);
    setCursorPosition(place);
}

} // namespace zolt
