#include "hp48/preview_compiler.h"

#include "graphic/rtf_writer.h"
#include "hp48/preview_json.h"
#include "hp48/styled_rich_text.h"
#include "literal_compiler.h"
#include "random_document.h"
#include "support/texts.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::withMarks;

/// The positions of the rich text. Line ends have no font there, so `like` gives theirs.
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
            for (const char character : run.content.characters())
                positions.push_back({character, font, false, {}});
            if (run.content.picture())
                positions.push_back({' ', font, true, like[positions.size()].cells});
        }
    }
    return positions;
}

void expectAsTheSlowWay(const std::string &document, PreviewFlavour flavour) {
    const literal::Compiled expected = literal::compile(document, flavour);
    const Preview preview = compilePreview(document, flavour);
    const std::string about = testing::PrintToString(document);
    EXPECT_FALSE(preview.cancelled);
    ASSERT_EQ(literal::positionsOf(preview.styled), expected.text) << about;
    ASSERT_EQ(positionsOf(preview.text, expected.text), expected.text) << about;
    ASSERT_EQ(preview.entries, expected.entries) << about;
    ASSERT_EQ(preview.styled.pictures.size(), expected.pictureSizes.size()) << about;
    for (std::size_t i = 0; i < expected.pictureSizes.size(); ++i) {
        ASSERT_EQ(preview.styled.pictures[i].columns, expected.pictureSizes[i].columns) << about;
        ASSERT_EQ(preview.styled.pictures[i].lines, expected.pictureSizes[i].lines) << about;
    }
    for (std::size_t i = 1; i < preview.styled.spans.size(); ++i)
        ASSERT_NE(preview.styled.spans[i].style, preview.styled.spans[i - 1].style) << about;

    const CompiledText compiled = compileText(document, flavour);
    ASSERT_TRUE(compiled.text == preview.styled && compiled.entries == preview.entries) << about;
    std::string rtf;
    writeRtf(compiled.text, [&rtf](std::string_view piece) { rtf.append(piece); });
    ASSERT_EQ(rtf, rtfFromRichText(preview.text)) << about;
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
    const std::string alphabet = withMarks("@BD\r\n#");
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

/// Plain characters as they are; a style's characters in braces behind its letter; a
/// picture as [columns x lines].
std::string notation(const StyledText &text) {
    std::string shown;
    PieceReader reader(text);
    while (reader.position() < text.characters.size()) {
        const PieceReader::Piece piece = reader.next(text.characters.size());
        if (piece.picture) {
            shown += "[" + std::to_string(piece.picture->columns) + "x" +
                     std::to_string(piece.picture->lines) + "]";
            continue;
        }
        const std::string characters = text.characters.substr(piece.begin, piece.end - piece.begin);
        const auto code = std::find_if(kStyleCodes.begin(), kStyleCodes.end(),
                                       [&](const StyleCode &c) { return c.style == piece.style; });
        shown += code == kStyleCodes.end() ? characters : code->letter + ("{" + characters + "}");
    }
    return shown;
}

const std::string kText33 = "123456789012345678901234567890123";

TEST(PreviewCompiler, GivesWhatTheCalculatorShows) {
    std::string band;
    for (int i = 0; i < 40; ++i)
        band += "#123456";
    const struct {
        std::string document;
        std::string shown;
        PreviewFlavour flavour = PreviewFlavour::Hp48;
    } cases[] = {
        {"", ""},
        {"\"\"", "\"\""},
        {"\"abc\"", "abc\r\n"},
        {"a\"c", "a'c\r\n"},
        {"\"\"\"\"", "''\r\n"},
        {kText33 + "4", kText33 + "\r\n4\r\n"},
        {kText33 + "\r\nx", kText33 + "\r\nx\r\n"},
        {kText33 + "45678901234567890", kText33 + "45678901234567890\r\n", PreviewFlavour::Normal},
        {kText33 + "45678901234567890", kText33 + "\r\n45678901234567890\r\n", PreviewFlavour::Wrapped},
        {"@B12@B" + kText33.substr(2), "B{12}" + kText33.substr(2) + "\r\n"},
        {"@B" + kText33 + "@B", "B{" + kText33 + "\r\n}\r\n"},
        {"@D12345678901234567890@D", "D{1234567890123456\r\n7890}\r\n"},
        {"abcd@D12345678901234567890@D", "abcdD{123456789012\r\n34567890}\r\n"},
        {kText33.substr(0, 18) + "@Dx@D", kText33.substr(0, 18) + "\r\nD{x}\r\n"},
        {kText33.substr(0, 19) + "@Dx@D", kText33.substr(0, 19) + "D{x}\r\n"},
        {band, "[40x1]\r\n"},
        {"#123456", "[1x1]\r\n"},
        {"#123456\r\n#123456\r\nx", "[1x1]\r\n[1x1]\r\nx\r\n"},
        {"#123456#123456\r\n#123456#123456\r\nx", "[2x2]\r\nx\r\n"},
        {"abc#12", "abc[1x2]"},
        {"@Ba#123456b@B", "B{a}[1x1]B{b}\r\n"},
        {"a@Bbc", "abc\r\n"},
        {"a@Xb", "a\x0BXb\r\n"},
        {"@Bab@B@Icd@I", "B{ab}I{cd}\r\n"},
        {"@B@Vab@V@B", "B{\x0BVab}\r\n"},
        {"@V@Bab@B@V", "B{ab}\r\n"},
        {"@Ba@Ub@Bc@Ud", "B{a}U{bc}d\r\n"},
        {"@Ba@Ub@Uc@Bd", "B{a}U{b}B{c}d\r\n"},
        {"@Ba@@BBcd@Be", "B{acd}e\r\n"}};
    for (const auto &[document, shown, flavour] : cases)
        EXPECT_EQ(notation(compilePreview(withMarks(document), flavour).styled), shown) << document;
}

/// All pictures of a rich text, in order.
std::vector<RichPicture> picturesOf(const RichText &rich) {
    std::vector<RichPicture> pictures;
    for (const Paragraph &paragraph : rich.paragraphs)
        for (const Run &run : paragraph.runs)
            if (const auto *picture = run.content.picture())
                pictures.push_back(*picture);
    return pictures;
}

/// A BMP of one bit a pixel and 2 by 2 pixels a dot, read with nothing but its format.
std::vector<std::string> dotsOfBitmap(const std::string &file) {
    const auto number = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t i = 4; i-- > 0;)
            value = value << 8 | static_cast<unsigned char>(file.at(at + i));
        return value;
    };
    EXPECT_EQ(file.substr(0, 2), "BM");
    EXPECT_EQ(number(2), file.size());
    const std::size_t pixels = number(10);
    const std::size_t width = number(18);
    const std::size_t height = number(22);
    const std::size_t stride = (width + 31) / 32 * 4;
    EXPECT_EQ(file.size(), pixels + stride * height);
    const auto black = [&](std::size_t x, std::size_t y) {
        const auto byte = static_cast<unsigned char>(file.at(pixels + (height - 1 - y) * stride + x / 8));
        const std::size_t colour = byte >> (7 - x % 8) & 1;
        return number(54 + 4 * colour) == 0;
    };
    std::vector<std::string> dots(height / 2, std::string(width / 2, '.'));
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x) {
            if (black(x, y))
                dots[y / 2][x / 2] = '#';
            EXPECT_EQ(black(x, y), dots[y / 2][x / 2] == '#');
        }
    return dots;
}

