#include "platform/held_text.h"

#include "core/codes.h"
#include "graphic/font_characters.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace zolt {

namespace {

constexpr char16_t kParagraph = QChar::ParagraphSeparator;

/// Qt's copies turn it into a blank. What its layout hides or acts on, other programs
/// drop as well.
constexpr char32_t kNoBreakSpace = 0xA0;

std::array<char16_t, 256> makeHeldCharacters() {
    std::array<char16_t, 256> characters{};
    for (unsigned code = 0; code < 256; ++code) {
        const char32_t character = characterInFont(FontKind::Calculator, static_cast<unsigned char>(code));
        characters[code] = static_cast<char16_t>(character == kNoBreakSpace ? kHeldByte + code : character);
    }
    return characters;
}

const std::array<char16_t, 256> &heldCharacters() {
    static const std::array<char16_t, 256> characters = makeHeldCharacters();
    return characters;
}

/// Byte of each character of the Basic Multilingual Plane; "?" where none.
const std::array<unsigned char, 0x10000> &heldBytes() {
    static const auto table = [] {
        std::array<unsigned char, 0x10000> bytes;
        bytes.fill('?');
        for (unsigned code = 0; code < 256; ++code) {
            bytes[heldCharacters()[code]] = static_cast<unsigned char>(code);
            bytes[kHeldByte + code] = static_cast<unsigned char>(code);
        }
        return bytes;
    }();
    return table;
}

bool endsLine(char16_t character) {
    return character == u'\r' || character == u'\n' || character == kParagraph ||
           character == char16_t(QChar::LineSeparator);
}

/// Whether a picture cell begins here as code page 1252 shows it, so that a document
/// copied from a plain editor keeps its pictures.
bool beginsWindowsCell(QStringView text) {
    return text.front() == char16_t(windowsCharacter(static_cast<unsigned char>(kCellMark))) &&
           text.size() >= qsizetype(kCellLength) &&
           std::all_of(text.begin() + 1, text.begin() + kCellLength,
                       [](QChar c) { return c.unicode() < 128 && hexDigitValue(c.toLatin1()) >= 0; });
}

} // namespace

QString heldText(std::string_view bytes) {
    const auto &characters = heldCharacters();
    QString held(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    QChar *out = held.data();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
            *out++ = QChar(kParagraph);
            ++i;
        } else {
            *out++ = QChar(characters[static_cast<unsigned char>(bytes[i])]);
        }
    }
    held.truncate(out - held.constData());
    return held;
}

unsigned char byteOfHeldCharacter(QChar character) {
    return heldBytes()[character.unicode()];
}

std::string bytesOfHeldText(QStringView held) {
    const auto &table = heldBytes();
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(held.size() + held.size() / 16));
    // By stretches: to lengthen a string by each byte takes several times as long.
    constexpr qsizetype kStretch = 2048;
    std::array<char, 2 * kStretch> stretch;
    for (qsizetype done = 0; done < held.size();) {
        const qsizetype end = std::min(held.size(), done + kStretch);
        char *out = stretch.data();
        for (; done < end; ++done) {
            const char16_t character = held[done].unicode();
            if (character == kParagraph)
                *out++ = '\r';
            *out++ = character == kParagraph ? '\n' : static_cast<char>(table[character]);
        }
        bytes.append(stretch.data(), out);
    }
    return bytes;
}

std::string bytesOfOutsideText(QStringView outside) {
    const QString text = outside.toString().normalized(QString::NormalizationForm_C);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (endsLine(unit)) {
            bytes += "\r\n";
            if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
        } else if (QChar::isHighSurrogate(unit)) {
            bytes += '?';
            if (i + 1 < text.size() && text[i + 1].isLowSurrogate())
                ++i;
        } else if (unit >= kHeldByte && unit < kHeldByte + 256) {
            bytes += static_cast<char>(unit - kHeldByte);
        } else if (beginsWindowsCell(QStringView(text).sliced(i))) {
            bytes += kCellMark;
        } else {
            bytes += bytesOfCharacter(unit);
        }
    }
    return bytes;
}

QString outsideText(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
            continue;
        text += QChar(static_cast<char16_t>(calculatorCharacter(static_cast<unsigned char>(bytes[i]))));
    }
    return text;
}

} // namespace zolt
