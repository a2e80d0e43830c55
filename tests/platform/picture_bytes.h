#pragma once

#include "images/gif_file.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QtEndian>
#include <string>
#include <vector>

// Picture files made byte by byte or by Qt's writers, for tests of their readers.

namespace zolt::test {

inline QImage filled(int width, int height, QColor colour) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

inline std::string writtenByQt(const QImage &image, const char *format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 100);
    return buffer.data().toStdString();
}

inline std::string little(std::uint32_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> 8 * i);
    return bytes;
}

/// A BMP file of 32 bits to the pixel, told to have `width` by `height` pixels, with
/// whatever stands in `pixels`.
inline std::string bitmapOf(std::uint32_t width, std::uint32_t height, const std::string &pixels) {
    return "BM" + little(static_cast<std::uint32_t>(54 + pixels.size()), 4) + little(0, 4) + little(54, 4) +
           little(40, 4) + little(width, 4) + little(height, 4) + little(1, 2) + little(32, 2) +
           std::string(24, '\0') + pixels;
}

/// A GIF all in one colour; transparent if that has no alpha.
inline std::string gifOf(int width, int height, QColor colour) {
    DotSurface surface(width / 2, height / 2);
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            surface.setDot(x, y);
    std::string bytes = gifFile(surface);
    bytes[13] = static_cast<char>(colour.red());
    bytes[14] = static_cast<char>(colour.green());
    bytes[15] = static_cast<char>(colour.blue());
    if (colour.alpha() == 0) {
        bytes[4] = '9';
        bytes.insert(13 + 768, std::string("\x21\xF9\x04\x01\0\0\0\0", 8));
    }
    return bytes;
}

/// An image as it stands in an icon: 32 bits to the pixel and a mask that hides
/// what has no alpha.
inline std::string iconImage(const QImage &image) {
    const auto width = static_cast<std::uint32_t>(image.width());
    const auto height = static_cast<std::uint32_t>(image.height());
    std::string bytes = little(40, 4) + little(width, 4) + little(height * 2, 4) + little(1, 2) +
                        little(32, 2) + std::string(24, '\0');
    std::string mask;
    for (int y = image.height() - 1; y >= 0; --y) {
        std::string maskRow((width + 31) / 32 * 4, '\0');
        for (int x = 0; x < image.width(); ++x) {
            bytes += little(image.pixel(x, y), 4);
            if (qAlpha(image.pixel(x, y)) == 0)
                maskRow[static_cast<std::size_t>(x) / 8] |= static_cast<char>(0x80 >> x % 8);
        }
        mask += maskRow;
    }
    return bytes + mask;
}

/// An icon (`type` 1) or cursor (`type` 2) of one image of 32 by 32
/// pixels, all black, whose mask hides the right half. No pixel of it tells an alpha.
inline std::string blackIconHalfHidden(std::uint32_t type, int bits) {
    const std::uint32_t side = 32;
    std::string image = little(40, 4) + little(side, 4) + little(side * 2, 4) + little(1, 2) +
                        little(static_cast<std::uint32_t>(bits), 2) + std::string(24, '\0');
    if (bits <= 8)
        image += std::string(4, '\0') + std::string(4 * ((std::size_t{1} << bits) - 1), '\xFF');
    image += std::string(side * side * static_cast<std::uint32_t>(bits) / 8, '\0');
    for (std::uint32_t row = 0; row < side; ++row)
        image += std::string("\0\0\xFF\xFF", 4);
    return little(0, 2) + little(type, 2) + little(1, 2) + little(side, 1) + little(side, 1) + little(0, 2) +
           little(1, 2) + little(static_cast<std::uint32_t>(bits), 2) +
           little(static_cast<std::uint32_t>(image.size()), 4) + little(6 + 16, 4) + image;
}

/// The front of a JPEG: its frame header, of a mark and some colours, and scans of one
/// colour each without a byte in them.
inline std::string jpegFront(int width, int height, char frame, int colours, int scans) {
    const auto big16 = [](int value) { return std::string{char(value >> 8), char(value)}; };
    std::string bytes = "\xFF\xD8\xFF" + std::string(1, frame) + big16(8 + 3 * colours) + '\x08' +
                        big16(height) + big16(width) + char(colours);
    for (int colour = 1; colour <= colours; ++colour)
        bytes += std::string{char(colour), '\x11', '\0'};
    for (int scan = 0; scan < scans; ++scan)
        bytes += std::string("\xFF\xDA\0\x08\x01\x01\0\0\0\0", 10);
    return bytes;
}

/// An icon of a PNG image with packed texts.
inline std::string iconOfPngWithTexts(int texts) {
    std::string png("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x08\0\0\0\x08\x08\x02\0\0\0\0\0\0\0", 33);
    for (int i = 0; i < texts; ++i)
        png += std::string("\0\0\x20\0zTXt", 8) + std::string(0x2000 + 4, '\0');
    return little(0, 2) + little(1, 2) + little(1, 2) + little(8, 1) + little(8, 1) + little(0, 2) +
           little(1, 2) + little(24, 2) + little(static_cast<std::uint32_t>(png.size()), 4) +
           little(6 + 16, 4) + png;
}

/// Small files that would take their decoders gigabytes or minutes.
inline std::vector<std::string> bombs() {
    return {jpegFront(16384, 16384, '\xC0', 3, 1), jpegFront(16384, 16384, '\xC2', 3, 1),
            jpegFront(8000, 8000, '\xC2', 1, 1000), iconOfPngWithTexts(300),
            std::string("GIF89a\xFF\xFF\xFF\xFF\0\0\0,\0\0\0\0\xFF\xFF\xFF\xFF\0\x02\x01\x04\0;", 28)};
}

/// An icon (`type` 1) or cursor (`type` 2) of several images.
inline std::string iconOf(std::uint32_t type, const std::vector<QImage> &images) {
    std::string directory =
        little(0, 2) + little(type, 2) + little(static_cast<std::uint32_t>(images.size()), 2);
    std::string contents;
    const std::size_t start = 6 + 16 * images.size();
    for (const QImage &image : images) {
        const std::string bytes = iconImage(image);
        directory += little(static_cast<std::uint32_t>(image.width()), 1) +
                     little(static_cast<std::uint32_t>(image.height()), 1) + little(0, 2) +
                     little(type == 1 ? 1 : 0, 2) + little(type == 1 ? 32 : 0, 2) +
                     little(static_cast<std::uint32_t>(bytes.size()), 4) +
                     little(static_cast<std::uint32_t>(start + contents.size()), 4);
        contents += bytes;
    }
    return directory + contents;
}

} // namespace zolt::test