TEST(Pictures, AreDrawnDotForDot) {
    std::mt19937 random(4);
    for (int i = 0; i < 400; ++i) {
        const std::string document = i % 2 ? randomDocument(random) : randomColumnOfCells(random);
        const Preview preview = compilePreview(document, PreviewFlavour::Normal);
        const std::vector<RichPicture> pictures = picturesOf(preview.text);
        ASSERT_EQ(pictures.size(), preview.styled.pictures.size());
        for (std::size_t k = 0; k < pictures.size(); ++k) {
            const PictureBlock &block = preview.styled.pictures[k];
            ASSERT_EQ(dotsOfBitmap(pictures[k].bytes),
                      literal::draw(block.cells, {block.columns, block.lines}));
            ASSERT_EQ(pictures[k].width, block.columns * 4 * 30);
            ASSERT_EQ(pictures[k].height, block.lines * 6 * 30);
        }
    }
}

TEST(Pictures, TakeNoMoreMemoryThanTheirTextWarrants) {
    std::string document;
    for (int i = 0; i < 2000; ++i)
        document += withMarks("#123456");
    for (int i = 0; i < 2000; ++i)
        document += withMarks("\r\n#123456#123456");
    const Preview preview = compilePreview(document, PreviewFlavour::Hp48);
    ASSERT_EQ(preview.styled.pictures.size(), 1u);
    EXPECT_EQ(preview.styled.pictures[0].columns, 2000);
    EXPECT_EQ(preview.styled.pictures[0].lines, 2001);
    const RichPicture picture = picturesOf(preview.text).at(0);
    EXPECT_LT(picture.bytes.size(), document.size() * 200);
    EXPECT_EQ(picture.height, 2001 * 6 * 30);
    EXPECT_GE(picture.width, 33 * 4 * 30);
}

