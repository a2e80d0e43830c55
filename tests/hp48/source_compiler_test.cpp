#include "hp48/source_compiler.h"

#include "graphic/rich_text_builder.h"
#include "hp48/literal_source_compiler.h"
#include "images/image_text.h"
#include "support/texts.h"

#include <gtest/gtest.h>
#include <random>

namespace zolt {
namespace {

using test::literalSource;
using test::withMarks;
using test::withRichMarks;

constexpr const char *kFonts[] = {
    "ZOLT",           "ZOLTBold",      "ZOLTDouble",   "ZOLTInverse", "ZOLTItalicRight",
    "ZOLTItalicLeft", "ZOLTUnderline", "ZOLTExponent", "ZOLTIndice",  "zoltbold",
    "Arial"};

/// A dot for each byte of the picture, in rows of 40.
DotSurface dotsOf(const RichPicture &picture) {
    if (picture.bytes.empty())
        return {};
    DotSurface surface(kSourcePictureWidth, kSourcePictureHeight);
    for (std::size_t i = 0; i < picture.bytes.size(); ++i)
        surface.setDot(static_cast<int>(i % 40), static_cast<int>(i / 40), picture.bytes[i] != 0);
    return surface;
}

std::string cellsOf(const RichPicture &picture) {
    const DotSurface dots = dotsOf(picture);
    return LerFigura(dots.isEmpty() ? DotSurface(kSourcePictureWidth, kSourcePictureHeight) : dots);
}

std::string compiled(const RichText &text, SourceKind kind = SourceKind::Normal) {
    return compileSource(text, kind, dotsOf).value();
}

/// A text of parts in fonts; an empty part is a picture, "\n" a line end.
RichText richText(std::initializer_list<std::pair<const char *, const char *>> parts) {
    RichTextBuilder builder;
    for (const auto &[font, characters] : parts) {
        const CharFormat format{.font = builder.text().fontIndex(font)};
        if (!*characters)
            builder.append(RichPicture{RichPicture::Kind::Png, "x", 30, 30}, format);
        else if (*characters == '\n')
            builder.endParagraph();
        else
            builder.append(characters, format);
    }
    return builder.text();
}

RichText randomDocument(std::mt19937 &random) {
    const auto below = [&](unsigned limit) { return random() % limit; };
    const unsigned fonts = 1 + below(std::size(kFonts));
    RichTextBuilder builder;
    for (unsigned left = below(40); left > 0; --left) {
        const CharFormat format{.font = builder.text().fontIndex(kFonts[below(fonts)])};
        const unsigned kind = below(12);
        if (kind == 0)
            builder.append(RichPicture{RichPicture::Kind::Png,
                                       std::string(below(200), static_cast<char>(below(2))), 30, 30},
                           format);
        else if (kind < 4)
            builder.endParagraph();
        else if (kind == 4)
            builder.append(withMarks("#000000"), format);
        else
            builder.append(std::string(1 + below(5), "ab \"\x1FV0\xFF"[below(8)]), format);
    }
    return builder.text();
}

TEST(SourceCompiler, AgreesWithALiteralOneOnRandomDocuments) {
    std::mt19937 random(48);
    for (int i = 0; i < 500; ++i) {
        const RichText text = randomDocument(random);
        for (const int kind : {1, 2, 3})
            ASSERT_EQ(compiled(text, SourceKind{kind}), literalSource(text, kind, cellsOf))
                << "document " << i;
    }
}

TEST(SourceCompiler, ClosesARunInFrontOfWhatIsNotItsOwn) {
    const std::string cells = cellsOf({RichPicture::Kind::Png, "x", 30, 30});
    const struct {
        RichText text;
        std::string source;
    } cases[] = {
        {{}, "\"\""},
        {richText({{"ZOLT", "plain"}}), "\"plain\""},
        {richText({{"ZOLT", "a "}, {"ZOLTBold", "word"}, {"ZOLT", "."}}), withRichMarks("\"a @Bword@B.\"")},
        {richText({{"ZOLTBold", "a"}, {"ZOLTIndice", "b"}, {"ZOLT", "c"}}), withRichMarks("\"@Ba@B@Ib@Ic\"")},
        {richText({{"ZOLTBold", "a"}, {"ZOLTBold", "\n"}, {"ZOLTBold", "b"}, {"ZOLT", "c"}}),
         withRichMarks("\"@Ba@B\r\n@Bb@Bc\"")},
        {richText({{"ZOLTDouble", "to the end"}}), withRichMarks("\"@Dto the end\"")},
        {richText({{"zoltbold", "a"}, {"Arial", "b"}}), "\"ab\""},
        {richText({{"ZOLTBold", "a"}, {"ZOLT", ""}, {"ZOLT", "b"}}),
         withRichMarks("\"@Ba@B\r\n") + cells + "b\""},
        {richText({{"ZOLTBold", "a"}, {"ZOLTBold", ""}, {"ZOLTBold", "b"}}),
         withRichMarks("\"@Ba\r\n") + cells + "b\""},
        {richText({{"ZOLT", "say \"it\" now"}}), "\"say 'it' now\""},
    };
    for (const auto &[text, source] : cases)
        EXPECT_EQ(compiled(text), source);
}

TEST(SourceCompiler, ExchangesTheMarkOnlyInFrontOfAStylesLetter) {
    EXPECT_EQ(withStyleMarks(withRichMarks("@B@b@@U@")), "\x0B"
                                                         "B\x1F"
                                                         "b\x1F\x0BU\x1F");
    EXPECT_EQ(withRichTextStyleMarks("\x0B|\x0B \x0B/"), "\x1F|\x0B \x1F/");
}

TEST(SourceCompiler, StopsInEachStep) {
    const RichText text = richText({{"ZOLTBold", "a"}, {"ZOLT", ""}, {"ZOLT", "b"}});
    const auto no = [](std::size_t, std::size_t) { return false; };
    const SourceProgress stops[] = {
        {.styles = no},
        {.text = no},
        {.image = [](std::size_t) { return false; }},
        {.dots = no},
        {.finish = [] { return false; }},
    };
    for (const SourceProgress &stop : stops)
        EXPECT_EQ(compileSource(text, SourceKind::Total, dotsOf, stop), std::nullopt);
}

} // namespace
} // namespace zolt
