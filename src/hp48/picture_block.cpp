#include "hp48/picture_block.h"

#include "core/reporter.h"
#include "images/bitmap_file.h"

#include <algorithm>
#include <array>
#include <string>

namespace zolt {

namespace {

constexpr int kTwipsPerDot = 30;
/// A cell is as wide as one byte of pixels.
static_assert(kCellWidth * kPixelsPerDot == 8);

/// The eight pixels of each digit's four dots, a bit off for a dot on: black. A digit
/// has its leftmost dot in its lowest bit, a bitmap has it in its highest.
constexpr std::array<char, 16> kPixelsOfDigit = [] {
    std::array<char, 16> table{};
    for (unsigned value = 0; value < 16; ++value) {
        unsigned black = 0;
        for (unsigned dot = 0; dot < kCellWidth; ++dot)
            if (value >> dot & 1)
                black |= 0b11u << (kPixelsPerDot * (kCellWidth - 1 - dot));
        table[value] = static_cast<char>(~black);
    }
    return table;
}();

/// A picture in work, all white at first.
class PictureBitmap {
public:
    explicit PictureBitmap(ImageTextSize size)
        : m_columns(static_cast<std::size_t>(size.columns)),
          m_rows(static_cast<std::size_t>(size.lines) * kCellHeight),
          m_stride((m_columns + 3) / 4 * 4) {
        m_bytes = oneBitBitmapFront(static_cast<std::uint32_t>(m_columns * 8),
                                    static_cast<std::uint32_t>(m_rows * kPixelsPerDot));
        m_bytes.resize(m_bytes.size() + m_rows * kPixelsPerDot * m_stride, '\xFF');
    }

    void draw(const DigitPlace &place, int value) {
        const auto column = static_cast<std::size_t>(place.x / kCellWidth);
        const auto row = static_cast<std::size_t>(place.y);
        if (column >= m_columns || row >= m_rows)
            return;
        // Rows stand in the file from the lowest to the topmost.
        std::size_t at = m_bytes.size() - (row + 1) * kPixelsPerDot * m_stride + column;
        for (int i = 0; i < kPixelsPerDot; ++i, at += m_stride)
            m_bytes[at] = static_cast<char>(m_bytes[at] & kPixelsOfDigit[static_cast<std::size_t>(value)]);
    }

    RichPicture finish() {
        constexpr int kCellTwips = kCellWidth * kTwipsPerDot;
        return {RichPicture::Kind::Bmp, std::move(m_bytes), static_cast<std::int32_t>(m_columns) * kCellTwips,
                static_cast<std::int32_t>(m_rows) * kTwipsPerDot};
    }

private:
    std::size_t m_columns;
    std::size_t m_rows;
    std::size_t m_stride;
    std::string m_bytes;
};

} // namespace

ImageTextSize drawnSize(ImageTextSize size, std::size_t bytes) {
    constexpr std::int64_t kMostCells = std::int64_t{1} << 22;
    constexpr std::int64_t kCellsPerByte = 16;
    const std::int64_t most = std::min(kMostCells, kCellsPerByte * static_cast<std::int64_t>(bytes));
    const std::int64_t lines = std::min(size.lines, most);
    return {lines > 0 ? std::min(size.columns, most / lines) : 0, lines};
}

std::optional<RichPicture> DesenhoDaFigura(std::string_view cells, ImageTextSize size,
                                           const Progress &progress) {
    PictureBitmap bitmap(drawnSize(size, cells.size()));
    Reporter reporter(progress, cells.size());
    const bool done = forEachDigit(
        cells, [&](const DigitPlace &place, int value) { bitmap.draw(place, value); },
        [&](std::size_t position) { return reporter.goOn(position); });
    if (!done)
        return std::nullopt;
    return bitmap.finish();
}

} // namespace zolt
