#include "graphic/rich_text_samples.h"
#include "graphic/rtf_reader.h"
#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using namespace test;

std::string hexOf(std::string_view bytes) {
    std::string hex;
    for (const char c : bytes) {
        constexpr std::string_view kDigits = "0123456789abcdef";
        hex += kDigits[static_cast<unsigned char>(c) >> 4];
        hex += kDigits[static_cast<unsigned char>(c) & 15];
    }
    return hex;
}

std::string textOf(std::string_view rtf) {
    return plainText(richTextFromRtf(rtf));
}

void expectTexts(std::initializer_list<std::pair<std::string_view, std::string_view>> cases) {
    for (const auto &[rtf, text] : cases)
        EXPECT_EQ(textOf(rtf), text) << rtf;
}

/// The formats of a text as a line: font, size in points, attributes, colour.
std::string describe(const RichText &text) {
    std::string all;
    for (const Paragraph &paragraph : text.paragraphs) {
        for (const Run &run : paragraph.runs) {
            const CharFormat &format = run.format;
            all += "[";
            all += run.content.picture() ? "picture" : run.content.characters();
            all += "] " + text.fonts[format.font];
            all += " " + std::to_string(format.halfPoints / 2);
            all += format.bold ? " bold" : "";
            all += format.italic ? " italic" : "";
            all += format.underline ? " underline" : "";
            all += format.strikeThru ? " strike" : "";
            if (format.colour != kWindowText)
                all += " " + std::to_string(format.colour);
            all += "\n";
        }
    }
    return all;
}

std::vector<RichPicture> picturesOf(std::string_view rtf) {
    std::vector<RichPicture> pictures;
    for (const Paragraph &paragraph : richTextFromRtf(rtf).paragraphs) {
        for (const Run &run : paragraph.runs) {
            if (const auto *picture = run.content.picture())
                pictures.push_back(*picture);
        }
    }
    return pictures;
}

TEST(RtfReader, ReadsAFileInWordpadsManner) {
    const RichText text = richTextFromRtf(
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\nouicompat\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 ZOLT;}"
        "{\\f1\\fnil\\fcharset0 Courier New;}{\\f2\\fnil\\fcharset2 Symbol;}}\r\n"
        "{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
        "{\\*\\generator Riched20 10.0.19041}\\viewkind4\\uc1 \r\n"
        "\\pard\\sa200\\sl276\\slmult1\\f0\\fs20\\lang9 Mem\\'f3ria\\f1\\fs22  livre\\par\r\n"
        "{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2\\pnindent0{\\pntxtb\\'B7}}\\cf1\\b "
        "one\\cf0\\b0\\par\r\n"
        "\\ul two\\ulnone\\strike three\\strike0\\par\r\n}\r\n\0");
    EXPECT_EQ(plainText(text), "Mem\xF3ria livre\r\n\xB7\tone\r\ntwothree");
    EXPECT_EQ(describe(text), "[Mem\xF3ria] ZOLT 10\n[ livre] Courier New 11\n[\xB7\t] Symbol 11\n"
                              "[one] Courier New 11 bold 255\n[two] Courier New 11 underline\n"
                              "[three] Courier New 11 strike\n");
}

