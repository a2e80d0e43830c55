#include "hp48/picture_block.h"

#include "hp48/reporter.h"
#include "images/dot_surface.h"

#include <algorithm>
#include <array>

namespace zolt {

namespace {

constexpr int kTwipsPerDot = 30;
constexpr int kPixelsPerDot = 2;
/// 96 pixels an inch, at which one dot of 2 pixels is 30 twips.
constexpr std::uint32_t kPixelsPerMetre = 3780;

/// A BMP file of one bit a pixel, written row by row; all white at first.
/// Format: https://learn.microsoft.com/windows/win32/gdi/bitmap-storage
class BitmapFile {
public:
    BitmapFile(std::uint32_t width, std::uint32_t height)
        : m_height(height), m_rowLength((width + 31) / 32 * 4) {
        const std::uint32_t imageSize = m_rowLength * height;
        m_bytes.reserve(kHeaders + imageSize);
        m_bytes += "BM";
        put32(kHeaders + imageSize);
        put32(0);
        put32(kHeaders);
        put32(40);
        put32(width);
        put32(height);
        put32(1 | 1 << 16); // one plane, one bit a pixel
        put32(0);
        put32(imageSize);
        put32(kPixelsPerMetre);
        put32(kPixelsPerMetre);
        put32(2);
        put32(2);
        put32(0xFFFFFF);
        put32(0x000000);
        m_bytes.resize(kHeaders + imageSize, '\0');
    }

    /// Sets eight pixels of a row, counted from the top; the highest bit is the
    /// leftmost pixel.
    void setPixels(std::uint32_t eight, std::uint32_t row, char pixels) {
        const std::size_t fromFoot = m_height - 1 - row;
        m_bytes[kHeaders + fromFoot * m_rowLength + eight] |= pixels;
    }

    std::string take() { return std::move(m_bytes); }

private:
    static constexpr std::uint32_t kHeaders = 14 + 40 + 8;

    void put32(std::uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8)
            m_bytes += static_cast<char>(value >> shift);
    }

    std::string m_bytes;
    std::uint32_t m_height;
    std::uint32_t m_rowLength;
};

/// The eight pixels of each digit's four dots. A digit has its leftmost dot in its
/// lowest bit, a bitmap has it in its highest.
constexpr std::array<char, 16> kPixelsOfDigit = [] {
    std::array<char, 16> table{};
    for (int value = 0; value < 16; ++value) {
        int pixels = 0;
        for (int dot = 0; dot < kCellWidth; ++dot)
            if (value >> dot & 1)
                pixels |= 0b11 << (kPixelsPerDot * (kCellWidth - 1 - dot));
        table[static_cast<std::size_t>(value)] = static_cast<char>(pixels);
    }
    return table;
}();

} // namespace

PictureSize DeterminarDimensõesDoDesenho(std::string_view cells) {
    PictureSize size;
    int count = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i] == kCellMark) {
            size.columns = std::max(size.columns, ++count);
        } else if (cells.substr(i, kLineEnd.size()) == kLineEnd) {
            ++size.lines;
            count = 0;
        }
    }
    return size;
}

PictureSize drawnSize(PictureSize size, std::size_t bytes) {
    constexpr std::uint64_t kCellsPerByte = 16;
    constexpr std::uint64_t kMostCells = static_cast<std::uint64_t>(kMostDots) / (kCellWidth * kCellHeight);
    const auto most = static_cast<int>(std::min(kCellsPerByte * bytes, kMostCells));
    const int lines = std::min(size.lines, most);
    return {lines > 0 ? std::min(size.columns, most / lines) : 0, lines};
}

std::optional<RichPicture> DesenhoDaFigura(std::string_view cells, PictureSize size,
                                           const Progress &progress) {
    const PictureSize drawn = drawnSize(size, cells.size());
    const int rows = drawn.lines * kCellHeight;
    BitmapFile bitmap(static_cast<std::uint32_t>(drawn.columns * kCellWidth * kPixelsPerDot),
                      static_cast<std::uint32_t>(rows * kPixelsPerDot));
    Reporter reporter(progress, cells.size());
    const auto draw = [&](std::int64_t column, std::int64_t row, int value) {
        if (column >= drawn.columns || row >= rows)
            return;
        const auto pixelRow = static_cast<std::uint32_t>(row * kPixelsPerDot);
        const char pixels = kPixelsOfDigit[static_cast<std::size_t>(value)];
        for (std::uint32_t i = 0; i < kPixelsPerDot; ++i)
            bitmap.setPixels(static_cast<std::uint32_t>(column), pixelRow + i, pixels);
    };
    if (!forEachDigit(cells, draw, [&](std::size_t position) { return reporter.goOn(position); }))
        return std::nullopt;
    return RichPicture{RichPicture::Kind::Bmp, bitmap.take(), drawn.columns * kCellWidth * kTwipsPerDot,
                       rows * kTwipsPerDot};
}

} // namespace zolt
