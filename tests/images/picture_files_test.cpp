#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "support/converter.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::hasProgram;
using test::Pattern;
using test::surfaceOf;

constexpr Pattern kPatterns[] = {Pattern::White, Pattern::Black, Pattern::Noise, Pattern::Stripes};
constexpr std::pair<int, int> kSizes[] = {{1, 1}, {3, 5}, {16, 2}, {18, 5}, {131, 64}, {132, 65}, {4000, 1}};

std::uint32_t number(const std::string &bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

std::vector<DotSurface> testSurfaces() {
    std::vector<DotSurface> surfaces;
    for (const auto &[width, height] : kSizes)
        for (const Pattern pattern : kPatterns)
            surfaces.push_back(surfaceOf(pattern, width, height));
    return surfaces;
}

void expectDecodedByOther(const std::vector<DotSurface> &surfaces, const std::vector<std::string> &files,
                          const std::string &kind) {
    const std::vector<std::string> pictures = test::decodedByOther(files, kind);
    for (std::size_t i = 0; i < surfaces.size(); ++i)
        EXPECT_TRUE(pictures[i] == test::expectedPixels(surfaces[i])) << kind << " number " << i;
}

TEST(BitmapFile, AnotherProgramReadsEveryDepthPixelForPixel) {
    if (!hasProgram("convert"))
        GTEST_SKIP() << "ImageMagick is not installed";
    const std::vector<DotSurface> surfaces = testSurfaces();
    for (const int depth : {1, 4, 8, 24}) {
        SCOPED_TRACE(depth);
        std::vector<std::string> files;
        for (const DotSurface &surface : surfaces)
            files.push_back(bitmapFile(surface, depth));
        expectDecodedByOther(surfaces, files, "bmp");
    }
}

TEST(BitmapFile, HeadersTellTheSizesOfTheFile) {
    const struct {
        int depth;
        int width;
        std::uint32_t offset;
        std::uint32_t rowBytes;
    } cases[] = {
        // 40 pixels of 4 bits need 20 bytes, 36 and 264 of 8 bits need 36 and 264.
        {1, 264, 62, 36},  {1, 64, 62, 8},    {1, 32, 62, 4},      {4, 36, 118, 20}, {4, 40, 118, 24},
        {8, 36, 1078, 40}, {8, 32, 1078, 32}, {8, 264, 1078, 268}, {24, 6, 54, 20},  {2, 264, 62, 36},
    };
    for (const auto &c : cases) {
        const std::string bytes = bitmapFile(DotSurface(c.width / 2, 5), c.depth);
        EXPECT_EQ(number(bytes, 2, 4), bytes.size());
        EXPECT_EQ(number(bytes, 10, 4), c.offset);
        EXPECT_EQ(number(bytes, 28, 2), static_cast<std::uint32_t>(c.depth == 2 ? 1 : c.depth));
        EXPECT_EQ(number(bytes, 34, 4), c.rowBytes * 10) << c.depth << " bits, " << c.width << " pixels";
        EXPECT_EQ(bytes.size(), c.offset + c.rowBytes * 10);
    }
}

TEST(BitmapFile, WhatRowsDontNeedLiesBehindTheLast) {
    // 36 pixels at 8 bits: rows of 36 bytes in an image size of 40 for each row.
    const std::string bytes = bitmapFile(DotSurface(18, 1), 8);
    EXPECT_EQ(bytes.substr(1078), std::string(72, '\xFF') + std::string(8, '\0'));
}

TEST(GifFile, ImageMagickReadsTheSameDots) {
    if (!hasProgram("convert"))
        GTEST_SKIP() << "ImageMagick is not installed";
    const std::vector<DotSurface> surfaces = testSurfaces();
    std::vector<std::string> files;
    for (const DotSurface &surface : surfaces)
        files.push_back(gifFile(surface));
    expectDecodedByOther(surfaces, files, "gif");
}

/// The 9-bit codes in a GIF's image data.
std::vector<unsigned> codesOf(const std::string &gif) {
    constexpr std::size_t kData = 13 + 768 + 10 + 1;
    std::string data;
    for (std::size_t at = kData; gif[at] != 0; at += static_cast<unsigned char>(gif[at]) + 1u)
        data += gif.substr(at + 1, static_cast<unsigned char>(gif[at]));
    std::vector<unsigned> codes;
    for (std::size_t bit = 0; bit + 9 <= data.size() * 8; bit += 9) {
        unsigned code = 0;
        for (std::size_t i = 0; i < 9; ++i)
            code |= (static_cast<unsigned char>(data[(bit + i) / 8]) >> ((bit + i) % 8) & 1u) << i;
        codes.push_back(code);
    }
    return codes;
}

TEST(GifFile, ClearsItsTableAtTheStartOfEachRow) {
    const std::vector<unsigned> codes = codesOf(gifFile(DotSurface(132, 65)));
    // 264 equal pixels: strings of 1 to 22 pixels, then one of the 11 that are left.
    std::vector<unsigned> row{256, 124};
    for (unsigned code = 258; code < 279; ++code)
        row.push_back(code);
    row.push_back(258 + 9);
    std::vector<unsigned> expected;
    for (int y = 0; y < 130; ++y)
        expected.insert(expected.end(), row.begin(), row.end());
    expected.push_back(257);
    EXPECT_EQ(codes, expected);
}

TEST(GifFile, HeadersHoldTheSizeAndTheFixedColours) {
    const std::string gif = gifFile(DotSurface(132, 65));
    EXPECT_EQ(gif.substr(0, 6), "GIF87a");
    for (const std::size_t at : {std::size_t{6}, std::size_t{13 + 768 + 5}}) {
        EXPECT_EQ(number(gif, at, 2), 264u);
        EXPECT_EQ(number(gif, at + 2, 2), 130u);
    }
    EXPECT_EQ(gif.substr(10, 3), std::string("\xF7\0\0", 3));
    const std::string table = gif.substr(13, 768);
    EXPECT_EQ(table.substr(3, 3), std::string("\x40\0\0", 3));
    EXPECT_EQ(table.substr(15, 3), std::string("\0\x40\0", 3));
    EXPECT_EQ(table.substr(75, 3), std::string("\0\0\x40", 3));
    EXPECT_EQ(table.substr(372, 6), std::string("\xFF\xFF\xFF\0\0\0", 6));
    EXPECT_EQ(gif.substr(gif.size() - 2), std::string("\0\x3B", 2));
}

TEST(GifFile, ReportsEveryTenthRow) {
    std::vector<std::size_t> rows;
    const auto note = [&](std::size_t row, std::size_t total) {
        EXPECT_EQ(total, 26u);
        rows.push_back(row);
        return true;
    };
    EXPECT_NE(gifFile(DotSurface(4, 13), note), "");
    EXPECT_EQ(rows, (std::vector<std::size_t>{10, 20}));
    EXPECT_EQ(gifFile(DotSurface(4, 13), [](auto, auto) { return false; }), "");
}

} // namespace
} // namespace zolt