TEST(RtfReader, ReadsAFileInWordsManner) {
    const RichText text = richTextFromRtf(
        "{\\rtf1\\adeflang1025\\ansi\\ansicpg1252\\uc1\\adeff31507\\deff0\\stshfdbch31506\\deflang2070"
        "{\\fonttbl{\\f0\\fbidi \\froman\\fcharset0\\fprq2{\\*\\panose 02020603050405020304}Times New Roman;}"
        "{\\f37\\fbidi \\fnil\\fcharset0\\fprq2{\\*\\panose 00000000000000000000}ZOLTBold{\\*\\falt Arial};}"
        "{\\flomajor\\f31500\\fbidi \\froman\\fcharset238 Times New Roman CE;}}"
        "{\\colortbl;\\red0\\green0\\blue0;\\red0\\green112\\blue192;}"
        "{\\*\\defchp \\f31506\\fs22 }{\\*\\defpap \\ql }\\noqfpromote "
        "{\\stylesheet{\\ql \\f0\\fs24 \\snext0 Normal;}{\\*\\cs10 \\additive Default Paragraph Font;}}"
        "{\\*\\rsidtbl \\rsid12345}{\\mmathPr\\mmathFont34}{\\info{\\title A title}{\\author Someone}}"
        "{\\header \\pard\\plain page head\\par }{\\*\\xmlnstbl {\\xmlns1 http://example.org}}"
        "\\pard\\plain \\ltrpar\\ql \\rtlch\\fcs1 \\af37\\afs20\\alang1025 \\ltrch\\fcs0 "
        "\\f0\\fs24\\lang2070 "
        "{\\rtlch\\fcs1 \\ab\\af37 \\ltrch\\fcs0 \\f37\\fs20\\cf2\\insrsid1 bold\\~text}"
        "{\\rtlch\\fcs1 \\af0 \\ltrch\\fcs0 \\insrsid1 \\rquote s {\\i in}ner}"
        "{\\*\\bkmkstart mark}{\\*\\bkmkend mark}{\\v hidden}"
        "{\\field{\\*\\fldinst {HYPERLINK \"http://example.org\"}}{\\fldrslt {\\ul link}}}\\par "
        "{\\upr{ansi}{\\*\\ud{unicode}}}{\\footnote \\pard note}\\par }");
    EXPECT_EQ(describe(text), "[bold\xA0text] ZOLTBold 10 12611584\n['s ] Times New Roman 12\n"
                              "[in] Times New Roman 12 italic\n[ner] Times New Roman 12\n"
                              "[link] Times New Roman 12 underline\n[unicode] Times New Roman 12\n");
    EXPECT_EQ(plainText(text), "bold\xA0text's innerlink\r\nunicode");
}

TEST(RtfReader, TakesTheColourTableBeforeTheFontTable) {
    EXPECT_EQ(
        describe(richTextFromRtf("{\\rtf1{\\colortbl;\\red1\\green2\\blue3;}{\\fonttbl\\f7 Arial;\\f3 ZOLT;}"
                                 "\\f3\\cf1 x\\cf9\\f1 y}")),
        "[x] ZOLT 12 197121\n[y] Arial 12\n");
}

