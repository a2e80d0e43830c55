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

LoadedPicture decoded(const std::string &bytes) {
    QByteArray data = QByteArray::fromStdString(bytes);
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    return decodePicture(buffer);
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

TEST(Pictures, ReducingKeepsLinesOfHalfADot) {
    // 1320 pixels to 132 dots: 10 pixels to the dot.
    for (int start = 0; start < 600; start += 7) {
        QImage picture = filled(1320, 40, Qt::white);
        for (int x = start; x < start + 6; ++x)
            for (int y = 0; y < picture.height(); ++y)
                picture.setPixelColor(x, y, Qt::black);
        const DotSurface dots = dotsOfPicture(picture, 132, 4);
        int on = 0;
        for (int x = 0; x < dots.width(); ++x)
            on += dots.dot(x, 2);
        EXPECT_GE(on, 1) << start;
        EXPECT_LE(on, 2) << start;
    }
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

TEST(Pictures, TheWindowsPictureKeepsColoursAndLeavesWhiteAround) {
    QImage picture = filled(2, 1, Qt::red);
    picture.setPixelColor(1, 0, QColor(0, 0, 255, 0));
    const QImage shown = stretchedPicture(picture, 131, 64, {0, 0, 130, 62}, 2);
    EXPECT_EQ(shown.size(), QSize(262, 128));
    EXPECT_EQ(shown.pixel(0, 0), QColor(Qt::red).rgb());
    EXPECT_EQ(shown.pixel(129, 123), QColor(Qt::red).rgb());
    EXPECT_EQ(shown.pixel(130, 0), QColor(Qt::white).rgb());
    EXPECT_EQ(shown.pixel(0, 124), QColor(Qt::white).rgb());
    const QImage work = stretchedPicture(filled(3, 3, Qt::red), 132, 65, pictureTarget(132, 65), 2);
    EXPECT_EQ(work.pixel(262, 128), QColor(Qt::red).rgb());
    EXPECT_EQ(work.pixel(263, 128), QColor(Qt::white).rgb());
}

TEST(Pictures, DotsAreShownAsWholeSquares) {
    DotSurface surface(9, 2);
    surface.setDot(8, 1);
    const QImage image = imageOfSurface(surface, 3).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image.size(), QSize(27, 6));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 27; ++x)
            EXPECT_EQ(image.pixel(x, y), x >= 24 && y >= 3 ? 0xFF000000 : 0xFFFFFFFF) << x << ", " << y;
}

} // namespace
} // namespace zolt
