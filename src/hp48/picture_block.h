#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"
#include "images/image_text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zolt {

/// The part of a picture that is drawn, from its top left corner, in cells: all of
/// it, unless nearly all of it is blank or it is larger than any screen scrolls.
/// Whole is whatever has up to 4 million cells and up to 16 cells of surface for each
/// byte of its text, which every picture of up to 33 columns has. The others lose
/// their right end, so that one long line over a thousand short ones takes no more
/// memory than the text warrants.
ImageTextSize drawnSize(ImageTextSize size, std::size_t bytes);

/// Calls `draw(place, value)` for each digit of a picture's text. The digits of a
/// broken text can go beyond its size. Stops when `goOn(position)`, asked for each
/// character, says no, and says no too.
template <class Draw, class GoOn>
bool forEachDigit(std::string_view cells, const Draw &draw, const GoOn &goOn) {
    DigitPlace place;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (!goOn(i))
            return false;
        if (const int value = hexDigitValue(cells[i]); value >= 0) {
            draw(place, value);
            place.nextRow();
        } else if (cells.substr(i, kLineEnd.size()) == kLineEnd) {
            place.nextLine();
        }
    }
    return true;
}

/// The picture of a text of cells, black on white: a BMP file of one bit a pixel with
/// 2 by 2 pixels a dot, shown at 30 twips a dot. `size` is the text's size, `progress`
/// counts its characters. No value when `progress` asked to stop.
std::optional<RichPicture> DesenhoDaFigura(std::string_view cells, ImageTextSize size,
                                           const Progress &progress = {});

} // namespace zolt
