#include "images/bitmap_file.h"

#include <array>
#include <cstdint>
#include <vector>

namespace zolt {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInformationHeader = 40;
constexpr std::uint32_t kBitsPerWord = 32;
constexpr std::uint32_t kBytesPerWord = 4;
constexpr std::uint32_t kWhite = 0xFFFFFF;

/// The colours that every palette of the platform has, as 0xRRGGBB: the first ten
/// stand at its front, the others at its end.
constexpr std::array<std::uint32_t, 20> kSystemColours{
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0,
    0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

constexpr std::array<std::uint32_t, 16> kVgaColours{
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0x808080,
    0xC0C0C0, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

/// 256 colours: the cube has blue changing fastest; what it leaves free is black.
std::vector<std::uint32_t> halftoneColours() {
    constexpr std::size_t kInFront = kSystemColours.size() / 2;
    constexpr std::uint32_t kLevels = 6;
    constexpr std::uint32_t kStep = 0x33;
    std::vector<std::uint32_t> colours(kSystemColours.begin(), kSystemColours.begin() + kInFront);
    for (std::uint32_t red = 0; red < kLevels; ++red)
        for (std::uint32_t green = 0; green < kLevels; ++green)
            for (std::uint32_t blue = 0; blue < kLevels; ++blue)
                colours.push_back((red << 16 | green << 8 | blue) * kStep);
    colours.resize(256 - kInFront, 0);
    colours.insert(colours.end(), kSystemColours.begin() + kInFront, kSystemColours.end());
    return colours;
}

/// The colours of a depth. Black is the first and white the last of each table;
/// pixels of 24 bits need none.
std::vector<std::uint32_t> coloursOfDepth(std::uint32_t depth) {
    switch (depth) {
    case 4:
        return {kVgaColours.begin(), kVgaColours.end()};
    case 8:
        return halftoneColours();
    case 24:
        return {};
    default:
        return {0x000000, kWhite};
    }
}

void put16(std::string &bytes, std::uint32_t value) {
    for (int shift = 0; shift < 16; shift += 8)
        bytes += static_cast<char>(value >> shift);
}

void put32(std::string &bytes, std::uint32_t value) {
    put16(bytes, value);
    put16(bytes, value >> 16);
}

/// The bytes of one row in the format's own stride. A white pixel is all ones at
/// every depth: the table's last colour, or white itself.
std::string pixelRow(const DotSurface &surface, int y, std::uint32_t depth, std::size_t stride) {
    std::string row(stride, '\0');
    std::size_t bit = 0;
    const auto bitsPerDot = static_cast<std::size_t>(kPixelsPerDot) * depth;
    for (int x = 0; x < surface.width(); ++x) {
        const bool white = !surface.dot(x, y);
        for (const std::size_t end = bit + bitsPerDot; bit < end;) {
            const std::size_t bits = depth < 8 ? depth : 8;
            if (white)
                row[bit / 8] |= static_cast<char>(((1u << bits) - 1) << (8 - bits - bit % 8));
            bit += bits;
        }
    }
    return row;
}

/// Sizes in pixels and bytes.
struct BitmapLayout {
    BitmapLayout(std::uint32_t widthInPixels, std::uint32_t heightInPixels, std::uint32_t bitsPerPixel)
        : width(widthInPixels), height(heightInPixels), bits(bitsPerPixel) {
        stride = (width * bits + kBitsPerWord - 1) / kBitsPerWord * kBytesPerWord;
        const std::uint32_t words = width * bits / kBitsPerWord + (width % kBitsPerWord != 0 ? 1 : 0);
        imageSize = (bits == 24 ? stride : words * kBytesPerWord) * height;
    }

    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t bits;
    std::uint32_t stride;
    std::uint32_t imageSize;
};

/// The headers and the colour table.
std::string bitmapFront(const BitmapLayout &layout) {
    const std::vector<std::uint32_t> colours = coloursOfDepth(layout.bits);
    const auto offset =
        kFileHeader + kInformationHeader + static_cast<std::uint32_t>(colours.size()) * kBytesPerWord;
    std::string bytes;
    bytes += "BM";
    put32(bytes, offset + layout.imageSize);
    put32(bytes, 0);
    put32(bytes, offset);

    put32(bytes, kInformationHeader);
    put32(bytes, layout.width);
    put32(bytes, layout.height);
    put16(bytes, 1);
    put16(bytes, layout.bits);
    put32(bytes, 0);
    put32(bytes, layout.imageSize);
    for (int rest = 0; rest < 4; ++rest)
        put32(bytes, 0);

    for (const std::uint32_t colour : colours)
        put32(bytes, colour);
    return bytes;
}

} // namespace

std::string bitmapFile(const DotSurface &surface, int depth) {
    const std::uint32_t bits =
        depth == 4 || depth == 8 || depth == 24 ? static_cast<std::uint32_t>(depth) : 1;
    const BitmapLayout layout(static_cast<std::uint32_t>(surface.width() * kPixelsPerDot),
                              static_cast<std::uint32_t>(surface.height() * kPixelsPerDot), bits);
    std::string bytes = bitmapFront(layout);
    const std::size_t fileSize = bytes.size() + layout.imageSize;
    bytes.reserve(fileSize);
    for (int y = surface.height() - 1; y >= 0; --y) {
        const std::string row = pixelRow(surface, y, bits, layout.stride);
        for (int repeat = 0; repeat < kPixelsPerDot; ++repeat)
            bytes += row;
    }
    bytes.resize(fileSize, '\0');
    return bytes;
}

std::string oneBitBitmapFront(std::uint32_t width, std::uint32_t height) {
    return bitmapFront({width, height, 1});
}

} // namespace zolt
