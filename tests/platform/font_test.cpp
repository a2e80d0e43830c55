#include "core/glyphs.h"
#include "platform/fonts.h"
#include "platform/program_folder.h"
#include "platform/text_pane.h"

#include <QImage>
#include <gtest/gtest.h>

namespace zolt {
namespace {

constexpr int kPixelsPerDotHere = 2;

/// All codes, 33 to a line; a pane turns CR LF into a line end, so the two that
/// would stand in that order don't follow each other.
std::string allCodes() {
    std::string text;
    for (int code = 0; code < 256; ++code) {
        text += static_cast<char>(code);
        if (code % 16 == 15)
            text += "\r\n";
    }
    return text;
}

QImage drawn(TextPane &pane) {
    const QImage picture = pane.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(picture.devicePixelRatio(), 1.0);
    return picture;
}

class Fonts : public testing::TestWithParam<double> {
protected:
    Fonts() { EXPECT_TRUE(loadFonts(installedDataFolder() + "/fonts")); }

    static void prepare(TextPane &pane, std::string_view fontName) {
        pane.setFrameShape(QFrame::NoFrame);
        pane.document()->setDocumentMargin(0);
        pane.setPaneFont(zoltFont(QString::fromUtf8(fontName.data(), static_cast<qsizetype>(fontName.size())),
                                  GetParam()));
        pane.setColours(Qt::black, Qt::white);
        pane.setReadOnly(true);
        pane.setCursorWidth(0);
        pane.resize(600, 300);
        pane.show();
    }
};

TEST_P(Fonts, DrawEveryCodeInEveryStyleDotForDot) {
    for (int style = 0; style < kStyleCount; ++style) {
        const auto s = static_cast<Style>(style);
        TextPane pane(false);
        prepare(pane, fontOfStyle(s));
        pane.setText(allCodes());
        const QImage picture = drawn(pane);
        int wrong = 0;
        for (int code = 0; code < 256; ++code) {
            for (int y = 0; y < kCellHeight * kPixelsPerDotHere; ++y) {
                for (int x = 0; x < glyphWidth(s) * kPixelsPerDotHere; ++x) {
                    const bool on = glyph(s, static_cast<unsigned char>(code)).dot(x / 2, y / 2);
                    const QRgb pixel = picture.pixel(code % 16 * glyphWidth(s) * kPixelsPerDotHere + x,
                                                     code / 16 * kCellHeight * kPixelsPerDotHere + y);
                    wrong += pixel != (on ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
                }
            }
        }
        EXPECT_EQ(wrong, 0) << fontOfStyle(s);
    }
}

TEST_P(Fonts, GiveThirtyThreeColumnsIn264Pixels) {
    const QFontMetricsF metrics(zoltFont(QStringLiteral("ZOLT"), GetParam()));
    EXPECT_EQ(metrics.horizontalAdvance(QString(33, u'M')), 264);
    EXPECT_EQ(metrics.lineSpacing(), 12);
}

INSTANTIATE_TEST_SUITE_P(PointSizes, Fonts, testing::Values(10.0, 9.75));

} // namespace
} // namespace zolt
