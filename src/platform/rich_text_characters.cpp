#include "platform/rich_text_characters.h"

#include <array>

namespace zolt {

namespace {

constexpr char16_t kParagraph = QChar::ParagraphSeparator;
/// Qt's copies turn it into a blank.
constexpr char16_t kNoBreakSpace = 0xA0;

using Characters = std::array<char16_t, 256>;

Characters makeCharacters() {
    Characters characters{};
    for (unsigned code = 0; code < 256; ++code) {
        const auto character =
            static_cast<char16_t>(characterInFont(FontKind::Foreign, static_cast<unsigned char>(code)));
        const bool itsOwn = character != u'\t' && character != kNoBreakSpace;
        characters[code] = itsOwn ? character : static_cast<char16_t>(kPrivateByte + code);
    }
    return characters;
}

const Characters &shownCharacters() {
    static const Characters characters = makeCharacters();
    return characters;
}

/// Byte of each character of the Basic Multilingual Plane.
const std::array<char, 0x10000> &shownBytes() {
    static const auto table = [] {
        std::array<char, 0x10000> bytes;
        bytes.fill('?');
        for (unsigned code = 0; code < 256; ++code) {
            bytes[shownCharacters()[code]] = static_cast<char>(code);
            bytes[kPrivateByte + code] = static_cast<char>(code);
        }
        bytes[u'\t'] = '\t';
        bytes[QChar::ObjectReplacementCharacter] = ' ';
        return bytes;
    }();
    return table;
}

} // namespace

QChar shownTab(FontKind kind) {
    return kind == FontKind::Foreign ? QChar(u'\t') : QChar(shownCharacters()[u'\t']);
}

bool isShownTab(QChar character) {
    return character == shownTab(FontKind::Foreign) || character == shownTab(FontKind::Calculator);
}

QString shownText(std::string_view bytes, FontKind kind) {
    const Characters &characters = shownCharacters();
    const QChar tab = shownTab(kind);
    QString shown(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    QChar *out = shown.data();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
            *out++ = QChar(kParagraph);
            ++i;
        } else {
            *out++ = bytes[i] == '\t' ? tab : QChar(characters[static_cast<unsigned char>(bytes[i])]);
        }
    }
    shown.truncate(out - shown.constData());
    return shown;
}

std::string bytesOfShownText(QStringView shown) {
    const auto &table = shownBytes();
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(shown.size() + shown.size() / 16));
    for (const QChar c : shown) {
        if (c.unicode() == kParagraph)
            bytes += "\r\n";
        else
            bytes += table[c.unicode()];
    }
    return bytes;
}

} // namespace zolt
