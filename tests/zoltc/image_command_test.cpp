#include "core/document.h"
#include "graphic/rtf_writer.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/picture_bytes.h"
#include "support/converter.h"
#include "zoltc/command_line.h"
#include "zoltc/guarded_picture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

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

TEST_F(ImageCommand, TheNamesTellTheConversion) {
    const DotSurface picture = surfaceOf(Pattern::Noise, 132, 65);
    const std::string text = LerFigura(surfaceOf(Pattern::Noise, 100, 65));
    const DotSurface ofText = VerVelda(text).surface;
    const DotSurface screen = surfaceOf(Pattern::Noise, 132, 64);
    put("in.BMP", bitmapFile(picture, 4));
    put("in.gif", gifFile(picture));
    put("in.zli", text + "\r\n");
    put("in.grb", "header of a transfer\r\n" + FiguraParaGrob(screen, {131, 64}) + "\r\n");
    std::string otherEnds = text;
    std::erase(otherEnds, '\r');
    put("other.zli", otherEnds);
    const struct {
        const char *from;
        const char *to;
        std::vector<std::string> options;
        std::string written;
    } cases[] = {
        {"in.BMP", "out.zli", {}, LerFigura(picture) + "\r\n"},
        {"in.gif", "out.Grb", {}, FiguraParaGrob(picture, {131, 64}) + "\r\n"},
        {"in.zli", "out.gif", {}, gifFile(ofText)},
        {"other.zli", "out.gif", {}, gifFile(ofText)},
        {"in.zli", "out.bmp", {}, bitmapFile(ofText, 1)},
        {"in.zli", "out.bmp", {"--bits", "8"}, bitmapFile(ofText, 8)},
        {"in.zli", "out.gro", {}, FiguraParaGrob(ofText, {99, 64}) + "\r\n"},
        {"in.grb", "out.zli", {}, LerFigura(screen) + "\r\n"},
        {"in.grb", "out.gif", {}, gifFile(screen)},
        {"in.grb", "out.bmp", {"--bits=24"}, bitmapFile(screen, 24)},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(convert(c.from, c.to, c.options), Done);
        EXPECT_TRUE(get(c.to) == c.written) << c.from << " to " << c.to;
        EXPECT_EQ(m_errors, "");
    }
    EXPECT_EQ(convert("in.gif", "out.zli", {"--width", "1", "--height", "1090"}), Done);
    EXPECT_EQ(measureImageText(get("out.zli")).lines, 182 + 1);

    put("wide.gro", "GROB 140 1 F\r\n");
    EXPECT_EQ(convert("wide.gro", "out.bmp"), Done);
    EXPECT_NE(m_errors.find("The maximum allowable width is 131."), std::string::npos);
    EXPECT_EQ(get("out.bmp"), bitmapFile(VerGrob("GROB 140 1 F").surface, 1));
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

TEST_F(ImageCommand, WhatTakesTooMuchTimeOrMemoryIsRefused) {
    for (const std::string &bytes : test::bombs())
        for (const char *input : {"a.jpg", "a.bmp"}) {
            put(input, bytes);
            EXPECT_EQ(convert(input, "out.zli"), Refused) << bytes.substr(0, 4);
            EXPECT_EQ(m_errors, "zoltc: " + path(input) + ": the picture is too large\n");
            EXPECT_FALSE(exists("out.zli"));
        }
}

TEST_F(ImageCommand, ADecoderThatTakesMoreThanItsMemoryIsEnded) {
    put("in.bmp", bitmapFile(DotSurface(2000, 2000), 24));
    EXPECT_EQ(readGuardedPicture(path("in.bmp"), 132, 65).exit, Done);
    const GuardedPicture picture = readGuardedPicture(path("in.bmp"), 132, 65, 1 << 20);
    if (picture.exit == Done)
        GTEST_SKIP() << "a sanitizer leaves no limit";
    EXPECT_TRUE(picture.picture.surface.isEmpty());
    EXPECT_NE(picture.picture.reason, "");
}

TEST_F(ImageCommand, OnlyPicturesNeedTheDecoders) {
    EXPECT_EQ(test::bytesOf(ZOLTC).find("libQt6"), std::string::npos) << "every command loads Qt";
    std::filesystem::copy_file(ZOLTC, path("alone"));
    put("in.bmp", bitmapFile(DotSurface(4, 4), 1));
    RichText text;
    text.paragraphs[0].runs.emplace_back(
        CharFormat{}, RichPicture{RichPicture::Kind::Bmp, bitmapFile(DotSurface(4, 4), 1), 120, 120});
    put("in.zlg", rtfFromRichText(text));
    put("in.zli", std::string(kBlankCell) + "\r\n");
    const auto runs = [&](const std::string &words) {
        const std::string folder = path("");
        const std::string line = "cd '" + folder + "' && ./alone " + words + " >/dev/null 2>err";
        return WEXITSTATUS(std::system(line.c_str()));
    };
    for (const std::string words : {"image in.bmp out.zli", "compile in.zlg OUT"}) {
        EXPECT_EQ(runs(words), Unusable) << words;
        EXPECT_NE(get("err").find("the decoders of pictures can't be loaded: "), std::string::npos);
        EXPECT_FALSE(exists("out.zli") || exists("OUT"));
    }
    for (const std::string words : {"image in.zli out.gif", "compile in.zli OUT", "preview in.zli out.png"})
        EXPECT_EQ(runs(words), Done) << words << get("err");
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
