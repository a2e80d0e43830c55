#include "core/codes.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "support/other_programs.h"
#include "support/temporary_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <utility>

namespace zolt {
namespace {

using namespace test;

/// A folder in which LibreOffice converts files, with a profile of its own.
class WordProcessor : public testing::Test {
protected:
    void SetUp() override {
        if (!hasProgram("soffice"))
            GTEST_SKIP() << "LibreOffice isn't installed";
    }

    /// The bytes of `name` converted; `options` name the format wanted.
    std::string convert(const std::string &name, std::string_view bytes, const std::string &options,
                        const std::string &resultExtension) {
        const std::filesystem::path source = m_folder.file(name);
        putBytes(source.string(), bytes);
        const std::string command = "soffice -env:UserInstallation=file://" + m_folder.file("profile") +
                                    " --headless " + options + " --outdir '" + m_folder.file("out") + "' '" +
                                    source.string() + "' >/dev/null 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        return bytesOf(m_folder.file("out/" + source.stem().string() + resultExtension));
    }

private:
    TemporaryFolder m_folder;
};

TEST_F(WordProcessor, EveryByteInEveryFontOutlivesEveryFormat) {
    RichTextBuilder builder;
    std::vector<std::string> fonts{"Liberation Sans"};
    for (int style = 0; style < kStyleCount; ++style)
        fonts.emplace_back(fontOfStyle(static_cast<Style>(style)));
    for (const std::string &font : fonts) {
        const CharFormat format{.font = builder.text().fontIndex(font)};
        for (unsigned byte = 0; byte < 256; ++byte)
            builder.append(std::string{'<', static_cast<char>(byte), '>'}, format);
        builder.endParagraph();
    }
    const std::string rtf = rtfFromRichText(builder.text());
    const auto converted = [this](const std::string &name, const std::string &bytes) {
        return convert(name, bytes, "--convert-to 'rtf:Rich Text Format'", ".rtf");
    };
    const auto described = [](const RichText &text) {
        std::string all;
        for (const Paragraph &paragraph : text.paragraphs) {
            std::uint16_t font = 0xFFFF;
            for (const zolt::Run &run : paragraph.runs) {
                if (std::exchange(font, run.format.font) != run.format.font)
                    all += "\n" + text.fonts[font] + ": ";
                all += run.content.characters();
            }
        }
        return all;
    };
    const std::string wanted = described(builder.text());
    EXPECT_EQ(described(richTextFromRtf(converted("ours.rtf", rtf))), wanted);
    for (const std::string format : {"doc", "odt"}) {
        const std::string other = convert("ours.rtf", rtf, "--convert-to " + format, "." + format);
        EXPECT_EQ(described(richTextFromRtf(converted("theirs." + format, other))), wanted) << format;
    }
}

TEST_F(WordProcessor, TextFontsAndPicturesGoThereAndComeBack) {
    RichTextBuilder builder;
    const std::uint16_t bold = builder.text().fontIndex("ZOLTBold");
    builder.append("Mem\xF3ria \x80 {livre} \\o/", {});
    builder.endParagraph();
    builder.endParagraph();
    builder.append("forte", {.font = bold, .halfPoints = 28, .colour = 0xFF0000, .underline = true});
    for (const auto kind : {RichPicture::Kind::Png, RichPicture::Kind::Bmp})
        builder.append(samplePicture(kind), {});
    const std::string rtf = rtfFromRichText(builder.text());

    const std::string plain = convert("ours.rtf", rtf, "--convert-to 'txt:Text (encoded):UTF8'", ".txt");
    EXPECT_EQ(plain.substr(plain.starts_with("\xEF\xBB\xBF") ? 3 : 0),
              "Mem\u00F3ria \u20AC {livre} \\o/\n\nforte\n");

    const std::string flat = convert("ours.rtf", rtf, "--convert-to fodt", ".fodt");
    EXPECT_NE(flat.find("svg:font-family=\"ZOLTBold\""), std::string::npos);
    EXPECT_NE(flat.find("fo:font-size=\"14pt\""), std::string::npos);
    EXPECT_NE(flat.find("fo:color=\"#0000ff\""), std::string::npos);
    // 240 by 180 twips and 600 by 360 twips, in inches.
    EXPECT_NE(flat.find("svg:width=\"0.1665in\" svg:height=\"0.125"), std::string::npos);
    EXPECT_NE(flat.find("svg:width=\"0.4165in\" svg:height=\"0.25in\""), std::string::npos);

    const RichText back =
        richTextFromRtf(convert("ours.rtf", rtf, "--convert-to 'rtf:Rich Text Format'", ".rtf"));
    EXPECT_EQ(plainText(back), plainText(builder.text()));
    const std::vector<zolt::Run> &runs = back.paragraphs.back().runs;
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_EQ(back.fonts[runs[0].format.font], "ZOLTBold");
    EXPECT_EQ(runs[0].format.halfPoints, 28);
    EXPECT_EQ(runs[0].format.colour, 0xFF0000u);
    EXPECT_TRUE(runs[0].format.underline);
    ASSERT_TRUE(runs[1].content.picture());
    const RichPicture &picture = *runs[1].content.picture();
    EXPECT_EQ(picture.kind, RichPicture::Kind::Png);
    EXPECT_NEAR(picture.width, 240, 2);
    EXPECT_NEAR(picture.height, 180, 2);
}

} // namespace
} // namespace zolt
