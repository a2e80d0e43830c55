#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zolt {

/// Opens a style code; one style letter follows.
inline constexpr char kStyleMark = '\x0B';
/// Stands for kStyleMark inside rich text, where 11 would be a line break.
inline constexpr char kRichTextStyleMark = '\x1F';
/// Opens a picture cell; six digits, one a dot row from the top, follow.
inline constexpr char kCellMark = '\x9E';
inline constexpr std::size_t kCellLength = 7;
inline constexpr std::string_view kBlankCell = "\x9E"
                                               "000000";
inline constexpr std::string_view kLineEnd = "\r\n";

/// The calculator's text grid, in columns.
inline constexpr int kColumns = 33;
inline constexpr int kDoubleColumns = 16;
/// One character cell, in dots.
inline constexpr int kCellWidth = 4;
inline constexpr int kCellHeight = 6;

enum class Style { Plain, Inverse, Bold, Double, ItalicRight, ItalicLeft, Underline, Exponent, Index };
inline constexpr int kStyleCount = 9;

struct StyleCode {
    Style style;
    char letter;
    std::string_view font;
    /// The last column that a run of this style may reach.
    int columnLimit;
};

/// The font of text outside every run.
inline constexpr std::string_view kPlainFont = "ZOLT";

/// The eight style codes, in the order in which readers try them at one position.
inline constexpr std::array<StyleCode, 8> kStyleCodes{{
    {Style::Inverse, 'V', "ZOLTInverse", kColumns},
    {Style::Bold, 'B', "ZOLTBold", kColumns},
    {Style::Double, 'D', "ZOLTDouble", kDoubleColumns},
    {Style::ItalicRight, '/', "ZOLTItalicRight", kColumns},
    {Style::ItalicLeft, '|', "ZOLTItalicLeft", kColumns},
    {Style::Underline, 'U', "ZOLTUnderline", kColumns},
    {Style::Exponent, 'E', "ZOLTExponent", kColumns},
    {Style::Index, 'I', "ZOLTIndice", kColumns},
}};

/// The entry of `letter`, or nullptr for a letter that names no style.
constexpr const StyleCode *styleOfLetter(char letter) {
    for (const StyleCode &code : kStyleCodes)
        if (code.letter == letter)
            return &code;
    return nullptr;
}

/// The font that shows `style`.
constexpr std::string_view fontOfStyle(Style style) {
    for (const StyleCode &code : kStyleCodes)
        if (code.style == style)
            return code.font;
    return kPlainFont;
}

/// The value of a digit "0" to "9", "A" to "F" (capitals only), else -1.
/// Weight 1 is the leftmost of the digit's four dots, weight 8 the rightmost.
constexpr int hexDigitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// Whether a whole picture cell stands at the start of a text.
constexpr bool beginsWithCell(std::string_view text) {
    if (text.size() < kCellLength || text.front() != kCellMark)
        return false;
    for (const char digit : text.substr(1, kCellLength - 1))
        if (hexDigitValue(digit) < 0)
            return false;
    return true;
}

inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

} // namespace zolt
