#include "core/charset.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(Charset, GivesBackEveryByteOfBothSets) {
    for (int code = 0; code < 256; ++code) {
        const auto byte = static_cast<unsigned char>(code);
        EXPECT_EQ(byteOfWindowsCharacter(windowsCharacter(byte)), byte);
        // 31 and 129 have no character of their own: an ellipsis, and a mean's x under a bar.
        if (code != 31 && code != 129) {
            EXPECT_EQ(byteOfCharacter(calculatorCharacter(byte)), byte) << code;
            EXPECT_EQ(bytesOfCharacter(calculatorCharacter(byte)), std::string(1, static_cast<char>(byte)));
        }
    }
    EXPECT_EQ(byteOfWindowsCharacter(0x03B1), std::nullopt);
    EXPECT_EQ(byteOfCharacter(0x0152), std::nullopt);
}

TEST(Charset, TakesTheNearestSignsForWhatTheCalculatorLacks) {
    const struct {
        std::u32string_view text;
        std::string_view bytes;
    } cases[] = {
        {U"\u03B1\u03B2\u03BC\u00B5\u00DF", "\x8C\xDF\xB5\xB5\xDF"},
        {U"\u2126\u2211\u2206\u03C6\u03D1", "\x9D\x85\x9B\xF8\x95"}, // twins and variants
        {U"\u0391\u03A4\u03BF", "ATo"},                              // look like Latin letters
        {U"\u201Ea\u201C \u201Cb\u201D \u2033", "\"a\" \"b\" \""},
        {U"\u2018c\u2019 \u201Ad\u2019 5\u2032", "'c' 'd' 5'"},
        {U"\u2013\u2014\u2212\u2010\u2011", "-----"},
        {U"\u2026", "..."},
        {U"1\u20092\u202F3\u20034\uFEFF\u200B", "1 2 3 4"},
        {U"\u0152\u0153\u0160\u017E\u0178\u0192", "OEoeSzYf"},
        {U"\u0101\u0141\u0159\u0131\u017F", "aLris"},
        {U"\u20AC\u2122\u2022\u2039\u203A\u2020", "EURTM\xB7<>+"},
        {U"x\u2074 H\u2082 \u215B \uFB01", "x^4 H2 1/8 fi"},
        {U"\u2248\u27E8\u2A7D\u27F6", "~<\x89\x8D"},
        {U"\u250C\u2500\u253C\u2502\uFF21\uFF5E", "+-+|A~"},
        {U"\u4E2D\u0416\U0001F600", "???"},
    };
    for (const auto &c : cases) {
        std::string bytes;
        for (const char32_t character : c.text)
            bytes += bytesOfCharacter(character);
        EXPECT_EQ(bytes, c.bytes);
    }
}

} // namespace
} // namespace zolt
