#include "hp48/screen.h"

#include "hp48/preview_compiler.h"
#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::withMarks;

/// A full cell, or every second column in another style than plain.
const Glyph &testGlyph(Style style, unsigned char code) {
    static const Glyph blank{};
    static const Glyph full{{0xF, 0xF, 0xF, 0xF, 0xF, 0xF}};
    static const Glyph striped{{0x55, 0x55, 0x55, 0x55, 0x55, 0x55}};
    if (code == ' ')
        return blank;
    return style == Style::Plain ? full : striped;
}

/// The dots of columns up to `width`, a text for each row.
std::vector<std::string> rows(const DotSurface &surface, int width) {
    std::vector<std::string> shown;
    for (int y = 0; y < surface.height(); ++y) {
        shown.emplace_back();
        for (int x = 0; x < width; ++x)
            shown.back() += surface.dot(x, y) ? '#' : '.';
    }
    return shown;
}

DotSurface drawn(const StyledText &text, std::int64_t top, std::int64_t bottom) {
    const std::vector<ScreenLine> lines = screenLines(text);
    DotSurface surface(static_cast<int>(screenWidth(lines)), static_cast<int>(bottom - top));
    drawLines(surface, text, linesBetween(lines, top, bottom), testGlyph, top);
    return surface;
}

const std::string kDocument = withMarks("a @Db@D\r\n#100000#000008\r\n#F00000#000000c#100000\r\n");

TEST(Screen, StandsCharactersAndPicturesOnTheLinesFoot) {
    const Preview preview = compilePreview(kDocument, PreviewFlavour::Hp48);
    const std::vector<ScreenLine> lines = screenLines(preview.styled);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].width, 16);
    EXPECT_EQ(lines[1].top, 6);
    EXPECT_EQ(lines[1].height, 12);
    EXPECT_EQ(lines[3].top + lines[3].height, 30);
    EXPECT_EQ(screenWidth(lines), 132);
    const std::vector<std::string> expected{
        "####....#.#.#.#.", "####....#.#.#.#.", "####....#.#.#.#.", "####....#.#.#.#.", "####....#.#.#.#.",
        "####....#.#.#.#.", "#...............", "................", "................", "................",
        "................", ".......#........", "####....#####...", "........####....", "........####....",
        "........####....", "........####....", "........####....", "................", "................"};
    EXPECT_EQ(rows(drawn(preview.styled, 0, 20), 16), expected);
}

TEST(Screen, IsDrawnInBandsAsInOnePiece) {
    const Preview preview = compilePreview(kDocument + kDocument, PreviewFlavour::Hp48);
    const std::vector<ScreenLine> lines = screenLines(preview.styled);
    const std::int64_t height = lines.back().top + lines.back().height;
    const std::vector<std::string> whole = rows(drawn(preview.styled, 0, height), 132);
    for (const std::int64_t band : {1, 5, 7, 13}) {
        std::vector<std::string> pieces;
        for (std::int64_t top = 0; top < height; top += band) {
            const auto piece = rows(drawn(preview.styled, top, std::min(top + band, height)), 132);
            pieces.insert(pieces.end(), piece.begin(), piece.end());
        }
        EXPECT_EQ(pieces, whole) << band;
    }
}

TEST(Screen, IsAsWideAsItsWidestLine) {
    const std::string line(20, 'x');
    const auto width = [](const std::string &document) {
        return screenWidth(screenLines(compilePreview(document, PreviewFlavour::Normal).styled));
    };
    EXPECT_EQ(width(line), 132);
    EXPECT_EQ(width(withMarks("@D") + line), 132);
    EXPECT_EQ(width(withMarks("@D" + line + "@D")), 160);
    EXPECT_EQ(width(line + line + "\r\n" + line), 160);
}

} // namespace
} // namespace zolt
