#include "platform/pictures.h"

#include "images/bitmap_file.h"
#include "platform/picture_bytes.h"
#include "support/converter.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::filled;
using test::Pattern;
using test::surfaceOf;

LoadedPicture decoded(const std::string &bytes, std::int64_t mostBytes = kMostPictureBytes) {
    QByteArray data = QByteArray::fromStdString(bytes);
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    return decodePicture(buffer, mostBytes);
}

struct Format {
    const char *name;
    std::string (*bytes)(QColor colour);
    bool transparent;
};

const Format kFormats[] = {
    {"BMP",
     [](QColor c) {
         return test::writtenByQt(filled(40, 30, c).convertToFormat(QImage::Format_RGB32), "BMP");
     },
     false},
    {"BMP with a colour table",
     [](QColor c) {
         QImage image(40, 30, QImage::Format_Indexed8);
         image.setColorTable({c.rgb()});
         image.fill(0);
         return test::writtenByQt(image, "BMP");
     },
     false},
    {"GIF", [](QColor c) { return test::gifOf(40, 30, c); }, true},
    {"JPEG", [](QColor c) { return test::writtenByQt(filled(40, 30, c), "JPG"); }, false},
    {"grey JPEG",
     [](QColor c) {
         return test::writtenByQt(filled(40, 30, c).convertToFormat(QImage::Format_Grayscale8), "JPG");
     },
     false},
    {"ICO", [](QColor c) { return test::iconOf(1, {filled(32, 32, c)}); }, true},
    {"CUR", [](QColor c) { return test::iconOf(2, {filled(32, 32, c)}); }, true},
};

TEST(Pictures, OnlyExactlyBlackIsOnInEveryFormat) {
    const DotSurface allOff(132, 65);
    const DotSurface allOn = surfaceOf(Pattern::Black, 132, 65);
    for (const Format &format : kFormats) {
        SCOPED_TRACE(format.name);
        const auto dots = [&](QColor colour) {
            const LoadedPicture picture = decoded(format.bytes(colour));
            EXPECT_TRUE(picture.ok()) << picture.reason;
            return dotsOfPicture(picture.image, 132, 65);
        };
        EXPECT_EQ(dots(Qt::black), allOn);
        EXPECT_EQ(dots(Qt::white), allOff);
        EXPECT_EQ(dots(QColor(1, 1, 1)), allOff);
        if (format.transparent) {
            EXPECT_EQ(dots(QColor(0, 0, 0, 0)), allOff);
        }
    }
    EXPECT_EQ(dotsOfPicture(filled(9, 9, QColor(0, 0, 0, 254)), 132, 65), allOff);
    EXPECT_EQ(dotsOfPicture(filled(9, 9, QColor(0, 0, 1)), 132, 65), allOff);
}

TEST(Pictures, PixelsThatTheColourTableLacksAreOff) {
    QImage image(40, 30, QImage::Format_Indexed8);
    image.setColorTable({QColor(Qt::black).rgb()});
    image.fill(0);
    std::string bytes = test::writtenByQt(image, "BMP");
    const std::size_t pixels = static_cast<unsigned char>(bytes[10]);
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(pixels), bytes.end(), '\x64');
    testing::internal::CaptureStderr();
    const LoadedPicture picture = decoded(bytes);
    ASSERT_TRUE(picture.ok());
    EXPECT_EQ(dotsOfPicture(picture.image, 132, 65), DotSurface(132, 65));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Pictures, ThoseOfAnotherProgramAreRead) {
    if (!test::hasProgram("convert"))
        GTEST_SKIP() << "ImageMagick is not installed";
    const test::TemporaryFolder folder;
    for (const char *name : {"a.bmp", "b.gif", "c.jpg", "d.ico", "e.cur"}) {
        const std::string file = folder.file(name);
        ASSERT_TRUE(test::runConvert("-size 32x32 xc:black -quality 95 " + file)) << name;
        const LoadedPicture picture = loadPicture(file);
        ASSERT_TRUE(picture.ok()) << name << ": " << picture.reason;
        EXPECT_EQ(dotsOfPicture(picture.image, 132, 65), surfaceOf(Pattern::Black, 132, 65)) << name;
    }
}

TEST(Pictures, AStretchedPictureEndsBeforeATallSurfaceDoes) {
    // 1090 - 1090 / 248 = 1085.6 dots: the middle of row 1085 is the last inside.
    const DotSurface dots = dotsOfPicture(filled(5, 5, Qt::black), 132, 1090);
    EXPECT_TRUE(dots.dot(131, 1085));
    EXPECT_FALSE(dots.dot(0, 1086));
    EXPECT_EQ(dotsOfPicture(filled(5, 5, Qt::black), 1, 1), surfaceOf(Pattern::Black, 1, 1));
}

