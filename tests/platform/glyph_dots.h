#pragma once

#include "core/glyphs.h"

#include <QImage>

namespace zolt::test {

/// How many pixels aren't as the dots of a style's 256 glyphs, 16 to a row from `corner`
/// on, each dot `size` pixels wide.
inline int wrongPixels(const QImage &picture, Style style, QPoint corner, int size) {
    const int width = glyphWidth(style) * size, height = kCellHeight * size;
    int wrong = 0;
    for (int y = 0; y < 16 * height; ++y)
        for (int x = 0; x < 16 * width; ++x) {
            const auto code = static_cast<unsigned char>(y / height * 16 + x / width);
            const bool on = glyph(style, code).dot(x % width / size, y % height / size);
            wrong += picture.pixel(corner + QPoint(x, y)) != (on ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
        }
    return wrong;
}

} // namespace zolt::test
