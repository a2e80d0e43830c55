#include "core/document.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "support/converter.h"
#include "zoltc/command_line.h"

#include <algorithm>

namespace zolt::cli {
namespace {

using test::Pattern;
using test::surfaceOf;

class ImageCommand : public CommandLine {
protected:
    int convert(std::string_view from, std::string_view to, const std::vector<std::string> &options = {}) {
        std::vector<std::string> words{"image", path(from), path(to)};
        words.insert(words.end(), options.begin(), options.end());
        return zoltc(words);
    }
};

TEST_F(ImageCommand, KindsOfThePcPicture) {
    const DotSurface surface = surfaceOf(Pattern::Noise, 132, 65);
    put("in.BMP", bitmapFile(surface, 4));
    put("in.gif", gifFile(surface));
    for (const char *input : {"in.BMP", "in.gif"}) {
        EXPECT_EQ(convert(input, "out.zli"), Done);
        EXPECT_EQ(get("out.zli"), LerFigura(surface) + "\r\n");
        EXPECT_EQ(convert(input, "out.Grb"), Done);
        EXPECT_EQ(get("out.Grb"), FiguraParaGrob(surface, {131, 64}) + "\r\n");
    }
    EXPECT_EQ(convert("in.gif", "out.zli", {"--width", "1", "--height", "1090"}), Done);
    EXPECT_EQ(measureImageText(get("out.zli")).lines, 182 + 1);
    EXPECT_EQ(m_errors, "");
}

TEST_F(ImageCommand, KindsOfTheImageText) {
    const std::string text = LerFigura(surfaceOf(Pattern::Noise, 100, 65));
    const DotSurface surface = VerVelda(text).surface;
    put("in.zli", text + "\r\n");
    EXPECT_EQ(convert("in.zli", "out.gif"), Done);
    EXPECT_EQ(get("out.gif"), gifFile(surface));
    EXPECT_EQ(convert("in.zli", "out.bmp"), Done);
    EXPECT_EQ(get("out.bmp"), bitmapFile(surface, 1));
    for (const int bits : {1, 4, 8, 24}) {
        EXPECT_EQ(convert("in.zli", "out.bmp", {"--bits", std::to_string(bits)}), Done);
        EXPECT_EQ(get("out.bmp"), bitmapFile(surface, bits));
    }
    EXPECT_EQ(convert("in.zli", "out.gro"), Done);
    EXPECT_EQ(get("out.gro"), FiguraParaGrob(surface, {99, 64}) + "\r\n");

    std::string otherEnds;
    for (const char c : text)
        if (c != '\r')
            otherEnds += c;
    put("in.zli", otherEnds);
    EXPECT_EQ(convert("in.zli", "out.gif"), Done);
    EXPECT_EQ(get("out.gif"), gifFile(surface));
}

TEST_F(ImageCommand, KindsOfTheGrob) {
    const DotSurface surface = surfaceOf(Pattern::Noise, 132, 64);
    const std::string grob = FiguraParaGrob(surface, {131, 64});
    put("in.grb", "header of a transfer\r\n" + grob + "\r\n");
    EXPECT_EQ(convert("in.grb", "out.zli"), Done);
    EXPECT_EQ(get("out.zli"), LerFigura(surface) + "\r\n");
    EXPECT_EQ(measureImageText(LerFigura(surface)), (ImageTextSize{33, 11}));
    EXPECT_EQ(convert("in.grb", "out.gif"), Done);
    EXPECT_EQ(get("out.gif"), gifFile(surface));
    EXPECT_EQ(m_errors, "");

    put("wide.gro", "GROB 140 1 F\r\n");
    EXPECT_EQ(convert("wide.gro", "out.bmp", {"--bits=24"}), Done);
    EXPECT_NE(m_errors.find("The maximum allowable width is 131."), std::string::npos);
    EXPECT_EQ(get("out.bmp"), bitmapFile(VerGrob("GROB 140 1 F").surface, 24));
}

TEST_F(ImageCommand, WhatCantBeDecodedLeavesNoOutput) {
    put("a.bmp", "no picture");
    put("a.zli", "no cells");
    put("a.gro", "GROB 1000000000 1000000000 F");
    put("b.gro", "");
    for (const char *input : {"a.bmp", "a.zli", "a.gro", "b.gro", "none.gif"})
        for (const char *output : {"out.zli", "out.gro", "out.gif"}) {
            EXPECT_EQ(convert(input, output), Unusable) << input << " to " << output;
            EXPECT_EQ(std::count(m_errors.begin(), m_errors.end(), '\n'), 1) << m_errors;
            EXPECT_FALSE(exists(output));
        }
}

TEST_F(ImageCommand, OptionsOutOfRangeAndOtherConversionsAreRefused) {
    put("in.gif", gifFile(DotSurface(4, 4)));
    put("in.zli", std::string(kBlankCell) + "\r\n");
    const std::vector<std::string> options[] = {{"--width", "0"},  {"--width", "133"},   {"--width", "x"},
                                                {"--height", "0"}, {"--height", "1091"}, {"--height", "6 5"},
                                                {"--bits", "2"},   {"--bits", "-1"},     {"--bits", ""}};
    for (const auto &option : options)
        EXPECT_EQ(convert("in.gif", "out.zli", option), Unusable) << option[0] << " " << option[1];
    for (const char *output : {"out.bmp", "out.jpg", "out", "out.zli.txt"})
        EXPECT_EQ(convert("in.gif", output), Unusable) << output;
    EXPECT_EQ(convert("in.zli", "out.zli"), Unusable);
    EXPECT_EQ(convert("in.txt", "out.zli"), Unusable);
    EXPECT_EQ(convert("in.gif", "out.zli", {"--width", "132", "--height", "1090"}), Done);
}

} // namespace
} // namespace zolt::cli
