#include "graphic/font_characters.h"

#include "core/codes.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace zolt {

namespace {

constexpr unsigned char kTab = 9;
/// The calculator shows an x with a bar, which is no one character of Unicode.
constexpr unsigned char kMean = 129;
constexpr unsigned char kSoftHyphen = 173;
/// Where word processors put the bytes of symbol fonts, and LibreOffice the bytes
/// that a font's code page doesn't define.
constexpr char32_t kSymbolBytes = 0xF000;
constexpr char32_t kUndefinedBytes = 0xF100;

bool isControl(char32_t character) {
    return character < 32 || (character >= 0x7F && character < 0xA0);
}

std::optional<unsigned char> byteOfBlock(char32_t first, char32_t character) {
    if (character < first || character > first + 255)
        return std::nullopt;
    return static_cast<unsigned char>(character - first);
}

/// The byte that each character of a kind of font stands for.
std::map<char32_t, unsigned char> makeBytes(FontKind kind) {
    std::map<char32_t, unsigned char> bytes;
    for (unsigned code = 0; code < 256; ++code) {
        const auto byte = static_cast<unsigned char>(code);
        bytes.emplace(characterInFont(kind, byte), byte);
        if (kind == FontKind::Calculator)
            bytes.emplace(windowsCharacter(byte), byte);
    }
    // In the fonts of the calculator these are drawn too, by the same glyphs. The
    // calculator's own ellipsis, 31, opens a style code in rich text.
    for (unsigned code = 0; code < 256; ++code) {
        const auto byte = static_cast<unsigned char>(code);
        if (byte != static_cast<unsigned char>(kRichTextStyleMark) && byte != kMean)
            bytes.emplace(calculatorCharacter(byte), byte);
    }
    return bytes;
}

std::optional<unsigned char> ownByte(FontKind kind, char32_t character) {
    static const std::array bytes{makeBytes(FontKind::Calculator), makeBytes(FontKind::Foreign)};
    const auto &table = bytes[static_cast<std::size_t>(kind)];
    const auto found = table.find(character);
    return found == table.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

FontKind fontKind(std::string_view name) {
    const bool ofStyle = std::any_of(kStyleCodes.begin(), kStyleCodes.end(),
                                     [name](const StyleCode &code) { return code.font == name; });
    return ofStyle || name == kPlainFont ? FontKind::Calculator : FontKind::Foreign;
}

char32_t characterInFont(FontKind kind, unsigned char byte) {
    const bool foreign = kind == FontKind::Foreign;
    if (foreign && byte == kTab)
        return byte;
    const char32_t character = foreign ? calculatorCharacter(byte) : windowsCharacter(byte);
    const bool dropped = byte < 32 || isControl(character) || byte == kSoftHyphen;
    return dropped || (foreign && byte == kMean) ? kPrivateByte + byte : character;
}

std::string bytesInFont(FontKind kind, char32_t character) {
    std::optional<unsigned char> byte = ownByte(kind, character);
    if (!byte && kind == FontKind::Calculator) {
        for (const char32_t block : {kPrivateByte, kSymbolBytes, kUndefinedBytes}) {
            if (!byte)
                byte = byteOfBlock(block, character);
        }
    } else if (!byte) {
        if (const auto symbol = byteOfBlock(kSymbolBytes, character))
            return bytesInFont(kind, *symbol);
    }
    return byte ? std::string(1, static_cast<char>(*byte)) : bytesOfCharacter(character);
}

} // namespace zolt
