#include "platform/embedded_picture.h"

#include "graphic/rtf_reader.h"
#include "platform/picture_bytes.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::filled;
using test::little;
using test::writtenByQt;

constexpr int kWidth = 132;
constexpr int kHeight = 66;

/// Squares of 8 pixels, black and white in turn, which JPEG keeps exactly.
QImage chessboard() {
    QImage image(32, 24, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, (x / 8 + y / 8) % 2 == 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
    return image;
}

/// The same with squares of `side` dots.
DotSurface chessDots(int side) {
    DotSurface dots(kWidth, kHeight);
    for (int y = 0; y < std::min(3 * side, kHeight); ++y)
        for (int x = 0; x < std::min(4 * side, kWidth); ++x)
            dots.setDot(x, y, (x / side + y / side) % 2 == 0);
    return dots;
}

/// A Windows metafile that draws a DIB: header, StretchDIBits, end.
std::string metafileOf(const std::string &dib) {
    return little(1, 2) + little(9, 2) + little(0x300, 2) + std::string(12, '\0') +
           little(static_cast<std::uint32_t>(28 + dib.size()) / 2, 4) + little(0x0F43, 2) +
           little(0x00CC0020, 4) + std::string(18, '\0') + dib + little(3, 4) + little(0, 2);
}

/// The dots of the one picture of an RTF file.
DotSurface dotsOf(const std::string &kind, const std::string &bytes, int width, int height) {
    const RichText text = richTextFromRtf("{\\rtf1{\\pict\\" + kind + "\\picwgoal" + std::to_string(width) +
                                          "\\pichgoal" + std::to_string(height) + " " +
                                          QByteArray::fromStdString(bytes).toHex().toStdString() + "}}");
    const auto &runs = text.paragraphs.front().runs;
    const RichPicture *picture = runs.size() == 1 ? runs.front().content.picture() : nullptr;
    return picture ? dotsOfEmbeddedPicture(*picture, kWidth, kHeight) : DotSurface();
}

TEST(EmbeddedPicture, GivesTheSameDotsInEveryFormAndSizeThatRtfHas) {
    const QImage image = chessboard();
    const std::string dib = writtenByQt(image, "BMP").substr(14);
    const std::pair<const char *, std::string> forms[] = {
        {"pngblip", writtenByQt(image, "PNG")},
        {"pngblip", writtenByQt(image.convertToFormat(QImage::Format_Mono), "PNG")},
        {"jpegblip", writtenByQt(image, "JPG")},
        {"dibitmap0", dib},
        {"wmetafile8", metafileOf(dib)},
    };
    for (const auto &[kind, bytes] : forms)
        // The last one is larger than the surface.
        for (const int side : {2, 4, 8, 80})
            EXPECT_EQ(dotsOf(kind, bytes, 4 * side * 30, 3 * side * 30), chessDots(side))
                << kind << ", squares of " << side;
}

TEST(EmbeddedPicture, OnlyWhatIsBlackAndOpaqueIsOn) {
    DotSurface black(kWidth, kHeight);
    for (int i = 0; i < 64; ++i)
        black.setDot(i % 8, i / 8);
    const std::pair<QColor, DotSurface> colours[] = {
        {Qt::black, black},
        {QColor(1, 0, 0), DotSurface(kWidth, kHeight)},
        {QColor(0, 0, 0, 254), DotSurface(kWidth, kHeight)},
        {QColor(0, 0, 0, 0), DotSurface(kWidth, kHeight)},
    };
    for (const auto &[colour, dots] : colours)
        EXPECT_EQ(dotsOf("pngblip", writtenByQt(filled(8, 8, colour), "PNG"), 240, 240), dots);
    std::string damaged = writtenByQt(filled(8, 8, Qt::black), "PNG");
    damaged.resize(40);
    EXPECT_TRUE(
        dotsOfEmbeddedPicture({RichPicture::Kind::Png, damaged, 240, 240}, kWidth, kHeight).isEmpty());
}

} // namespace
} // namespace zolt
