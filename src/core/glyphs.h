#pragma once

#include "core/codes.h"

#include <array>
#include <cstdint>

namespace zolt {

/// The dots of one character: six rows from the top; in a row bit 0 is the
/// leftmost dot and a set bit is a dot on.
struct Glyph {
    std::array<std::uint8_t, kCellHeight> rows;

    constexpr bool dot(int x, int y) const { return (rows[static_cast<std::size_t>(y)] >> x) & 1; }
};

/// Dots across: 8 for Style::Double, 4 for all others.
constexpr int glyphWidth(Style style) {
    return style == Style::Double ? 2 * kCellWidth : kCellWidth;
}

/// The picture of a character of the calculator's set in a style. The same
/// table makes the fonts.
const Glyph &glyph(Style style, unsigned char code);

} // namespace zolt
