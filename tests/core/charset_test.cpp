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
        {U"\u2000\u2007\u205F\u3000\u2028|\u2060\u061C\uFE0F\u0301\U000E0101|", "     ||"},
        {U"\uFE58\uFE63\u2043\u05BE\u301C\u2E3A", "----~--"},
        {U"\u201B\u2033\u2034\u2057\u02BC\u301D\u300C\u00AB\u300A", "'\"''''''''\"'\xAB\xAB"},
        {U"\uFB00\uFB03\uFB06\u01C4\u0132", "ffffistDZIJ"},
        {U"\u2102\u210F\u211D\u2113\u2121\u2163\u2179\u2464\u2776", "ChRlTELIVx(5)(1)"},
        {U"\U0001D400\U0001D44E\U0001D6FC\U0001D7D7", "Aa\x8C"
                                                      "9"},
        {U"\u21A6\u21D0\u21D1\u27F5\u27F7\u2B07\u21E8\uFFE9", "\x8D<=\x90\x8E<->\x8F\x8D\x8E"},
        {U"\u1EA5\u1EAD\u01A1\u1E9E\u01CE\u03AC\u1F60\u03CE", "\xE2\xE2o\xDF"
                                                              "a\x8C\x9A\x9A"}, // less the accent
        {U"\u2605\u2713\u27A2\u25AA\u2610", "*\x83\x86\xB7[ ]"},
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
