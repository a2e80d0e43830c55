#include "hp48/preview_compiler.h"

#include "hp48/fold.h"
#include "literal_compiler.h"
#include "random_document.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

std::string visible(std::string_view text) {
    std::string shown;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= 32 && byte < 127)
            shown += character;
        else
            shown += "<" + std::to_string(byte) + ">";
    }
    return shown;
}

/// The compiled text, position by position, as the slow compiler gives it.
std::vector<literal::Position> positionsOf(const StyledText &text) {
    std::vector<literal::Position> positions;
    PieceReader reader(text);
    while (reader.position() < text.characters.size()) {
        const PieceReader::Piece piece = reader.next(text.characters.size());
        const std::string font(fontOfStyle(piece.style));
        for (std::size_t i = piece.begin; i < piece.end; ++i)
            positions.push_back({text.characters[i], font, piece.picture != nullptr,
                                 piece.picture ? piece.picture->cells : std::string()});
    }
    return positions;
}

/// The same from the rich text. Line ends have no font there, so `like` gives theirs.
std::vector<literal::Position> positionsOf(const RichText &rich, const std::vector<literal::Position> &like) {
    std::vector<literal::Position> positions;
    for (const Paragraph &paragraph : rich.paragraphs) {
        if (&paragraph != &rich.paragraphs.front())
            for (const char character : std::string("\r\n"))
                positions.push_back({character,
                                     positions.size() < like.size() ? like[positions.size()].font : "",
                                     false,
                                     {}});
        for (const Run &run : paragraph.runs) {
            EXPECT_EQ(run.format.halfPoints, 20);
            const std::string &font = rich.fonts.at(run.format.font);
            if (const auto *characters = std::get_if<std::string>(&run.content)) {
                for (const char character : *characters)
                    positions.push_back({character, font, false, {}});
            } else {
                positions.push_back({' ', font, true, like[positions.size()].cells});
            }
        }
    }
    return positions;
}

void expectAsTheSlowWay(const std::string &document, PreviewFlavour flavour) {
    const literal::Compiled expected = literal::compile(document, flavour);
    const Preview preview = compilePreview(document, flavour);
    const std::string about = visible(document);
    EXPECT_FALSE(preview.cancelled);
    ASSERT_EQ(positionsOf(preview.styled), expected.text) << about;
    ASSERT_EQ(positionsOf(preview.text, expected.text), expected.text) << about;
    ASSERT_EQ(preview.entries, expected.entries) << about;
    ASSERT_EQ(preview.styled.pictures.size(), expected.pictureSizes.size()) << about;
    for (std::size_t i = 0; i < expected.pictureSizes.size(); ++i) {
        ASSERT_EQ(preview.styled.pictures[i].columns, expected.pictureSizes[i].columns) << about;
        ASSERT_EQ(preview.styled.pictures[i].lines, expected.pictureSizes[i].lines) << about;
    }
    for (std::size_t i = 1; i < preview.styled.spans.size(); ++i)
        ASSERT_NE(preview.styled.spans[i].style, preview.styled.spans[i - 1].style) << about;
}

TEST(PreviewCompiler, GivesWhatTheSlowWayGivesForRandomDocuments) {
    std::mt19937 random(48);
    for (int i = 0; i < 12000 && !HasFatalFailure(); ++i) {
        const std::string document = i % 4 == 0 ? randomColumnOfCells(random) : randomDocument(random);
        const auto flavour = static_cast<PreviewFlavour>(random() % 3);
        expectAsTheSlowWay(document, flavour);
    }
}

/// Every short text over the bytes from which codes, cells and line ends come about.
TEST(PreviewCompiler, GivesWhatTheSlowWayGivesForEveryShortText) {
    const std::string alphabet = "\x0B"
                                 "BD\r\n\x9E";
    for (std::size_t length = 3; length <= 6; ++length) {
        std::vector<std::size_t> digits(length, 0);
        while (!HasFatalFailure()) {
            std::string document;
            for (const std::size_t digit : digits)
                document += alphabet[digit];
            expectAsTheSlowWay(document, PreviewFlavour::Normal);
            std::size_t place = 0;
            while (place < length && ++digits[place] == alphabet.size())
                digits[place++] = 0;
            if (place == length)
                break;
        }
    }
}

} // namespace
} // namespace zolt
