#include "core/charset.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(Charset, GivesBackEveryByteOfCodePage1252) {
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(byteOfCharacter(windowsCharacter(static_cast<unsigned char>(byte))), byte);
}

TEST(Charset, TakesTheCalculatorsCharactersThatWindowsLacks) {
    EXPECT_EQ(byteOfCharacter(0x03B1), 140); // alpha
    EXPECT_EQ(byteOfCharacter(0x2192), 141); // arrow right
    EXPECT_EQ(byteOfCharacter(0x221A), 131); // root
    EXPECT_EQ(byteOfCharacter(0x221E), 159); // infinity
    EXPECT_EQ(byteOfCharacter(0x03C0), 135); // pi
    // Code page 1252 goes first: these two are other characters on the calculator.
    EXPECT_EQ(byteOfCharacter(0x0152), 140);
    EXPECT_EQ(byteOfCharacter(0x2026), 133);
    EXPECT_EQ(byteOfCharacter(0x4E2D), std::nullopt);
}

} // namespace
} // namespace zolt
