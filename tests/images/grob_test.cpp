#include "images/grob.h"

#include "support/converter.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::Pattern;
using test::surfaceOf;

TEST(Grob, RowsAreWholeBytesUpTo136DotsAndTheSurfaceUpTo132) {
    const std::pair<int, int> table[] = {{1, 8},     {8, 8},     {9, 16},    {16, 16},   {100, 104},
                                         {121, 128}, {128, 128}, {129, 136}, {131, 136}, {1000, 136}};
    for (const auto &[width, row] : table) {
        EXPECT_EQ(grobRowLength(width), row) << width;
        const DotSurface surface = VerGrob("GROB " + std::to_string(width) + " 3 ").surface;
        EXPECT_EQ(surface.width(), std::min(row, 132)) << width;
        EXPECT_EQ(surface.height(), 3) << width;
    }
}

TEST(Grob, ReadsTheSameInEveryForm) {
    DotSurface expected(8, 3);
    for (const auto &[x, y] : {std::pair(1, 0), {3, 0}, {4, 0}, {0, 1}, {7, 2}})
        expected.setDot(x, y);
    const char *const texts[] = {
        "GROB 8 3 A11008",
        "  GROB 8 3 A11008\r\n",
        "%%HP: T(3)A(R)F(.);\r\nGROB 5 3 A11008",
        "GROB 8 3 \r\nA1\r\n1\r\n008\r\n",
        "GROB 8 3 A1a1b0ff0 8",
        "GROB 8 3 A11008FFFFFFFF",
        "GROB 0008 3 A11008",
    };
    for (const char *text : texts)
        EXPECT_EQ(VerGrob(text).surface, expected) << text;
}

TEST(Grob, SmallLettersAndEarlyEndsLeaveDotsOff) {
    EXPECT_EQ(VerGrob("GROB 8 2 ffff").surface, DotSurface(8, 2));
    DotSurface oneRow(8, 2);
    oneRow.setDigit(0, 0, 15);
    EXPECT_EQ(VerGrob("GROB 8 2 F").surface, oneRow);
}

TEST(Grob, RowsOf34DigitsLoseWhatLiesBehind132Dots) {
    const std::string row = std::string(32, '0') + "8F";
    const DotSurface surface = VerGrob("GROB 131 2 " + row + row).surface;
    DotSurface expected(132, 2);
    expected.setDot(131, 0);
    expected.setDot(131, 1);
    EXPECT_EQ(surface, expected);
}

TEST(Grob, TellsItsSizeInItsFirst100Characters) {
    const auto header = readGrobHeader("  GROB 131 64 00");
    ASSERT_TRUE(header);
    EXPECT_EQ(header->caption, "( 131 x  64 ) ");
    EXPECT_FALSE(header->tooWide());
    EXPECT_EQ(readGrobHeader("%%HP\r\nGROB 0008 03 F")->caption, "( 0008 x  03 ) ");
    EXPECT_TRUE(readGrobHeader("GROB 132 64 00")->tooWide());
    EXPECT_TRUE(readGrobHeader(std::string(91, '.') + "GROB 8 1 FF"));
    EXPECT_FALSE(readGrobHeader(std::string(92, '.') + "GROB 8 1 FF"));
}

TEST(Grob, WithoutUsableNumbersThereIsNoPicture) {
    const char *const texts[] = {"",
                                 "GROB",
                                 "GROB 8 ",
                                 "grob 8 1 F",
                                 "GROB x 1 F",
                                 "GROB 8 1x F",
                                 "GROB  8 1 F",
                                 "GROB8 1 F",
                                 "GROB 0 1 F",
                                 "GROB 8 -1 F",
                                 "GROB 32768 1 F",
                                 "GROB 1000000000 1000000000 F",
                                 "GROB 8 99999999999999999999 F"};
    for (const char *text : texts) {
        const PictureOfText picture = VerGrob(text);
        EXPECT_TRUE(picture.surface.isEmpty()) << text;
        EXPECT_NE(picture.reason, "") << text;
    }
    EXPECT_EQ(VerGrob("GROB 32767 32767 F").surface.height(), 32767);
}

TEST(Grob, WritesTwoBlanksAndWholeRows) {
    DotSurface surface(10, 3);
    surface.setDot(1, 0);
    surface.setDot(9, 1);
    surface.setDot(0, 2);
    EXPECT_EQ(FiguraParaGrob(surface, grobSizeOfSurface(surface)), "  GROB 9 2 20000020");
    EXPECT_EQ(FiguraParaGrob(DotSurface(), grobSizeOfSurface(DotSurface())), "");
}

TEST(Grob, TakesItsSizeFromTheSurfaceOrFromTheImageText) {
    EXPECT_EQ(grobSizeOfSurface(DotSurface(132, 65)), (GrobSize{131, 64}));
    EXPECT_EQ(grobSizeOfImageText({33, 11}), (GrobSize{131, 64}));
    EXPECT_EQ(grobSizeOfImageText({1, 1}), (GrobSize{3, 4}));
    EXPECT_EQ(FiguraParaGrob(DotSurface(), grobSizeOfImageText({10000, 1})), "");
}

TEST(Grob, ComesBackAsItWasWritten) {
    for (const int width : {2, 9, 10, 129, 130, 132}) {
        const DotSurface surface = surfaceOf(Pattern::Noise, width, 65);
        const std::string text = FiguraParaGrob(surface, grobSizeOfSurface(surface));
        EXPECT_EQ(text.size(),
                  text.rfind(' ') + 1 + 64 * static_cast<std::size_t>(grobRowLength(width - 1) / 4));
        const DotSurface back = VerGrob(text).surface;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < width - 1; ++x)
                ASSERT_EQ(back.dot(x, y), surface.dot(x, y)) << x << ", " << y;
    }
}

TEST(Grob, StopGivesTheRowsMade) {
    const DotSurface surface = surfaceOf(Pattern::Black, 9, 5);
    const Progress progress = [](std::size_t row, std::size_t) { return row < 3; };
    EXPECT_EQ(FiguraParaGrob(surface, {8, 4}, progress), "  GROB 8 4 FFFF");
}

} // namespace
} // namespace zolt