TEST(Pictures, LineArtOfWholeDotsComesThroughUnchanged) {
    const DotSurface surface = surfaceOf(Pattern::Noise, 132, 65);
    for (const int scale : {1, 2, 3, 4, 5, 8, 16})
        EXPECT_EQ(dotsOfPicture(imageOfSurface(surface, scale), 132, 65), surface) << scale;
    const LoadedPicture written = decoded(bitmapFile(surface, 8));
    EXPECT_EQ(dotsOfPicture(written.image, 132, 65), surface);
}

TEST(Pictures, EnlargingShowsThePixelUnderTheSample) {
    QImage picture = filled(2, 2, Qt::white);
    picture.setPixelColor(1, 0, Qt::black);
    DotSurface expected(5, 4);
    // 5 - 5 / 516 dots: the middle of dot 2 still lies right of the picture's middle.
    for (const int x : {2, 3, 4})
        for (const int y : {0, 1})
            expected.setDot(x, y);
    EXPECT_EQ(dotsOfPicture(picture, 5, 4), expected);
}

/// How many columns of a surface have a dot.
int columnsWithDots(const DotSurface &surface) {
    int columns = 0;
    for (int x = 0; x < surface.width(); ++x) {
        bool any = false;
        for (int y = 0; y < surface.height(); ++y)
            any |= surface.dot(x, y);
        columns += any;
    }
    return columns;
}

TEST(Pictures, ReducingKeepsTheThinnestLineWhereverItStands) {
    // A surface 129 dots wide shows just 128.75 of them.
    for (const int width : {132, 129})
        for (const int length : {133, 264, 396, 500, 1320})
            for (int column = 0; column < length; ++column) {
                QImage picture = filled(length, 2, Qt::white);
                picture.setPixelColor(column, 0, Qt::black);
                picture.setPixelColor(column, 1, Qt::black);
                ASSERT_EQ(columnsWithDots(dotsOfPicture(picture, width, 2)), 1)
                    << column << " of " << length << " to " << width;
            }
    for (const int height : {65, 124, 1090})
        for (int row = 0; row < 2200; row += 7) {
            QImage picture = filled(1, 2200, Qt::white);
            picture.setPixelColor(0, row, Qt::black);
            ASSERT_EQ(columnsWithDots(dotsOfPicture(picture, 1, height)), 1) << row << " to " << height;
        }
}

TEST(Pictures, ABlackPixelMakesADotAtAnySize) {
    const QImage::Format formats[] = {QImage::Format_RGB32, QImage::Format_ARGB32,
                                      QImage::Format_ARGB32_Premultiplied, QImage::Format_Grayscale8};
    for (const QImage::Format format : formats)
        for (const int length : {1, 7, 64, 131, 133, 300}) {
            QImage picture = filled(length, length, QColor(1, 1, 1)).convertToFormat(format);
            EXPECT_FALSE(hasBlack(picture));
            picture.setPixelColor(length - 1, length / 2, Qt::black);
            EXPECT_TRUE(hasBlack(picture));
            for (const auto &[width, height] : {std::pair(1, 1), {7, 124}, {64, 65}, {132, 1090}})
                EXPECT_EQ(columnsWithDots(dotsOfPicture(picture, width, height)) > 0, true)
                    << format << ": " << length << " to " << width << " by " << height;
        }
    EXPECT_FALSE(hasBlack(filled(3, 3, QColor(0, 0, 0, 0))));
    EXPECT_FALSE(hasBlack(QImage()));
}

TEST(Pictures, BitmapsCanStandFromTheTopDown) {
    const std::string rows = std::string(4 * 8, '\0') + std::string(4 * 8, '\xFF');
    const LoadedPicture picture = decoded(test::bitmapOf(8, 0u - 2u, rows));
    ASSERT_TRUE(picture.ok()) << picture.reason;
    EXPECT_EQ(picture.image.size(), QSize(8, 2));
    EXPECT_EQ(picture.image.pixel(7, 0), 0xFF000000);
    EXPECT_EQ(picture.image.pixel(0, 1), 0xFFFFFFFF);
    for (const std::uint32_t height : {0u - 30000u, 0x80000000u, 0x80000001u})
        EXPECT_FALSE(decoded(test::bitmapOf(30000, height, rows)).ok()) << height;
}

TEST(Pictures, WhatAnIconsMaskHidesIsOff) {
    DotSurface leftHalf(32, 32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 16; ++x)
            leftHalf.setDot(x, y);
    for (const std::uint32_t type : {1u, 2u})
        for (const int bits : {1, 4, 8, 24, 32}) {
            const LoadedPicture picture = decoded(test::blackIconHalfHidden(type, bits));
            ASSERT_TRUE(picture.ok()) << bits << ": " << picture.reason;
            EXPECT_EQ(dotsOfPicture(picture.image, 32, 32), leftHalf) << bits << " bits, type " << type;
        }
}

