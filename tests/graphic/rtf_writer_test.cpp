#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "graphic/rtf_picture.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using namespace test;

TEST(RtfRoundTrip, RandomRichTextsComeBackAsTheyWere) {
    std::mt19937 random(48);
    for (int i = 0; i < 2000; ++i) {
        const RichText text = randomRichText(random);
        const std::string rtf = rtfFromRichText(text);
        ASSERT_EQ(richTextFromRtf(rtf), text) << i << "\n" << rtf;
    }
}

TEST(RtfWriter, NamesFontsAndOpensPicturesLiterally) {
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

TEST(RtfWriter, WritesAByteAsItsFontShowsIt) {
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

TEST(RtfWriter, LeavesNoByteThatDependsOnACodePage) {
    for (const char c : rtfFromRichText(oneRun(everyByte())))
        ASSERT_TRUE(c == '\r' || c == '\n' || (c >= ' ' && c <= '~'));
}

TEST(RtfRoundTrip, EndsAtOnceWhenTheProgressSaysSo) {
    const RichText text = oneRun(std::string(100'000, 'x'));
    const std::string rtf = rtfFromRichText(text);
    int calls = 0;
    const Progress stop = [&calls](std::size_t step, std::size_t total) {
        EXPECT_LE(step, total);
        return ++calls < 3;
    };
    EXPECT_EQ(rtfFromRichText(text, stop), "");
    EXPECT_EQ(calls, 3);

    calls = 0;
    EXPECT_EQ(plainText(richTextFromRtf(rtf, stop)), "");
    EXPECT_EQ(calls, 3);

    const std::string pieces = "{\\rtf1 " + std::string(50'000, '\n') + std::string(50'000, '{');
    calls = 0;
    EXPECT_EQ(plainText(richTextFromRtf(pieces, stop)), "");
    EXPECT_EQ(calls, 3);
}

TEST(RtfPicture, ABmpFileWithAGapBeforeItsDotsIsPacked) {
    const std::string packed = bmpFile(9, 2);
    std::string gapped = packed.substr(0, 62) + "gap!" + packed.substr(62);
    gapped[10] = 66;
    EXPECT_EQ(bmpFromDib(dibFromBmp(gapped)), packed);
}

TEST(RtfPicture, ReadsTheSizeOfEachKind) {
    EXPECT_EQ(pictureSize(pngFile()), (PictureSize{8, 6}));
    EXPECT_EQ(pictureSize(samplePicture(RichPicture::Kind::Jpeg).bytes), (PictureSize{12, 9}));
    EXPECT_EQ(pictureSize(bmpFile(20, 12)), (PictureSize{20, 12}));
    EXPECT_EQ(pictureSize("no picture"), (PictureSize{0, 0}));
}

} // namespace
} // namespace zolt