TEST(RtfReader, TranslatesCharactersByCodePage) {
    expectTexts({
        // The same character under different numbers: the byte of code page 1252.
        {"{\\rtf1\\ansicpg1252 \\'e9}", "\xE9"},
        {"{\\rtf1\\ansicpg437 \\'82}", "\xE9"},
        {"{\\rtf1\\pca \\'82\\'9b}", "\xE9\xF8"},
        {"{\\rtf1\\ansicpg1250 \\'9a\\'e8}", "sc"},
        {"{\\rtf1\\ansicpg1251 \\'96\\'e6}", "-?"},
        {"{\\rtf1\\ansicpg1254 \\'d0\\'d6}", "G\xD6"},
        // Greek letters are characters of the calculator.
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset161 Arial Greek;}}\\deff0\\plain \\'e1}", "\x8C"},
        {"{\\rtf1\\u945 ?\\u960\\'3f}", "\x8C\x87"},
        {"{\\rtf1 a\\'4", "a4"},
        {"{\\rtf1\\ansicpg932 \\'83\\'41a}", "?a"},
        {"{\\rtf1\\mac \\'8e\\'b9\\'c9}", "\xE9\x87..."},
        {"{\\rtf1\\ansicpg1257 \\'e0\\'b8}", "a\xF8"},
        {"{\\rtf1\\ansicpg4711 \\'e9}", "\xE9"},
        {"{\\rtf1{\\fonttbl\\f0\\fcharset163 A;\\f1\\fcharset177 B;\\f2\\fcharset178 C;\\f3\\fcharset222 D;}"
         "\\f0\\'d0\\'e2\\f1\\'aa\\f2\\'aa\\f3\\'a1\\'93}",
         "D\xE2\xD7??\""},
        // One sign a character, whatever its bytes are and wherever they part.
        {"{\\rtf1\\ansicpg932 \\'83\\'bf\\'b1\\'88\\'9f\\'83\\'5c\\'83\\\\\\'81\\'80a}", "\x8C????\xF7"
                                                                                         "a"},
        {"{\\rtf1\\ansicpg936 \\'a6\\'c1\\'c4\\'e3}", "\x8C?"},
        {"{\\rtf1\\ansicpg949 \\'a5\\'e1\\'81A}", "\x8C?"},
        {"{\\rtf1\\ansicpg950 \\'a3\\'5c\\'a4\\'40}", "\x8C?"},
        {"{\\rtf1\\ansicpg932{\\b\\'83}{\\i\\'bf}\\'83 \\'83\\par\\'83{\\v\\'bf}\\'bf\\'83}",
         "\x8C? ?\r\n\x8C?"},
        {"{\\rtf1\\ansicpg65001 \\'ce\\'b1\xE2\x80\x9C\\'e2\\'82x\xE2\x82\xAC\xF0\x9F\x98\x80\x80}",
         "\x8C\"?xEUR??"},
        {"{\\rtf1\\ansicpg932\\uc2\\u945\\'83\\'bf\\u945\\'83\\'bf}", "\x8C\x8C"},
        // Signs that the calculator lacks become the nearest ones.
        {"{\\rtf1\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote\\~\\_\\-\\emspace\\tab x}",
         "--\xB7''\"\"\xA0- \tx"},
        {"{\\rtf1 \\'8c\\'93\\'85\\'95\\u8230?\\u956?\\u946?\\u8722?\\u8203?\\u8364?}",
         "OE\"...\xB7...\xB5\xDF-EUR"},
        // In the calculator's fonts a byte is a character, whatever the code page.
        {"{\\rtf1\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 ZOLT;}{\\f1 ZOLTX;}}\\f0\\'e6\\f1\\'e6}", "\xE6?"},
        {"{\\rtf1{\\fonttbl{\\f0 "
         "ZOLT;}}\\f0\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote\\~\\_\\-"
         "\\emspace\\tab x}",
         "\x97\x96\x95\x91\x92\x93\x94\xA0-\xAD \tx"},
        // A byte as Unicode's character of its code page, as the calculator's, as a
        // private one, and as word processors carry those without a character.
        {"{\\rtf1{\\fonttbl{\\f0 "
         "ZOLTBold;}}\\f0\\u338?\\u945?\\u8230?\\u-8053?\\u-3957?\\u61825\\'81\\u129?}",
         "\x8C\x8C\x85\x8B\x8B\x81\x81"},
    });
}

TEST(RtfReader, DropsWhatStandsBehindAUnicodeCharacterForOldPrograms) {
    expectTexts({
        {"{\\rtf1\\u8364?x}", "EURx"},
        {"{\\rtf1\\uc0\\u176x}", "\xB0x"},
        {"{\\rtf1\\uc2\\u233\\'65\\'27x}", "\xE9x"},
        {"{\\rtf1\\uc3\\u233 ab\\emdash x}", "\xE9x"},
        {"{\\rtf1{\\uc0\\u233}\\u233?x}", "\xE9\xE9x"},
        {"{\\rtf1{\\uc2\\u233 a}x}", "\xE9x"},
        {"{\\rtf1\\u233\\par x}", "\xE9\r\nx"},
        {"{\\rtf1\\u-10179?\\u-8704?x\\u55349?\\u56320?\\u119808?}", "?xAA"},
        {"{\\rtf1\\u-3913?x}", "\xB7x"},
    });
}

TEST(RtfReader, SkipsBehindAStarOnlyWhatItDoesNotKnow) {
    EXPECT_EQ(describe(richTextFromRtf("{\\rtf1 a\\*\\b b{\\*\\i x}\\*c\\zz d{e\\*\\zz x}\\*\\~\\zz f}")),
              "[a] ZOLT 12\n[bcde\xA0"
              "f] ZOLT 12 bold\n");
}

