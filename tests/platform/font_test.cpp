#include "core/charset.h"
#include "core/glyphs.h"
#include "platform/fonts.h"
#include "platform/glyph_dots.h"
#include "platform/program_folder.h"
#include "platform/text_pane.h"

#include <QImage>
#include <QRawFont>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace zolt {
namespace {

/// All codes, 16 to a line, so that 10 and 13 end no line of their own.
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
    return pane.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
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
        const int size = 2 * static_cast<int>(picture.devicePixelRatio());
        EXPECT_EQ(test::wrongPixels(picture, s, {}, size), 0) << fontOfStyle(s);
    }
}

TEST_P(Fonts, ShowAByteForItsCharactersInBothSets) {
    for (int style = 0; style < kStyleCount; ++style) {
        const std::string_view name = fontOfStyle(static_cast<Style>(style));
        const QRawFont font = QRawFont::fromFont(
            zoltFont(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())), GetParam()));
        const auto picture = [&font](char32_t character) {
            return font.glyphIndexesForString(QString::fromUcs4(&character, 1)).value(0);
        };
        for (int code = 32; code < 256; ++code) {
            const auto byte = static_cast<unsigned char>(code);
            EXPECT_NE(picture(0xE000 + byte), 0U) << name << ' ' << code;
            EXPECT_EQ(picture(windowsCharacter(byte)), picture(0xE000 + byte)) << name << ' ' << code;
            if (byteOfCharacter(calculatorCharacter(byte)) == byte) {
                EXPECT_EQ(picture(calculatorCharacter(byte)), picture(0xE000 + byte)) << name << ' ' << code;
            }
        }
    }
}

/// Characters that are one to the eye by nature, in every style.
struct Alike {
    int first, second;
    const char *reason;
};
constexpr Alike kAlike[] = {{32, 160, "the space that breaks no line is a space"}};

bool alikeByNature(int first, int second) {
    return std::any_of(std::begin(kAlike), std::end(kAlike),
                       [=](const Alike &pair) { return pair.first == first && pair.second == second; });
}

TEST(Glyphs, TellEveryCharacterFromTheOthersOfItsStyle) {
    for (int style = 0; style < kStyleCount; ++style) {
        const auto s = static_cast<Style>(style);
        std::map<decltype(Glyph::rows), int> seen;
        for (int code = 0; code < 256; ++code) {
            const auto [first, isNew] = seen.emplace(glyph(s, static_cast<unsigned char>(code)).rows, code);
            EXPECT_TRUE(isNew || alikeByNature(first->second, code))
                << fontOfStyle(s) << ": " << first->second << " and " << code << " look alike";
        }
    }
}

TEST(Glyphs, ShowBoldInEveryCharacterThatHasDots) {
    constexpr decltype(Glyph::rows) blank = {};
    for (int code = 0; code < 256; ++code) {
        const auto byte = static_cast<unsigned char>(code);
        const auto &plain = glyph(Style::Plain, byte).rows;
        EXPECT_TRUE(plain == blank || plain != glyph(Style::Bold, byte).rows) << code;
    }
}

INSTANTIATE_TEST_SUITE_P(PointSizes, Fonts, testing::Values(10.0, 9.75));

} // namespace
} // namespace zolt
