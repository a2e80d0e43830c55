#include "platform/byte_line.h"

#include "platform/fonts.h"
#include "platform/held_text.h"

#include <QValidator>

namespace zolt {

namespace {

constexpr double kPoints = 10;

bool endsLine(QChar character) {
    return character == u'\r' || character == u'\n' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

/// Holds each character as its byte's, and refuses nothing.
class ByteHolder : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString &text, int &) const override {
        for (QChar &character : text)
            if (endsLine(character))
                character = u' ';
            else if (byteOfHeldCharacter(character) == '?')
                character = heldText(bytesOfOutsideText(QStringView(&character, 1))).front();
        return Acceptable;
    }
};

} // namespace

ByteLine::ByteLine(QWidget *parent) : QLineEdit(parent) {
    setFont(zoltFont(QStringLiteral("ZOLT"), kPoints));
    setValidator(new ByteHolder(this));
}

std::string ByteLine::Text() const {
    return bytesOfHeldText(text());
}

void ByteLine::setText(std::string_view bytes) {
    QLineEdit::setText(heldText(bytes));
}

} // namespace zolt