TEST(RtfReader, KeepsEveryWordThatAWordProcessorShows) {
    expectTexts({
        // Lists: numbers and bullets are text, the parts they are made of aren't.
        {"{\\rtf1{\\*\\listtable{\\list{\\listlevel{\\leveltext\\'02\\'00.;}}{\\listname ;}}}"
         "{\\listtext\\pard\\plain 1.\\tab}first\\par{\\pntext\\'b7\\tab}{\\pn{\\pntxtb (}{\\pntxta "
         ")}}second\\par}",
         "1.\tfirst\r\n\xB7\tsecond"},
        // Fields: the result, or the character that the instruction names.
        {"{\\rtf1{\\field{\\*\\fldinst{ HYPERLINK \"http://x\" }{\\*\\datafield 00}}{\\fldrslt{\\ul link}}}"
         "{\\field{\\*\\fldinst{SYMBOL 183 \\\\f \"Symbol\" \\\\s 10}}{\\fldrslt\\f3\\'b7}}"
         "{\\field{\\*\\fldinst SYMBOL 945 \\\\u}{\\fldrslt}}"
         "{\\field{\\fldinst FORMTEXT{\\*\\formfield{\\*\\ffname N}}}{\\fldrslt filled}}}",
         "link\xB7\x8C"
         "filled"},
        // A table in a table's cell.
        {"{\\rtf1\\trowd\\intbl outer\\par\\itap2 a\\nestcell "
         "b\\nestcell{\\*\\nesttableprops\\trowd\\cellx9\\nestrow}"
         "{\\nonesttables\\par}c\\nestcell{\\*\\nesttableprops\\nestrow}{\\nonesttables\\par}\\itap1 d\\cell "
         "e\\cell\\row f}",
         "outer\r\na\tb\r\nc\r\nd\te\r\nf"},
        // Boxes, old and new, alone and in groups; once, though written twice.
        {"{\\rtf1 a{\\shp{\\*\\shpinst\\shpleft0{\\sp{\\sn shapeType}{\\sv 202}}{\\shptxt\\pard box\\par}}"
         "{\\shprslt{\\*\\do\\dptxbx{\\dptxbxtext box\\par}}}}b{\\*\\do\\dptxbx{\\dptxbxtext\\plain "
         "old\\par}\\dpx0}"
         "{\\shpgrp{\\*\\shpinst{\\shp{\\*\\shpinst{\\shptxt in group\\par}}}}}{\\shp{\\*\\shpinst{\\sp{\\sn "
         "gtextUNICODE}{\\sv art}}{\\sp{\\sn gtextFont}{\\sv F}}}} c}",
         "abox\r\nbold\r\nin group\r\nart c"},
        {"{\\rtf1 a{\\upr{??}{\\*\\ud{\\uc0\\u945 }}}{\\*\\bkmkstart{\\upr{x}{\\*\\ud{y}}}}b"
         "{\\object\\objemb{\\*\\objclass E}{\\*\\objdata 01}{\\result{\\pard c}}}{\\unknown d}\\lbr1 e}",
         "a\x8C"
         "bcd\r\ne"},
        // Mac's line ends, HTML carried along.
        {"{\\rtf1\\mac\\cocoartf2{\\*\\expandedcolortbl;;}\\uc0\\u8220 a\\u8221 \\\n{\\*\\htmltag64 <p>}b}",
         "\"a\"\r\nb"},
        // Left out: hidden, deleted, notes, comments, heads, entries.
        {"{\\rtf1{\\generator G;}{\\headerl h}{\\footerf f}a\\v x\\v0 b{\\deleted x}\\deleted x\\plain "
         "c{\\footnote x}"
         "{\\*\\annotation x}{\\xe x}{\\tc x}\\deleted x{\\pict\\emfblip 00}\\par\\deleted0 d}",
         "abcd"},
    });
}

