#pragma once

#include "core/codes.h"
#include "core/progress.h"
#include "images/dot_surface.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zolt {

/// A size in character cells of 4 by 6 dots.
struct ImageTextSize {
    /// The most cell marks that one line holds.
    std::int64_t columns = 0;
    std::int64_t lines = 1;

    bool operator==(const ImageTextSize &) const = default;
};

/// Where the next digit of an image text goes, in dots. It is the digits alone that
/// walk from row to row and from cell to cell.
struct DigitPlace {
    std::int64_t x = 0;
    std::int64_t y = 0;
    /// The bottom row of the line of cells.
    std::int64_t lastRow = kCellHeight - 1;

    void nextRow() {
        if (++y > lastRow) {
            y -= kCellHeight;
            x += kCellWidth;
        }
    }
    void nextLine() {
        lastRow += kCellHeight;
        y += kCellHeight;
        x = 0;
    }
};

/// The text in the bytes of an image or GROB file: any line end in it, CR LF or one of
/// the two alone, comes back as CR LF, and one at the file's end is the file's own.
std::string pictureTextFromFile(std::string_view bytes);

/// What reading a picture's text gave. `reason` says why `surface` is empty, in words
/// that follow a file's name and a colon; it is empty itself when a surface was made.
struct PictureOfText {
    DotSurface surface;
    std::string reason;
};

/// The size of an image text: lines of cells, parted by CR LF.
ImageTextSize measureImageText(std::string_view text);

/// Draws an image text on a surface of its size. Only the digits walk from dot row
/// to dot row and from cell to cell; marks count for the size alone, and any other
/// character moves nothing. `progress` counts characters; a stop gives the dots
/// drawn so far. No surface for a text without cell marks, or of a size that no
/// surface has.
PictureOfText VerVelda(std::string_view text, const Progress &progress = {});

/// The image text of a surface: the cells of a line follow each other, CR LF stands
/// between lines, and none behind the last. Dots beyond the surface are off.
/// `progress` gets the line of cells, from 1, before each cell; a stop gives the
/// cells made so far. An empty surface gives an empty text.
std::string LerFigura(const DotSurface &surface, const Progress &progress = {});

} // namespace zolt
