#include "images/dot_surface.h"

#include <algorithm>

namespace zolt {

DotSurface::DotSurface(int width, int height) {
    const std::int64_t dots = std::int64_t{std::max(width, 0)} * std::max(height, 0);
    if (dots == 0 || dots > kMostDots)
        return;
    m_width = width;
    m_height = height;
    m_dots.resize(static_cast<std::size_t>(dots));
}

void DotSurface::clear() { std::fill(m_dots.begin(), m_dots.end(), std::uint8_t{0}); }

} // namespace zolt
