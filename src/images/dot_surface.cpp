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
    std::uint8_t *dots = row(static_cast<int>(y)) + x;
    const auto most = static_cast<int>(std::min<std::int64_t>(kDotsPerDigit, m_width - x));
    for (int i = 0; value != 0 && i < most; ++i)
        dots[i] |= static_cast<std::uint8_t>(value >> i & 1);
}

int DotSurface::digit(int x, int y) const {
    int value = 0;
    for (int i = 0; i < kDotsPerDigit; ++i)
        value |= static_cast<int>(dot(x + i, y)) << i;
    return value;
}

} // namespace zolt
