#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zolt {

/// The largest side of a surface, in dots.
inline constexpr int kLargestSide = 32767;
/// The most dots of one surface; 64 MiB of memory.
inline constexpr std::int64_t kMostDots = std::int64_t{1} << 26;

/// A rectangle of dots, each on or off. Dot (0, 0) is the top left one, x grows to
/// the right and y downwards. All dots are off at first.
class DotSurface {
public:
    DotSurface() = default;
    /// A surface of `width` by `height` dots. Sizes below 0 count as 0; a surface
    /// that would hold more than kMostDots is empty.
    DotSurface(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }
    bool isEmpty() const { return m_width == 0 || m_height == 0; }

    /// Whether a dot is on; positions outside the surface are off.
    bool dot(int x, int y) const {
        return inside(x, y) && m_dots[index(x, y)] != 0;
    }
    /// Turns a dot on or off; positions outside the surface change nothing.
    void setDot(int x, int y, bool on = true) {
        if (inside(x, y))
            m_dots[index(x, y)] = on;
    }
    /// One row as bytes, 1 for a dot on; `y` lies inside the surface.
    const std::uint8_t *row(int y) const { return &m_dots[index(0, y)]; }
    std::uint8_t *row(int y) { return &m_dots[index(0, y)]; }

    void clear();
    bool operator==(const DotSurface &) const = default;

private:
    bool inside(int x, int y) const { return x >= 0 && y >= 0 && x < m_width && y < m_height; }
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint8_t> m_dots;
};

} // namespace zolt
