#include "hp48/preview_compiler.h"
#include "hp48/source_compiler.h"
#include "random_document.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

bool isPicture(const StyledText &text, std::size_t position) {
    for (const PictureBlock &picture : text.pictures)
        if (picture.position == position)
            return true;
    return false;
}

/// Every place that leads back and forth shows its own character of the document, and
/// only line ends of the fold and the document's end lead elsewhere.
void expectPlaces(const std::string &document, const CompiledScreen &screen) {
    for (std::size_t to = 0; to < screen.text.characters.size(); ++to) {
        const char shown = screen.text.characters[to];
        const std::size_t from = placeBack(screen.places, to);
        if (placeAhead(screen.places, from) != to || from >= document.size()) {
            ASSERT_TRUE(shown == '\r' || shown == '\n') << to;
            continue;
        }
        const char written = document[from];
        if (from + 1 == document.size() && written == '"' && shown == '\r')
            continue; // the closing quote gives way to a line end
        if (isPicture(screen.text, to))
            ASSERT_EQ(written, '\x9E') << to;
        else
            ASSERT_TRUE(shown == written || (written == '"' && shown == '\'')) << to;
    }
}

TEST(CompiledScreen, IsThePreviewAndKnowsWhereItsCharactersComeFrom) {
    std::mt19937 random(77);
    for (int i = 0; i < 1000; ++i) {
        const std::string document = i % 4 ? randomDocument(random) : randomColumnOfCells(random);
        const auto screen = compileScreen(document);
        const Preview preview = compilePreview(document, PreviewFlavour::Hp48);
        ASSERT_TRUE(screen);
        ASSERT_EQ(screen->text, preview.styled);
        ASSERT_EQ(screen->entries, preview.entries);
        ASSERT_EQ(screen->lines, screenLines(preview.styled));
        expectPlaces(document, *screen);
    }
}

TEST(CompiledScreen, KnowsThePlacesOfARichText) {
    // A plain line, a bold one that opens with a quote, a picture.
    RichText text;
    text.fonts = {"ZOLT", "ZOLTBold"};
    CharFormat bold;
    bold.font = 1;
    RichPicture picture;
    picture.width = picture.height = 600;
    text.paragraphs = {{{{{}, "ab"}}}, {{{bold, "\"cd"}, {{}, "e"}, {{}, picture}, {{}, "f"}}}};
    const auto source = compilePlacedSource(text, [](const RichPicture &) { return DotSurface(); });
    ASSERT_TRUE(source);
    const std::string &bytes = source->source;
    // Offsets in the text: ab 0, line end 2, "cd 4, e 7, the picture 8, f 9.
    for (const auto &[offset, character] : {std::pair(0, 'a'), {1, 'b'}, {5, 'c'}, {7, 'e'}, {9, 'f'}}) {
        const std::size_t place = placeAhead(source->places, static_cast<std::size_t>(offset));
        EXPECT_EQ(bytes.at(place), character) << offset;
        EXPECT_EQ(placeBack(source->places, place), static_cast<std::size_t>(offset));
    }
    EXPECT_EQ(bytes,
              compileSource(text, SourceKind::Normal, [](const RichPicture &) { return DotSurface(); }));
}

TEST(CompiledScreen, IsGivenUpWhenAskedTo) {
    std::string document(100'000, 'x');
    EXPECT_FALSE(compileScreen(document, [](std::size_t, std::size_t) { return false; }));
}

} // namespace
} // namespace zolt
