#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zolt {

/// The side of a dot in pictures and windows, in pixels.
inline constexpr int kPixelsPerDot = 2;
/// Dots side by side that one hexadecimal digit holds.
inline constexpr int kDotsPerDigit = 4;
/// The largest side of a surface, in dots.
inline constexpr int kLargestSide = 32767;
/// The most dots of one surface: 16 MiB of memory, and 192 MiB as a picture of 24
/// bits with 2 by 2 pixels a dot.
inline constexpr std::int64_t kMostDots = std::int64_t{1} << 24;

/// Whether a surface of `width` by `height` dots can be made and holds a dot.
constexpr bool isSurfaceSize(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= kLargestSide && height <= kLargestSide &&
           width * height <= kMostDots;
}

/// A rectangle of dots, each on or off. Dot (0, 0) is the top left one, x grows to
/// the right and y downwards. All dots are off at first.
class DotSurface {
public:
    DotSurface() = default;
    /// A surface of `width` by `height` dots, empty if isSurfaceSize() says no.
    DotSurface(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }
    bool isEmpty() const { return m_width == 0 || m_height == 0; }

    /// Whether a dot is on; positions outside the surface are off.
    bool dot(int x, int y) const { return inside(x, y) && m_dots[index(x, y)] != 0; }
    /// Turns a dot on or off; positions outside the surface change nothing.
    void setDot(int x, int y, bool on = true) {
        if (inside(x, y))
            m_dots[index(x, y)] = on;
    }
    /// One row as bytes, 1 for a dot on; `y` lies inside the surface.
    const std::uint8_t *row(int y) const { return &m_dots[index(0, y)]; }
    std::uint8_t *row(int y) { return &m_dots[index(0, y)]; }

    void clear();
    /// Turns the dots of a digit on, the lowest bit at (x, y) and the highest at
    /// (x + 3, y). Dots outside the surface change nothing.
    void setDigit(std::int64_t x, std::int64_t y, int value);
    /// The digit of the four dots at (x, y) to (x + 3, y).
    int digit(int x, int y) const;
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
