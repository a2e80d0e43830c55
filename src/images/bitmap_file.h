#pragma once

#include "images/dot_surface.h"

#include <cstdint>
#include <string>

namespace zolt {

/// A BMP file of a surface, black on white, with 2 by 2 pixels to the dot and
/// `depth` bits to the pixel: 1, 4, 8 or 24; any other depth counts as 1. The colour
/// tables are the platform's standard ones: black and white; the 16 VGA colours; the
/// 20 system colours around a cube of 6 by 6 by 6 colours. Rows keep the format's own
/// stride; at 1, 4 and 8 bits the image size can be larger than they need, and
/// zeros lie behind the last row then. An empty surface gives a picture of no rows.
/// Format: https://learn.microsoft.com/windows/win32/gdi/bitmap-storage
std::string bitmapFile(const DotSurface &surface, int depth);

/// All of a BMP file of one bit a pixel in front of its pixels, sizes in pixels: 0 is
/// black and 1 is white. Rows of ceil(width / 32) * 4 bytes follow, the lowest first.
std::string oneBitBitmapFront(std::uint32_t width, std::uint32_t height);

} // namespace zolt
