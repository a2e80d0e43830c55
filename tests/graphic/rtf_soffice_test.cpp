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

std::string base64(std::string_view bytes) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? kDigits[group >> (18 - 6 * k) & 63] : '=';
    }
    return text;
}

/// A flat OpenDocument text: paragraphs in our fonts, a picture as a character,
/// a heading and a page header.
std::string flatDocument() {
    const std::string office = "urn:oasis:names:tc:opendocument:xmlns:";
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office=")" +
           office + R"(office:1.0" xmlns:style=")" + office + R"(style:1.0" xmlns:text=")" + office +
           R"(text:1.0" xmlns:draw=")" + office + R"(drawing:1.0" xmlns:fo=")" + office +
           R"(xsl-fo-compatible:1.0" xmlns:svg=")" + office +
           R"(svg-compatible:1.0" office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text">
<office:font-face-decls>
 <style:font-face style:name="ZOLT" svg:font-family="ZOLT"/>
 <style:font-face style:name="ZOLTBold" svg:font-family="ZOLTBold"/>
</office:font-face-decls>
<office:automatic-styles>
 <style:style style:name="T1" style:family="text"><style:text-properties style:font-name="ZOLT" fo:font-size="10pt"/></style:style>
 <style:style style:name="T2" style:family="text"><style:text-properties style:font-name="ZOLTBold" fo:font-size="10pt" fo:color="#0000ff" style:text-underline-style="solid"/></style:style>
 <style:style style:name="fr1" style:family="graphic"><style:graphic-properties style:vertical-pos="top" style:vertical-rel="baseline"/></style:style>
</office:automatic-styles>
<office:master-styles/>
<office:body><office:text>
<text:p><text:span text:style-name="T1">Memória α livre</text:span></text:p>
<text:p><text:span text:style-name="T2">forte</text:span></text:p>
<text:p><text:span text:style-name="T1">fig <draw:frame draw:style-name="fr1" text:anchor-type="as-char" svg:width="0.1667in" svg:height="0.125in"><draw:image draw:mime-type="image/png"><office:binary-data>)" +
           base64(pngFile()) + R"(</office:binary-data></draw:image></draw:frame>.</text:span></text:p>
</office:text></office:body></office:document>)";
}

TEST_F(WordProcessor, FilesAreReadWithTextFontsAndPictures) {
    const std::string rtf =
        convert("sample.fodt", flatDocument(), "--convert-to 'rtf:Rich Text Format'", ".rtf");
    const RichText text = richTextFromRtf(rtf);
    EXPECT_EQ(plainText(text), "Mem\xF3ria \x8C livre\r\nforte\r\nfig  .");

    ASSERT_EQ(text.paragraphs.size(), 3u);
    const auto &bold = text.paragraphs[1].runs;
    ASSERT_EQ(bold.size(), 1u);
    EXPECT_EQ(text.fonts[bold[0].format.font], "ZOLTBold");
    EXPECT_EQ(bold[0].format.halfPoints, 20);
    EXPECT_EQ(bold[0].format.colour, 0xFF0000u);
    EXPECT_TRUE(bold[0].format.underline);

    const auto &third = text.paragraphs[2].runs;
    ASSERT_EQ(third.size(), 3u);
    EXPECT_EQ(text.fonts[third[0].format.font], "ZOLT");
    const auto *picture = std::get_if<RichPicture>(&third[1].content);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->kind, RichPicture::Kind::Png);
    EXPECT_NEAR(picture->width, 240, 2);
    EXPECT_NEAR(picture->height, 180, 2);
}

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
                all += std::get<std::string>(run.content);
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

TEST_F(WordProcessor, OurFilesOpenWithTheSameTextFontsAndPictures) {
    RichTextBuilder builder;
    const std::uint16_t bold = builder.text().fontIndex("ZOLTBold");
    builder.append("Mem\xF3ria \x80 {livre} \\o/", {});
    builder.endParagraph();
    builder.endParagraph();
    builder.append("forte", {.font = bold, .halfPoints = 28, .colour = 0xFF0000});
    for (const auto kind : {RichPicture::Kind::Png, RichPicture::Kind::Bmp})
        builder.append(samplePicture(kind), {});
    const std::string rtf = rtfFromRichText(builder.text());

    const std::string plain = convert("ours.rtf", rtf, "--convert-to 'txt:Text (encoded):UTF8'", ".txt");
    EXPECT_EQ(plain.substr(plain.starts_with("\xEF\xBB\xBF") ? 3 : 0), "Memória € {livre} \\o/\n\nforte\n");

    const std::string flat = convert("ours.rtf", rtf, "--convert-to fodt", ".fodt");
    EXPECT_NE(flat.find("svg:font-family=\"ZOLTBold\""), std::string::npos);
    EXPECT_NE(flat.find("fo:font-size=\"14pt\""), std::string::npos);
    EXPECT_NE(flat.find("fo:color=\"#0000ff\""), std::string::npos);
    // 240 by 180 twips and 600 by 360 twips, in inches.
    EXPECT_NE(flat.find("svg:width=\"0.1665in\" svg:height=\"0.125"), std::string::npos);
    EXPECT_NE(flat.find("svg:width=\"0.4165in\" svg:height=\"0.25in\""), std::string::npos);
}

} // namespace
} // namespace zolt
