#include "core/glyphs.h"
#include "graphic/rtf_writer.h"
#include "hp48/preview_compiler.h"
#include "hp48/preview_json.h"
#include "hp48/screen.h"
#include "support/texts.h"
#include "zoltc/command_line.h"

#include <QImage>

namespace zolt::cli {
namespace {

class PreviewCommand : public CommandLine {
protected:
    /// Previews a document into a file; the exit code.
    int preview(std::string_view document, std::string_view output,
                const std::vector<std::string> &options = {}) {
        put("in.zlt", std::string(document) + "\r\n");
        std::vector<std::string> words{"preview", path("in.zlt"), path(output)};
        words.insert(words.end(), options.begin(), options.end());
        const int code = zoltc(words);
        EXPECT_EQ(m_errors.empty(), code == Done);
        return code;
    }

    QImage image(std::string_view name) const { return QImage(QString::fromStdString(path(name))); }
};

const std::string kDocument = test::withMarks("Plain @Bbold@B @DW@D\r\n#F9999F#100008\r\n*\xE9");

bool black(const QImage &image, int x, int y) {
    return image.pixel(x, y) == qRgb(0, 0, 0);
}

TEST_F(PreviewCommand, DrawsTheScreenInBlackOnWhite) {
    ASSERT_EQ(preview(kDocument, "out.png", {"--scale", "3"}), Done);
    const QImage shown = image("out.png");
    ASSERT_EQ(shown.size(), QSize(132 * 3, 4 * 6 * 3));
    EXPECT_EQ(shown.depth(), 1);
    const StyledText text = compilePreview(kDocument, PreviewFlavour::Hp48).styled;
    DotSurface expected(132, 4 * 6);
    drawLines(expected, text, screenLines(text), glyph);
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            ASSERT_EQ(black(shown, x, y), expected.dot(x / 3, y / 3)) << x << " " << y;
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
    EXPECT_EQ(get("out.rtf"), rtfFromRichText(expected));

    const std::string line(50, 'x');
    for (const auto &[style, flavour] :
         {std::pair{"hp48", PreviewFlavour::Hp48}, std::pair{"wrapped", PreviewFlavour::Wrapped},
          std::pair{"normal", PreviewFlavour::Normal}}) {
        ASSERT_EQ(preview(line, "out.json", {"--style", style}), Done);
        std::string json;
        writePreviewJson(compileText(line, flavour), [&json](std::string_view piece) { json.append(piece); });
        EXPECT_EQ(get("out.json"), json) << style;
    }
}

TEST_F(PreviewCommand, RefusesWhatItCannotMake) {
    for (const std::string_view output : {"out", "out.gif", "out.png.txt"}) {
        EXPECT_EQ(preview(kDocument, output), Unusable);
        EXPECT_FALSE(exists(output));
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
