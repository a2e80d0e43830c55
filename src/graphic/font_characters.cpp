#include "graphic/font_characters.h"

#include "core/charset.h"
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

struct Nearest {
    char32_t first;
    char32_t last;
    std::string_view bytes;
};

/// What word processors write beside letters, as the calculator can show it.
constexpr Nearest kNearest[] = {
    {0x0152, 0x0152, "OE"},   {0x0153, 0x0153, "oe"},   {0x0160, 0x0160, "S"},    {0x0161, 0x0161, "s"},
    {0x0178, 0x0178, "Y"},    {0x017D, 0x017D, "Z"},    {0x017E, 0x017E, "z"},    {0x0192, 0x0192, "f"},
    {0x02C6, 0x02C6, "^"},    {0x02DC, 0x02DC, "~"},    {0x03B2, 0x03B2, "\xDF"}, {0x03BC, 0x03BC, "\xB5"},
    {0x2000, 0x200A, " "},    {0x200B, 0x200F, ""},     {0x2010, 0x2015, "-"},    {0x2018, 0x201B, "'"},
    {0x201C, 0x201F, "\""},   {0x2022, 0x2022, "\xB7"}, {0x2026, 0x2026, "..."},  {0x2028, 0x2029, " "},
    {0x202F, 0x202F, " "},    {0x2032, 0x2032, "'"},    {0x2033, 0x2033, "\""},   {0x2039, 0x2039, "<"},
    {0x203A, 0x203A, ">"},    {0x2044, 0x2044, "/"},    {0x2122, 0x2122, "TM"},   {0x2126, 0x2126, "\x9D"},
    {0x2206, 0x2206, "\x9B"}, {0x220F, 0x220F, "\x9C"}, {0x2211, 0x2211, "\x85"}, {0x2212, 0x2212, "-"},
    {0x2219, 0x2219, "\xB7"}, {0x22C5, 0x22C5, "\xB7"}, {0x3000, 0x3000, " "},    {0xFEFF, 0xFEFF, ""},
};

std::string nearestBytes(char32_t character) {
    for (const Nearest &entry : kNearest) {
        if (character >= entry.first && character <= entry.last)
            return std::string(entry.bytes);
    }
    return "?";
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
    return byte ? std::string(1, static_cast<char>(*byte)) : nearestBytes(character);
}

} // namespace zolt
