#include "core/glyphs.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "platform/fonts.h"
#include "platform/glyph_dots.h"
#include "platform/program_folder.h"
#include "platform/shown_box.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;

TEST(RichTextBoxPictures, StandOnWholePixelsWithoutSmoothing) {
    QImage dots(4, 6, QImage::Format_RGB32);
    dots.fill(Qt::white);
    for (int i = 0; i < 4; ++i)
        dots.setPixel(i, i, qRgb(0, 0, 0));
    ShownBox shown;
    shown.box.pastePicture(dots);
    RichText text = shown.box.richText();
    RunContent &content = text.paragraphs[0].runs[0].content;
    ASSERT_TRUE(content.picture());
    content = RichPicture{content.picture()->kind, content.picture()->bytes, 4 * 30, 6 * 30};
    text.paragraphs.push_back(text.paragraphs[0]);
    shown.box.setRichText(text);
    shown.box.setReadOnly(true);
    shown.box.clearFocus();
    const QImage shot = grab(shown.box);
    // Two pixels a dot, the second picture right below the first.
    for (int row = 0; row < 2; ++row) {
        for (int y = 0; y < 12; ++y) {
            for (int x = 0; x < 8; ++x)
                ASSERT_EQ(shot.pixel(2 + x, 2 + 12 * row + y), dots.pixel(x / 2, y / 2))
                    << row << " " << x << " " << y;
        }
    }
}

TEST(RichTextBoxPictures, LetAColouredGroundShineThroughTheirWhite) {
    QImage dots(2, 1, QImage::Format_RGB32);
    dots.setPixel(0, 0, qRgb(255, 255, 255));
    dots.setPixel(1, 0, qRgb(0, 0, 0));
    const QColor ground(0xB4, 0xC6, 0xA5);
    ShownBox shown;
    shown.box.setBackColour(ground);
    shown.box.setWhiteIsClear(true);
    shown.box.setText(""); // another document
    shown.box.pastePicture(dots);
    const std::string rtf = shown.box.TextRTF();
    shown.box.setReadOnly(true);
    shown.box.clearFocus();
    EXPECT_EQ(grab(shown.box).pixelColor(2, 2), ground);
    EXPECT_EQ(grab(shown.box).pixelColor(3, 2), QColor(Qt::black));
    shown.box.setWhiteIsClear(false);
    EXPECT_EQ(grab(shown.box).pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(shown.box.TextRTF(), rtf);
}

TEST(RichTextBoxPictures, ShowADrawingAsAFrameOfItsSize) {
    ShownBox shown;
    shown.box.setTextRTF("{\\rtf1{\\pict\\wmetafile8\\picwgoal300\\pichgoal150 010009}}");
    shown.box.setReadOnly(true);
    shown.box.clearFocus();
    const QImage shot = grab(shown.box);
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 22; ++x) {
            const bool frame = x < 20 && y < 10 && (x == 0 || x == 19 || y == 0 || y == 9);
            ASSERT_EQ(shot.pixelColor(2 + x, 2 + y) != QColor(Qt::white), frame) << x << " " << y;
        }
    }
    EXPECT_NE(shown.box.TextRTF().find("\\wmetafile8\\picw529\\pich264\\picwgoal300\\pichgoal150\r\n010009}"),
              std::string::npos);
}

TEST(RichTextBoxColours, TheSystemsTextCanBeReadOnAnyGround) {
    ASSERT_TRUE(loadFonts(installedDataFolder() + "/fonts"));
    QPalette dark;
    dark.setColor(QPalette::Text, Qt::white);
    const auto inkOn = [&dark](QColor ground) {
        ShownBox shown("\x9E"); // a filled block
        shown.box.setPalette(dark);
        shown.box.setBackColour(ground);
        shown.box.clearFocus();
        return grab(shown.box).pixelColor(2 + 4, 2 + 6);
    };
    EXPECT_EQ(inkOn(Qt::white), QColor(Qt::black));
    EXPECT_EQ(inkOn(QColor(0xB4, 0xC6, 0xA5)), QColor(Qt::black));
    EXPECT_EQ(inkOn(QColor(0, 0, 0x80)), QColor(Qt::white));
}

TEST(RichTextBoxPictures, StandOnTheFootOfTheirLineOfText) {
    ASSERT_TRUE(loadFonts(installedDataFolder() + "/fonts"));
    ShownBox shown;
    RichText text = oneRun("ab");
    RichPicture picture = samplePicture(RichPicture::Kind::Bmp);
    picture.width = 40 * 15;
    picture.height = 24 * 15;
    text.paragraphs[0].runs.push_back({{}, picture});
    for (const char *line : {"cd", "ef", "gh"})
        text.paragraphs.push_back(oneRun(line).paragraphs[0]);
    text.paragraphs[1].runs.insert(text.paragraphs[1].runs.begin(), {{}, picture});
    shown.box.setRichText(text);
    shown.box.setReadOnly(true);
    shown.box.clearFocus();
    const QImage shot = grab(shown.box);
    EXPECT_EQ(shot.pixelColor(2 + 16, 2), QColor(Qt::black));
    EXPECT_EQ(shot.pixelColor(2 + 16 + 39, 2 + 23), QColor(Qt::black));
    EXPECT_EQ(shot.pixelColor(2 + 16 + 39, 2 + 24), QColor(Qt::white));
    EXPECT_EQ(shot.pixelColor(2 + 16 + 40, 2 + 23), QColor(Qt::white));
    // The text beside it ends with it.
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 8; ++x)
            ASSERT_EQ(shot.pixel(2 + x, 2 + 12 + y) == qRgb(0, 0, 0),
                      glyph(Style::Plain, 'a').dot(x / 2, y / 2));
    }
    const auto topOfLine = [&shown](qsizetype offset) {
        shown.box.setSelStart(offset);
        return shown.box.cursorRect().top();
    };
    // Two pixels of margin, the height of the picture behind its text and of the one
    // before it, then lines of 12 pixels.
    EXPECT_EQ(topOfLine(10), 2 + 24 + 24);
    EXPECT_EQ(topOfLine(14), 2 + 24 + 24 + 12);
}

TEST(RichTextBoxFonts, ShowEveryByteInEveryStyleDotForDot) {
    ASSERT_TRUE(loadFonts(installedDataFolder() + "/fonts"));
    ShownBox shown("", false);
    shown.box.resize(400, 400);
    shown.box.setReadOnly(true);
    shown.box.clearFocus();
    for (int number = 0; number < kStyleCount; ++number) {
        const auto style = static_cast<Style>(number);
        RichTextBuilder builder;
        const std::uint16_t font = builder.text().fontIndex(fontOfStyle(style));
        for (int code = 0; code < 256; ++code) {
            const char byte = static_cast<char>(code);
            if (code > 0 && code % 16 == 0)
                builder.endParagraph();
            builder.append({&byte, 1}, {.font = font});
        }
        shown.box.setRichText(builder.text());
        EXPECT_EQ(wrongPixels(grab(shown.box), style, {2, 2}, 2), 0) << fontOfStyle(style);
    }
}
