#pragma once

#include "core/codes.h"
#include "core/progress.h"
#include "graphic/rich_text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// A size in character cells of 4 by 6 dots.
struct PictureSize {
    int columns = 0;
    int lines = 1;

    bool operator==(const PictureSize &) const = default;
};

/// The size of a picture's text: the most cells that one of its lines holds, and
/// its lines. A text without cells has no columns.
PictureSize DeterminarDimensõesDoDesenho(std::string_view cells);

/// The part of a picture that is drawn, from its top left corner: all of it, unless
/// nearly all of it is blank or it has more than kMostDots dots. Whole is whatever
/// has up to 33 columns, and whatever has no more than 16 cells of surface for each
/// byte of its text; the others lose their right end, so that a picture with one
/// long line and a thousand short ones takes no more memory than its text warrants.
PictureSize drawnSize(PictureSize size, std::size_t bytes);

/// Calls `draw(column, row, value)` for each digit of a picture's text, with the
/// column of its cell and its dot row, both from 0. Cells are counted by their
/// digits alone, six to each; the digits of a broken text can reach beyond its size.
/// Stops when `goOn(position)`, asked for each character, says no, and says no too.
template <class Draw, class GoOn>
bool forEachDigit(std::string_view cells, const Draw &draw, const GoOn &goOn) {
    std::int64_t column = 0;
    std::int64_t row = 0;
    std::int64_t lastRow = kCellHeight - 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (!goOn(i))
            return false;
        const int value = hexDigitValue(cells[i]);
        if (value >= 0) {
            draw(column, row, value);
            if (++row > lastRow) {
                row -= kCellHeight;
                ++column;
            }
        } else if (cells.substr(i, kLineEnd.size()) == kLineEnd) {
            lastRow += kCellHeight;
            row += kCellHeight;
            column = 0;
        }
    }
    return true;
}

/// The picture of a text of cells, black on white: a BMP file of one bit a pixel
/// with 2 by 2 pixels a dot, shown at 30 twips a dot. `progress` counts characters.
/// No value when `progress` asked to stop.
std::optional<RichPicture> DesenhoDaFigura(std::string_view cells, PictureSize size,
                                           const Progress &progress = {});

} // namespace zolt
