#include "images/image_text.h"

#include "core/document.h"
#include "support/converter.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::Pattern;
using test::surfaceOf;

/// A text with "z" for the mark of a cell.
std::string cells(std::string text) {
    for (char &c : text)
        if (c == 'z')
            c = '\x9E';
    return text;
}

/// The dots of a surface as lines of "#" and ".".
std::string drawing(const DotSurface &surface) {
    std::string text;
    for (int y = 0; y < surface.height(); ++y) {
        for (int x = 0; x < surface.width(); ++x)
            text += surface.dot(x, y) ? '#' : '.';
        text += '\n';
    }
    return text;
}

TEST(ImageText, WritesCellsFromTheTopWithTheLowestBitLeft) {
    DotSurface surface(5, 7);
    surface.setDot(1, 0);
    surface.setDot(3, 0);
    surface.setDot(4, 1);
    surface.setDot(0, 5);
    surface.setDot(4, 6);
    EXPECT_EQ(LerFigura(surface), cells("zA00001z010000\r\nz000000z100000"));
    EXPECT_EQ(LerFigura(DotSurface()), "");
}

TEST(ImageText, AnyLineEndInAFileIsOne) {
    const std::pair<std::string, std::string> table[] = {
        {"", ""},
        {"a", "a"},
        {"\n", ""},
        {"a\nb\n", "a\r\nb"},
        {"a\rb\r", "a\r\nb"},
        {"a\r\nb\r\n\r\n", "a\r\nb\r\n"},
        {"\n\ra\r\r\nb", "\r\n\r\na\r\n\r\nb"},
    };
    for (const auto &[file, text] : table)
        EXPECT_EQ(pictureTextFromFile(file), text) << file;
}

TEST(ImageText, ComesBackAsItWasWritten) {
    const std::pair<int, int> sizes[] = {{1, 1}, {4, 6}, {5, 7}, {131, 64}, {132, 1090}, {300, 13}};
    for (const auto &[width, height] : sizes) {
        const DotSurface surface = surfaceOf(Pattern::Noise, width, height);
        const std::string text = LerFigura(surface);
        const DotSurface back = VerVelda(pictureTextFromFile(fileFromDocument(text))).surface;
        EXPECT_EQ(back.width(), (width + 3) / 4 * 4);
        EXPECT_EQ(back.height(), (height + 5) / 6 * 6);
        EXPECT_EQ(LerFigura(back), text);
        for (int y = 0; y < back.height(); ++y)
            for (int x = 0; x < back.width(); ++x)
                ASSERT_EQ(back.dot(x, y), surface.dot(x, y)) << x << ", " << y;
    }
}

TEST(ImageText, OnlyDigitsWalkFromCellToCell) {
    const struct {
        const char *what;
        const char *text;
        const char *drawing;
    } cases[] = {
        {"lines of different lengths", "z100000\r\n\r\nzF00000z80000F",
         "#.......\n........\n........\n........\n........\n........\n"
         "........\n........\n........\n........\n........\n........\n"
         "####...#\n........\n........\n........\n........\n....####\n"},
        {"a blank for a cell moves nothing", "z000001 z80000F\r\nz100000",
         ".......#\n........\n........\n........\n........\n#...####\n"
         "#.......\n........\n........\n........\n........\n........\n"},
        {"marks in the digits count for the width alone", "zF0z0z00F",
         "####........\n............\n............\n............\n............\n####........\n"},
        {"small letters are passed over", "zFaF000", "####\n####\n....\n....\n....\n....\n"},
        {"digits beyond the width are lost", "zF00000F00000", "####\n....\n....\n....\n....\n....\n"},
        {"a cell cut short leaves the next line lower", "zFF\r\nzF",
         "####\n####\n....\n....\n....\n....\n....\n....\n####\n....\n....\n....\n"},
        {"marks alone", "zz\r\nz",
         "........\n........\n........\n........\n........\n........\n"
         "........\n........\n........\n........\n........\n........\n"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(drawing(VerVelda(cells(c.text)).surface), c.drawing) << c.what;
}

TEST(ImageText, WithoutACellThereIsNoPicture) {
    for (const char *text : {"", "FFFFFF", "a text\r\nof lines"}) {
        const PictureOfText picture = VerVelda(text);
        EXPECT_TRUE(picture.surface.isEmpty());
        EXPECT_NE(picture.reason, "");
    }
}

TEST(ImageText, RefusesSizesThatNoSurfaceHas) {
    std::string manyLines;
    for (int i = 0; i < 5462; ++i)
        manyLines += "\r\n";
    const std::string longLine(8192, '\x9E');
    for (const std::string &text :
         {longLine, "\x9E" + manyLines, longLine.substr(2000) + manyLines.substr(6000)})
        EXPECT_EQ(VerVelda(text).reason, "the picture is too large");
    EXPECT_EQ(VerVelda(longLine.substr(1)).surface.width(), 32764);
}

TEST(ImageText, StopGivesWhatHasBeenMade) {
    const DotSurface surface = surfaceOf(Pattern::Black, 8, 12);
    std::vector<std::size_t> steps;
    const Progress progress = [&](std::size_t step, std::size_t total) {
        EXPECT_EQ(total, 2u);
        steps.push_back(step);
        return steps.size() < 4;
    };
    EXPECT_EQ(LerFigura(surface, progress), cells("zFFFFFFzFFFFFF\r\nzFFFFFF"));
    EXPECT_EQ(steps, (std::vector<std::size_t>{1, 1, 2, 2}));
    EXPECT_EQ(VerVelda(cells("zFFFFFF"), [](auto, auto) { return false; }).surface, DotSurface(4, 6));
}

} // namespace
} // namespace zolt