TEST(RtfReader, EndsLinesWhereAReaderSeesThemEnd) {
    expectTexts({
        {"{\\rtf1 a\\par b\\line c\\\r\nd\\par}", "a\r\nb\r\nc\r\nd"},
        {"{\\rtf1 a\r\nb}", "ab"},
        {"{\\rtf1 a\\page\\par b\\sect c}", "a\r\n\r\nb\r\nc"},
        {"{\\rtf1\\trowd\\intbl a\\cell b\\cell\\row\\trowd\\intbl c\\cell\\cell\\row\\pard d}",
         "a\tb\r\nc\t\r\nd"},
        {"{\\rtf1\\'0d\\'0ax\\'0d\\b\\u10?y\\'0dz}", "\r\nx\r\ny\rz"},
    });
}

TEST(RtfReader, ReadsPicturesOfEveryKindOnce) {
    const std::string png = hexOf(pngFile()).insert(90, "\r\n");
    const std::string bmp = bmpFile(20, 12);
    const std::string dib = hexOf(bmp.substr(14));
    // A metafile of three records: a map mode, StretchDIBits, the end.
    const std::size_t dibBytes = bmp.size() - 14;
    std::string size = "....";
    for (std::size_t i = 0; i < 4; ++i)
        size[i] = static_cast<char>((28 + dibBytes) / 2 >> (8 * i) & 255);
    const std::string metafile = "010009000003000000000000000000000000"
                                 "040000000301"
                                 "0800" +
                                 hexOf(size) + "430f" +
                                 "2000cc00"
                                 "0000"
                                 "0c0014000000000018002800"
                                 "00000000" +
                                 dib + "030000000000";
    const std::string drawing = bytesOfHex("0100090000030000000000000000000000000300000000000000");
    const std::string placeable = bytesOfHex("d7cdc69a0000f6ff0000ea01e803e803000000000000");
    std::string enhanced(44, '\0');
    enhanced[0] = 1;
    enhanced.replace(24, 20, bytesOfHex("0100000000000000ed090000fe00000020454d46"));
    struct Case {
        const char *what;
        std::string group;
        RichPicture picture;
    };
    const Case cases[] = {
        {"png",
         "{\\pict\\pngblip\\picwgoal240\\pichgoal180 " + png + "}",
         {RichPicture::Kind::Png, pngFile(), 240, 180}},
        {"no goal",
         "{\\pict{\\*\\picprop{\\sp{\\sn a}{\\sv 1}}}\\picscalex200\\picscaley100\\pngblip\n" + png + "}",
         {RichPicture::Kind::Png, pngFile(), 240, 90}},
        {"both ways",
         "{\\*\\shppict{\\pict\\pngblip\\picwgoal240\\pichgoal180 " + png +
             "}}{\\nonshppict{\\pict\\wmetafile8\\picwgoal9\\pichgoal9 " + metafile + "}}",
         {RichPicture::Kind::Png, pngFile(), 240, 180}},
        {"second way",
         "{\\*\\shppict{\\pict\\emfblip 0102}}{\\nonshppict{\\pict\\wmetafile8\\picw1058\\pich635 " +
             metafile + "}}",
         {RichPicture::Kind::Bmp, bmp, 599, 360}},
        {"dib", "{\\pict\\dibitmap0\\picw20\\pich12 " + dib + "}", {RichPicture::Kind::Bmp, bmp, 300, 180}},
        {"shape",
         "{\\shp{\\*\\shpinst\\shpleft-5\\shptop10\\shpright10\\shpbottom40{\\sp{\\sn fillBlip}{\\sv "
         "{\\pict\\pngblip " +
             png +
             "}}}{\\sp{\\sn pib}{\\sv "
             "{\\pict\\picwgoal7\\pichgoal7\\pngblip " +
             png + "}}}}{\\shprslt{\\pict\\pngblip " + png + "}}}",
         {RichPicture::Kind::Png, pngFile(), 15, 30}},
        {"object",
         "{\\object\\objemb{\\*\\objclass P}{\\*\\objdata 0105}{\\result{\\pict\\dibitmap0\\picwgoal15"
         "\\pichgoal15 " +
             dib + "}}}",
         {RichPicture::Kind::Bmp, bmp, 15, 15}},
        // Drawings: kept, in their size by the group, else by the file, else an inch.
        {"wmf",
         "{\\pict\\wmetafile8\\picw2540\\pich1270\\picscaley50 " + hexOf(drawing) + "}",
         {RichPicture::Kind::Wmf, drawing, 1440, 360}},
        {"placeable wmf",
         "{\\pict\\wmetafile8 " + hexOf(placeable + drawing) + "}",
         {RichPicture::Kind::Wmf, placeable + drawing, 720, 1440}},
        {"emf",
         "{\\*\\shppict{\\pict\\emfblip " + hexOf(enhanced) + "}}{\\nonshppict{\\pict\\wmetafile8 00}}",
         {RichPicture::Kind::Emf, enhanced, 1440, 144}},
        {"macpict",
         "{\\pict\\macpict\\picw10\\pich20 1101}",
         {RichPicture::Kind::MacPict, "\x11\x01", 150, 300}},
        {"no size", "{\\pict\\emfblip 01}", {RichPicture::Kind::Emf, "\x01", 1440, 1440}},
    };
    for (const Case &c : cases) {
        const std::vector<RichPicture> pictures = picturesOf("{\\rtf1 a" + c.group + "b}");
        ASSERT_EQ(pictures.size(), 1u) << c.what;
        EXPECT_EQ(pictures[0], c.picture) << c.what;
        EXPECT_EQ(textOf("{\\rtf1 a" + c.group + "b}"), "a b") << c.what;
    }
    const std::string raw = pngFile();
    const auto binary =
        picturesOf("{\\rtf1{\\pict\\pngblip\\bin" + std::to_string(raw.size()) + " " + raw + "}}");
    ASSERT_EQ(binary.size(), 1u);
    EXPECT_EQ(binary[0].bytes, raw);
}

