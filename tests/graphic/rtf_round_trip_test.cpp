#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "graphic/rtf_picture.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;

TEST(RtfRoundTrip, every_byte_comes_back_in_every_kind_of_font) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\n')
            all += static_cast<char>(byte);
    }
    for (const char *font : {"ZOLT", "ZOLTIndice", "MS Sans Serif"}) {
        RichText text = oneRun(all + "\n");
        text.fonts = {font};
        EXPECT_EQ(richTextFromRtf(rtfFromRichText(text)), text) << font;
    }
}

TEST(RtfRoundTrip, paragraphs_keep_their_number) {
    for (const char *plain : {"", "a", "a\r\n", "\r\na", "\r\n", "\r\n\r\n", "a\r\n\r\nb\r\n\r\n"}) {
        const RichText text = richTextFromPlainText(plain);
        const RichText read = richTextFromRtf(rtfFromRichText(text));
        EXPECT_EQ(read, text) << plain;
        EXPECT_EQ(plainText(read), plain);
    }
}

TEST(RtfRoundTrip, random_rich_texts_come_back_as_they_were) {
    std::mt19937 random(48);
    for (int i = 0; i < 2000; ++i) {
        const RichText text = randomRichText(random);
        const std::string rtf = rtfFromRichText(text);
        ASSERT_EQ(richTextFromRtf(rtf), text) << i << "\n" << rtf;
    }
}

TEST(RtfWriter, names_fonts_and_opens_pictures_literally) {
    RichText text = oneRun("pict and {\\pict");
    text.fontIndex("ZOLTInverse");
    text.paragraphs[0].runs.push_back({{}, samplePicture(RichPicture::Kind::Png)});
    const std::string rtf = rtfFromRichText(text);
    EXPECT_NE(rtf.find(" ZOLTInverse;}"), std::string::npos);
    EXPECT_NE(rtf.find("pict and \\{\\\\pict"), std::string::npos);
    const std::size_t picture = rtf.find("{\\pict\\");
    ASSERT_NE(picture, std::string::npos);
    EXPECT_EQ(rtf.find('{', picture + 1), std::string::npos);
    EXPECT_NE(rtf.find("\\picw8\\pich6\\picwgoal240\\pichgoal180", picture), std::string::npos);
}

TEST(RtfWriter, writes_a_byte_as_its_font_shows_it) {
    struct Case {
        const char *font;
        std::string_view written;
    };
    // A tab, alpha, the mean, e with acute, the soft hyphen.
    for (const Case &c : {Case{"ZOLT", " \\u-8183\\'09\\'8c\\u-8063\\'81\\'e9\\u-8019\\'ad}"},
                          Case{"Arial", " \\tab \\u945?\\u-8063?\\'e9\\u-8019?}"}}) {
        RichText text = oneRun("\t\x8C\x81\xE9\xAD");
        text.fonts = {c.font};
        EXPECT_NE(rtfFromRichText(text).find(c.written), std::string::npos) << rtfFromRichText(text);
    }
}

TEST(RtfWriter, leaves_no_byte_that_depends_on_a_code_page) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const char c : rtfFromRichText(oneRun(all)))
        ASSERT_TRUE(c == '\r' || c == '\n' || (c >= ' ' && c <= '~'));
}

TEST(Rtf, ends_at_once_when_the_progress_says_so) {
    const RichText text = oneRun(std::string(100'000, 'x'));
    const std::string rtf = rtfFromRichText(text);
    int calls = 0;
    const Progress stop = [&calls](std::size_t step, std::size_t total) {
        EXPECT_LE(step, total);
        return ++calls < 3;
    };
    EXPECT_EQ(rtfFromRichText(text, stop), "");
    EXPECT_EQ(calls, 3);

    const std::string pieces = "{\\rtf1 " + std::string(50'000, '\n') + std::string(50'000, '{');
    calls = 0;
    EXPECT_EQ(plainText(richTextFromRtf(pieces, stop)), "");
    EXPECT_EQ(calls, 3);
}

TEST(RtfPicture, a_bmp_file_with_a_gap_before_its_dots_is_packed) {
    const std::string packed = bmpFile(9, 2);
    std::string gapped = packed.substr(0, 62) + "gap!" + packed.substr(62);
    gapped[10] = 66;
    EXPECT_EQ(bmpFromDib(dibFromBmp(gapped)), packed);
}

TEST(RtfPicture, reads_the_size_of_each_kind) {
    EXPECT_EQ(pictureSize(pngFile()), (PictureSize{8, 6}));
    EXPECT_EQ(pictureSize(samplePicture(RichPicture::Kind::Jpeg).bytes), (PictureSize{12, 9}));
    EXPECT_EQ(pictureSize(bmpFile(20, 12)), (PictureSize{20, 12}));
    EXPECT_EQ(pictureSize("no picture"), (PictureSize{0, 0}));
}
