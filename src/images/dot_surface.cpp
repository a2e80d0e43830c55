#include "images/dot_surface.h"

#include <algorithm>

namespace zolt {

DotSurface::DotSurface(int width, int height) {
    if (!isSurfaceSize(width, height))
        return;
    m_width = width;
    m_height = height;
    m_dots.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

void DotSurface::clear() {
    std::fill(m_dots.begin(), m_dots.end(), std::uint8_t{0});
}

void DotSurface::setDigit(std::int64_t x, std::int64_t y, int value) {
    if (x < 0 || y < 0 || x >= m_width || y >= m_height)
        return;
    for (int i = 0; i < kDotsPerDigit; ++i)
        if (value >> i & 1)
            setDot(static_cast<int>(x) + i, static_cast<int>(y));
}

int DotSurface::digit(int x, int y) const {
    int value = 0;
    for (int i = 0; i < kDotsPerDigit; ++i)
        value |= static_cast<int>(dot(x + i, y)) << i;
    return value;
}

} // namespace zolt