TEST(Pictures, APhotographBeyondTheMemoryIsDecodedAtAPartOfItsSize) {
    QImage picture = filled(1001, 803, Qt::white);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < 512; ++x)
            picture.setPixelColor(x, y, Qt::black);
    const std::string jpeg = test::writtenByQt(picture, "JPG");
    const std::int64_t whole = 4 * 1001 * 803;
    const struct {
        std::int64_t mostBytes;
        QSize size;
    } cases[] = {
        {whole, {1001, 803}}, {whole - 1, {500, 401}}, {whole / 5, {250, 200}}, {whole / 60, {125, 100}}};
    for (const auto &c : cases) {
        const LoadedPicture part = decoded(jpeg, c.mostBytes);
        ASSERT_TRUE(part.ok()) << c.mostBytes << ": " << part.reason;
        EXPECT_EQ(part.image.size(), c.size);
        const DotSurface dots = dotsOfPicture(part.image, 10, 10);
        EXPECT_TRUE(dots.dot(0, 0) && dots.dot(4, 9) && !dots.dot(6, 0) && !dots.dot(9, 9)) << c.mostBytes;
    }
    EXPECT_EQ(decoded(jpeg, whole / 65).reason, "the picture is too large");
    EXPECT_EQ(decoded(test::writtenByQt(picture, "BMP"), whole / 2).reason, "the picture is too large");
}

TEST(Pictures, TheLargestImageOfAnIconCounts) {
    const std::vector<QImage> images{filled(16, 16, Qt::white), filled(48, 32, Qt::black),
                                     filled(32, 32, Qt::white)};
    for (const std::uint32_t type : {1u, 2u}) {
        const LoadedPicture picture = decoded(test::iconOf(type, images));
        ASSERT_TRUE(picture.ok());
        EXPECT_EQ(picture.image.size(), QSize(48, 32));
        EXPECT_EQ(picture.image.pixel(0, 0), 0xFF000000);
    }
}

std::string changed(std::string bytes, std::size_t at, const std::string &by) {
    return bytes.replace(at, by.size(), by);
}

TEST(Pictures, WhatIsNoKnownPictureIsRefused) {
    const std::string icon = test::iconOf(1, {filled(16, 16, Qt::black)});
    const std::string files[] = {
        "",
        "a text",
        "BM",
        "GIF89a",
        "\xFF\xD8\xFF",
        icon.substr(0, 6),
        icon.substr(0, 30),
        changed(icon, 18, "\xFF\xFF\xFF\x7F"),
        test::writtenByQt(filled(8, 8, Qt::black), "PNG"),
        test::writtenByQt(filled(8, 8, Qt::black), "XPM"),
        "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'/>",
    };
    for (const std::string &bytes : files)
        EXPECT_EQ(decoded(bytes).reason, "Image format not recognized.") << bytes.substr(0, 20);
    EXPECT_FALSE(loadPicture("/none/a.bmp").ok());
    EXPECT_FALSE(loadPicture("/").ok());
}

TEST(Pictures, HeadersThatLieAreRefused) {
    const std::string gif = test::gifOf(40, 30, Qt::black);
    const std::string jpeg = test::writtenByQt(filled(40, 30, Qt::black), "JPG");
    const std::size_t frame = jpeg.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    const std::string icon = test::iconOf(1, {filled(16, 16, Qt::black)});
    const std::string files[] = {
        test::bitmapOf(30000, 30000, std::string(64, '\0')),
        test::bitmapOf(3000, 3000, std::string(64, '\0')),
        test::bitmapOf(0x7FFFFFFF, 0x7FFFFFFF, ""),
        changed(changed(gif, 6, "\xFF\xFF\xFF\xFF"), 13 + 768 + 5, "\xFF\xFF\xFF\xFF"),
        changed(jpeg, frame + 5, "\xFF\x01\xFF\x01"),
        changed(icon, 22 + 4, "\xFF\xFF\xFF\x7F"),
    };
    for (const std::string &bytes : files) {
        const LoadedPicture picture = decoded(bytes);
        EXPECT_FALSE(picture.ok()) << bytes.substr(0, 3);
        EXPECT_NE(picture.reason, "");
    }
}

TEST(Pictures, SmallFilesThatTakeGigabytesOrMinutesAreRefused) {
    for (const std::string &bytes : test::bombs())
        EXPECT_EQ(decoded(bytes).reason, "the picture is too large") << bytes.substr(0, 4);
    const std::string icon = test::bombs()[3];
    for (const std::string &bytes : {test::bombs()[2], icon.substr(6 + 16)})
        EXPECT_EQ(decodeEmbedded(bytes).reason, "the picture is too large") << bytes.substr(0, 4);
    // As many scans as a photograph has, and texts that one can have.
    for (const std::string &bytes : {test::jpegFront(8000, 8000, '\xC2', 1, 10), test::iconOfPngWithTexts(3)})
        EXPECT_NE(decoded(bytes).reason, "the picture is too large") << bytes.substr(0, 4);
    // Large only if each of its dots took four bytes.
    QImage page(8000, 8000, QImage::Format_Mono);
    page.fill(0);
    EXPECT_EQ(decoded(test::writtenByQt(page, "BMP")).image.size(), page.size());
}

} // namespace
} // namespace zolt