TEST(RtfReader, DropsPicturesThatDoNotHoldTogether) {
    std::string huge = bmpFile(20, 12).substr(14);
    huge[7] = 0x70;
    for (const std::string &group :
         {std::string("\\pngblip 00112233"), std::string("\\dibitmap0 28000000"),
          "\\dibitmap0 " + hexOf(huge), "\\dibitmap0 " + hexOf(bmpFile(20, 12).substr(14, 90)),
          std::string("\\wmetafile8\\picwgoal9"), std::string("\\jpegblip"),
          std::string("\\bin2000000000 abc")})
        EXPECT_EQ(textOf("{\\rtf1 a{\\pict" + group + "}}"), "a") << group;
}

TEST(RtfReader, TakesOtherTextsAsPlainAndTellsThemFromOtherFiles) {
    EXPECT_EQ(textOf("plain {\\b text}\r\nsecond\r\n"), "plain {\\b text}\r\nsecond");
    EXPECT_EQ(textOf(""), "");
    for (const std::string &text : {std::string("plain\r\n"), withMarks("@Bx#123456\xFF\x01"),
                                    std::string("%PD GIF BM PK"), std::string()})
        EXPECT_TRUE(mayBePlainText(text)) << text;
    for (const std::string &other :
         {pngFile(), bmpFile(8, 8), samplePicture(RichPicture::Kind::Jpeg).bytes, std::string("%PDF-1.2\r\n"),
          std::string("GIF89a,"), std::string("a\0b", 3)})
        EXPECT_FALSE(mayBePlainText(other)) << other;
}

TEST(RtfReader, NestingCostsNoStack) {
    const std::string open(300'000, '{');
    const std::string close(300'000, '}');
    EXPECT_EQ(textOf("{\\rtf1 a" + open + "b" + close + "c}d"), "abc");
    EXPECT_EQ(textOf("{\\rtf1 a" + open), "a");
    EXPECT_EQ(textOf("{\\rtf1 a}" + close), "a");
    std::string groups = "{\\rtf1";
    for (int i = 0; i < 100'000; ++i)
        groups += "{\\*\\x{\\pict{\\fonttbl{\\sn";
    EXPECT_EQ(textOf(groups), "");
}

} // namespace
} // namespace zolt
