#pragma once

#include "core/progress.h"
#include "images/image_text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// The widest GROB whose picture is sure to be the original, in dots.
inline constexpr int kWidestGrob = 131;
inline constexpr std::string_view kGrobTooWide =
    "The maximum allowable width is 131. The picture may not correspond to the original.";

/// The dots that a row of an ASCII GROB of `width` dots takes: whole multiples of
/// 8, and 136 for all widths over 128.
int grobRowLength(std::int64_t width);

/// The numbers that an ASCII GROB begins with. Form: "GROB", a blank, the width, a
/// blank, the height, a blank, the digits of the rows from the top.
struct GrobHeader {
    /// In dots.
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// The position, from 0, of the blank behind the height.
    std::size_t end = 0;
    /// What a window shows of the size, "( 131 x  64 ) ": each number as it stands in
    /// the text, with the blank before it.
    std::string caption;

    bool tooWide() const { return width > kWidestGrob; }
};

/// The first header in a text, whatever stands before it. It must end within the
/// first 100 characters. None without the word, or if the numbers aren't decimal
/// numbers parted by one blank.
std::optional<GrobHeader> readGrobHeader(std::string_view text);

/// Draws an ASCII GROB. The surface is as wide as a row, but never more than 132
/// dots, and as high as the header says. Characters that aren't digits (capitals
/// only) are passed over; digits behind the last row aren't looked at; a text that
/// ends early leaves the other dots off. `progress` counts characters; a stop gives
/// the dots drawn so far. No surface without a header, or for a size that no
/// surface has.
PictureOfText VerGrob(std::string_view text, const Progress &progress = {});

/// The size of a GROB to write, in dots.
struct GrobSize {
    int width = 0;
    int height = 0;

    bool operator==(const GrobSize &) const = default;
};

/// A work surface is one dot wider and higher than the calculator's picture.
GrobSize grobSizeOfSurface(const DotSurface &surface);
/// An image text loses the last dot of its lines and its last two rows.
GrobSize grobSizeOfImageText(const ImageTextSize &size);

/// The ASCII GROB of a surface's top left dots, two blanks in front: so it goes into
/// a file. Dots beyond the surface are off. `progress` gets the dot row, from 1,
/// before each row; a stop gives the rows made so far. Sizes below 0 give an empty
/// text.
std::string FiguraParaGrob(const DotSurface &surface, GrobSize size, const Progress &progress = {});

} // namespace zolt
