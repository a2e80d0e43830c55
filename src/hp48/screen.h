#pragma once

#include "core/glyphs.h"
#include "hp48/styled_text.h"
#include "images/dot_surface.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zolt {

/// Gives the picture of a character in a style; glyph() is the calculator's own.
using GlyphSource = const Glyph &(*)(Style style, unsigned char code);

/// One line of a compiled text on the screen, in dots.
struct ScreenLine {
    /// The line's characters in StyledText::characters, its line end not among them.
    std::size_t begin;
    std::size_t end;
    std::int64_t top;
    std::int64_t width;
    /// 6, or the height of the highest picture in the line.
    std::int64_t height;

    bool operator==(const ScreenLine &) const = default;
};

/// The lines of a compiled text, from the top. Behind each line end stands a line,
/// behind the last one too; a text without line ends is one line.
std::vector<ScreenLine> screenLines(const StyledText &text);

/// The dots across that `lines` need: 33 cells, or as many as the widest line has.
std::int64_t screenWidth(std::span<const ScreenLine> lines);

/// Those of `lines` of which something stands between two heights, in dots.
std::span<const ScreenLine> linesBetween(std::span<const ScreenLine> lines, std::int64_t top,
                                         std::int64_t bottom);

/// The line in which a position of the text's characters stands; one behind the text is in
/// the last line.
const ScreenLine &lineOfCharacter(std::span<const ScreenLine> lines, std::size_t position);

/// The character of a line that stands so many dots from its left, or the line's end.
std::size_t characterAt(const StyledText &text, const ScreenLine &line, std::int64_t x);

/// Draws lines of `text`, characters and pictures on the line's foot. The surface
/// shows the screen from the height `top` on; what stands outside is left out.
void drawLines(DotSurface &surface, const StyledText &text, std::span<const ScreenLine> lines,
               GlyphSource glyphs, std::int64_t top = 0);

} // namespace zolt