TEST(PreviewProgress, CancelsInEachPhaseAndInAPicture) {
    std::string document;
    for (int i = 0; i < 5000; ++i)
        document += withMarks("*a line with @Bone@B word\r\n");
    for (int i = 0; i < 5000; ++i)
        document += withMarks("#123456");
    const auto empty = [](const Preview &preview) {
        return preview.cancelled && plainText(preview.text).empty() && preview.styled == StyledText() &&
               preview.entries.empty();
    };
    for (int cancelled = 1; cancelled <= kPreviewPhases; ++cancelled) {
        for (const bool atStart : {true, false}) {
            int calls = 0;
            PreviewProgress progress;
            progress.phase = [&](int phase, std::size_t position, std::size_t length) {
                EXPECT_LE(phase, cancelled);
                EXPECT_LE(position, length);
                return phase != cancelled || (!atStart && ++calls < 3);
            };
            EXPECT_TRUE(empty(compilePreview(document, PreviewFlavour::Hp48, progress))) << cancelled;
        }
    }
    PreviewProgress progress;
    progress.picture = [](std::size_t position, std::size_t length) { return position < length / 2; };
    EXPECT_TRUE(empty(compilePreview(document, PreviewFlavour::Normal, progress)));
}

TEST(PreviewProgress, HasTheTextsOfItsPhases) {
    EXPECT_EQ(phaseLabel(3), "Fase 3/4");
    EXPECT_EQ(phaseLabel(1, 199, 200), "Fase 1/4 - [99%]");
    EXPECT_EQ(phaseLabel(4, 200, 200), "Fase 4/4 - [100%]");
}

std::string jsonOf(const std::string &document) {
    std::string json;
    writePreviewJson(compileText(document, PreviewFlavour::Hp48),
                     [&json](std::string_view piece) { json.append(piece); });
    return json;
}

TEST(PreviewJson, NamesFontsPicturesAndEntries) {
    const std::string document = withMarks("a\xE9\\\r\n*b@Bc\r\nd@B#1234AF");
    EXPECT_EQ(jsonOf(document), "{\"entries\": [{\"line\": 2, \"text\": \"*bc\"}], \"items\": ["
                                "{\"font\": \"ZOLT\", \"text\": \"a\xC3\xA9\\\\\\u000D\\u000A*b\"}, "
                                "{\"font\": \"ZOLTBold\", \"text\": \"c\\u000D\\u000Ad\"}, "
                                "{\"picture\": {\"columns\": 1, \"lines\": 1, \"cells\": \"\xC2\x9E"
                                "1234AF\"}}, "
                                "{\"font\": \"ZOLT\", \"text\": \"\\u000D\\u000A\"}]}\n");
    EXPECT_EQ(jsonOf("\""), "{\"entries\": [], \"items\": [{\"font\": \"ZOLT\", \"text\": \"\\\"\"}]}\n");
    const std::string several = jsonOf(std::string(200'000, 'y')); // pieces
    EXPECT_EQ(std::count(several.begin(), several.end(), 'y'), 200'000);
    EXPECT_EQ(jsonOf(""), "{\"entries\": [], \"items\": []}\n");
}

} // namespace
} // namespace zolt
