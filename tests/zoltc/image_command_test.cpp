#include "core/document.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "support/converter.h"
#include "zoltc/command.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace zolt::cli {
namespace {

using test::bytesOf;
using test::Pattern;
using test::putBytes;
using test::surfaceOf;

class ImageCommand : public testing::Test {
protected:
    std::string file(std::string_view name) const { return m_folder.file(name); }

    int convert(std::string_view from, std::string_view to, const std::vector<std::string> &options = {}) {
        std::vector<std::string> words{"image", file(from), file(to)};
        words.insert(words.end(), options.begin(), options.end());
        testing::internal::CaptureStderr();
        const int code = run(words);
        m_complaint = testing::internal::GetCapturedStderr();
        return code;
    }

    std::string m_complaint;

private:
    test::TemporaryFolder m_folder;
};

TEST_F(ImageCommand, KindsOfThePcPicture) {
    const DotSurface surface = surfaceOf(Pattern::Noise, 132, 65);
    putBytes(file("in.BMP"), bitmapFile(surface, 4));
    putBytes(file("in.gif"), gifFile(surface));
    for (const char *input : {"in.BMP", "in.gif"}) {
        EXPECT_EQ(convert(input, "out.zli"), Done);
        EXPECT_EQ(bytesOf(file("out.zli")), LerFigura(surface) + "\r\n");
        EXPECT_EQ(convert(input, "out.Grb"), Done);
        EXPECT_EQ(bytesOf(file("out.Grb")), FiguraParaGrob(surface, {131, 64}) + "\r\n");
    }
    EXPECT_EQ(convert("in.gif", "out.zli", {"--width", "1", "--height", "1090"}), Done);
    EXPECT_EQ(measureImageText(bytesOf(file("out.zli"))).lines, 182 + 1);
    EXPECT_EQ(m_complaint, "");
}

TEST_F(ImageCommand, KindsOfTheImageText) {
    const std::string text = LerFigura(surfaceOf(Pattern::Noise, 100, 65));
    const DotSurface surface = VerVelda(text).surface;
    putBytes(file("in.zli"), text + "\r\n");
    EXPECT_EQ(convert("in.zli", "out.gif"), Done);
    EXPECT_EQ(bytesOf(file("out.gif")), gifFile(surface));
    EXPECT_EQ(convert("in.zli", "out.bmp"), Done);
    EXPECT_EQ(bytesOf(file("out.bmp")), bitmapFile(surface, 1));
    for (const int bits : {1, 4, 8, 24}) {
        EXPECT_EQ(convert("in.zli", "out.bmp", {"--bits", std::to_string(bits)}), Done);
        EXPECT_EQ(bytesOf(file("out.bmp")), bitmapFile(surface, bits));
    }
    EXPECT_EQ(convert("in.zli", "out.gro"), Done);
    EXPECT_EQ(bytesOf(file("out.gro")), FiguraParaGrob(surface, {99, 64}) + "\r\n");

    std::string otherEnds;
    for (const char c : text)
        if (c != '\r')
            otherEnds += c;
    putBytes(file("in.zli"), otherEnds);
    EXPECT_EQ(convert("in.zli", "out.gif"), Done);
    EXPECT_EQ(bytesOf(file("out.gif")), gifFile(surface));
}

TEST_F(ImageCommand, KindsOfTheGrob) {
    const DotSurface surface = surfaceOf(Pattern::Noise, 132, 64);
    const std::string grob = FiguraParaGrob(surface, {131, 64});
    putBytes(file("in.grb"), "header of a transfer\r\n" + grob + "\r\n");
    EXPECT_EQ(convert("in.grb", "out.zli"), Done);
    EXPECT_EQ(bytesOf(file("out.zli")), LerFigura(surface) + "\r\n");
    EXPECT_EQ(measureImageText(LerFigura(surface)), (ImageTextSize{33, 11}));
    EXPECT_EQ(convert("in.grb", "out.gif"), Done);
    EXPECT_EQ(bytesOf(file("out.gif")), gifFile(surface));
    EXPECT_EQ(m_complaint, "");

    putBytes(file("wide.gro"), "GROB 140 1 F\r\n");
    EXPECT_EQ(convert("wide.gro", "out.bmp", {"--bits=24"}), Done);
    EXPECT_NE(m_complaint.find("The maximum allowable width is 131."), std::string::npos);
    EXPECT_EQ(bytesOf(file("out.bmp")), bitmapFile(VerGrob("GROB 140 1 F").surface, 24));
}

TEST_F(ImageCommand, WhatCantBeDecodedLeavesNoOutput) {
    putBytes(file("a.bmp"), "no picture");
    putBytes(file("a.zli"), "no cells");
    putBytes(file("a.gro"), "GROB 1000000000 1000000000 F");
    putBytes(file("b.gro"), "");
    for (const char *input : {"a.bmp", "a.zli", "a.gro", "b.gro", "none.gif"})
        for (const char *output : {"out.zli", "out.gro", "out.gif"}) {
            EXPECT_EQ(convert(input, output), Unusable) << input << " to " << output;
            EXPECT_EQ(std::count(m_complaint.begin(), m_complaint.end(), '\n'), 1) << m_complaint;
            EXPECT_FALSE(std::filesystem::exists(file(output)));
        }
}

TEST_F(ImageCommand, OptionsOutOfRangeAndOtherConversionsAreRefused) {
    putBytes(file("in.gif"), gifFile(DotSurface(4, 4)));
    putBytes(file("in.zli"), "\x9E"
                             "000000\r\n");
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
