#include "core/glyphs.h"
#include "graphic/rtf_reader.h"
#include "hp48/preview_compiler.h"
#include "hp48/preview_json.h"
#include "support/temporary_folder.h"
#include "zoltc/command.h"

#include <QImage>
#include <fstream>
#include <gtest/gtest.h>

namespace zolt::cli {
namespace {

using test::bytesOf;
using test::putBytes;
using test::TemporaryFolder;

class PreviewCommand : public testing::Test {
protected:
    std::string file(std::string_view name) const { return m_folder.file(name); }

    /// Previews a document into a file; the exit code.
    int preview(std::string_view document, std::string_view output,
                std::vector<std::string> options = {}) const {
        putBytes(file("in.zlt"), std::string(document) + "\r\n");
        std::vector<std::string> words{"preview", file("in.zlt"), file(output)};
        words.insert(words.end(), options.begin(), options.end());
        testing::internal::CaptureStderr();
        const int code = run(words);
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), code == Done);
        return code;
    }

    QImage image(std::string_view name) const { return QImage(QString::fromStdString(file(name))); }

private:
    TemporaryFolder m_folder;
};

const std::string kDocument = "Plain \x0B"
                              "Bbold\x0B"
                              "B \x0B"
                              "DW\x0B"
                              "D\r\n\x9E"
                              "F9999F\x9E"
                              "100008\r\n*\xE9";

bool black(const QImage &image, int x, int y) {
    return image.pixel(x, y) == qRgb(0, 0, 0);
}

TEST_F(PreviewCommand, DrawsTheGlyphsInBlackOnWhite) {
    ASSERT_EQ(preview(kDocument, "out.png", {"--scale", "3"}), Done);
    const QImage shown = image("out.png");
    ASSERT_EQ(shown.size(), QSize(132 * 3, 4 * 6 * 3));
    EXPECT_EQ(shown.depth(), 1);
    struct Character {
        Style style;
        char code;
        int left;
    };
    const Character line[] = {{Style::Plain, 'P', 0},
                              {Style::Plain, 'n', 16},
                              {Style::Bold, 'b', 24},
                              {Style::Bold, 'd', 36},
                              {Style::Double, 'W', 44}};
    for (const Character &character : line)
        for (int y = 0; y < 18; ++y)
            for (int x = 0; x < 3 * glyphWidth(character.style); ++x)
                EXPECT_EQ(
                    black(shown, 3 * character.left + x, y),
                    glyph(character.style, static_cast<unsigned char>(character.code)).dot(x / 3, y / 3))
                    << character.code << " " << x << " " << y;
    // The picture of two cells: a rectangle's corners and side, and two lone dots.
    EXPECT_TRUE(black(shown, 0, 6 * 3) && black(shown, 3 * 3 + 2, 6 * 3) && black(shown, 0, 11 * 3 + 2));
    EXPECT_FALSE(black(shown, 3, 7 * 3));
    EXPECT_TRUE(black(shown, 4 * 3, 6 * 3) && black(shown, 7 * 3, 11 * 3));
    EXPECT_FALSE(black(shown, 5 * 3, 6 * 3) || black(shown, 6 * 3, 11 * 3));
}

TEST_F(PreviewCommand, DrawsLongTextsWhole) {
    std::string document;
    for (int i = 0; i < 30000; ++i)
        document += i % 2 ? "#\r\n" : " \r\n";
    ASSERT_EQ(preview(document, "out.png"), Done);
    const QImage shown = image("out.png");
    ASSERT_EQ(shown.size(), QSize(132, 30002 * 6));
    for (const int line : {0, 1, 5460, 5461, 5462, 5463, 21844, 21845, 29998, 29999})
        for (int y = 0; y < 6; ++y)
            EXPECT_EQ(black(shown, 0, 6 * line + y), glyph(Style::Plain, line % 2 ? '#' : ' ').dot(0, y))
                << line;
}

TEST_F(PreviewCommand, WritesRichTextAndJson) {
    ASSERT_EQ(preview(kDocument, "out.rtf"), Done);
    const RichText expected = compilePreview(kDocument, PreviewFlavour::Hp48).text;
    const RichText read = richTextFromRtf(bytesOf(file("out.rtf")));
    EXPECT_EQ(plainText(read), plainText(expected));
    EXPECT_EQ(read.paragraphs, expected.paragraphs);

    const std::string line(50, 'x');
    for (const auto &[style, flavour] :
         {std::pair{"hp48", PreviewFlavour::Hp48}, std::pair{"wrapped", PreviewFlavour::Wrapped},
          std::pair{"normal", PreviewFlavour::Normal}}) {
        ASSERT_EQ(preview(line, "out.json", {"--style", style}), Done);
        EXPECT_EQ(bytesOf(file("out.json")), previewJson(compilePreview(line, flavour))) << style;
    }
}

TEST_F(PreviewCommand, RefusesWhatItCannotMake) {
    for (const std::string_view output : {"out", "out.gif", "out.png.txt"}) {
        EXPECT_EQ(preview(kDocument, output), Unusable);
        EXPECT_FALSE(std::ifstream(file(output)).good());
    }
    for (const std::string scale : {"0", "17", "-1", "2x", ""})
        EXPECT_EQ(preview(kDocument, "out.png", {"--scale=" + scale}), Unusable) << scale;
    EXPECT_EQ(preview(kDocument, "out.png", {"--style", "hp49"}), Unusable);
    EXPECT_EQ(preview(std::string(8192, 'x'), "out.png", {"--style", "normal"}), Unusable);
    EXPECT_EQ(preview(std::string(8191, 'x'), "out.png", {"--style", "normal"}), Done);
    std::string lines;
    for (int i = 0; i < 20'900; ++i)
        lines += "\r\n";
    EXPECT_EQ(preview(lines, "out.png", {"--scale", "8"}), Unusable);
}

} // namespace
} // namespace zolt::cli
