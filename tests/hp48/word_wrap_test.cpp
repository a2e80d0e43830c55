#include "hp48/word_wrap.h"

#include "hp48/fold.h"
#include "hp48/literal_compiler.h"
#include "hp48/preview_compiler.h"
#include "random_document.h"
#include "support/texts.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::withMarks;

std::string wrap(std::string_view document, int columns = kColumns) {
    return *wrapAtWords(document, {.columns = columns});
}

std::string reflow(std::string_view document, int columns = kColumns) {
    return *wrapAtWords(document, {.columns = columns, .reflow = true});
}

bool isLineEnd(const std::vector<literal::Position> &shown, std::size_t at) {
    return at + 1 < shown.size() && shown[at].character == '\r' && shown[at + 1].character == '\n';
}

/// Whether both texts show the same characters in the same styles, the same pictures
/// and the same menu entries. Line ends may be more in `wrapped`, and fewer if they
/// may be `joined`.
bool haveSameReading(const std::string &document, const std::string &wrapped, bool joined = false) {
    const Preview before = compilePreview(document, PreviewFlavour::Normal);
    const Preview after = compilePreview(wrapped, PreviewFlavour::Normal);
    const auto expected = literal::positionsOf(before.styled);
    const auto shown = literal::positionsOf(after.styled);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < expected.size() || j < shown.size()) {
        const bool ends = isLineEnd(expected, i);
        if (isLineEnd(shown, j)) {
            // A line end is in no style that could be seen.
            j += 2;
            i += ends ? 2 : 0;
        } else if (joined && ends) {
            i += 2;
        } else if (i == expected.size() || j == shown.size() || shown[j++] != expected[i++]) {
            return false;
        }
    }
    return std::equal(before.entries.begin(), before.entries.end(), after.entries.begin(),
                      after.entries.end(),
                      [](const MenuEntry &a, const MenuEntry &b) { return a.text == b.text; });
}

TEST(WordWrap, KeepsReadingAndIsUndoneByReflowInRandomDocuments) {
    std::mt19937 random(33);
    for (int i = 0; i < 1500 && !HasFatalFailure(); ++i) {
        std::string document = i % 4 == 0 ? randomColumnOfCells(random) : randomDocument(random);
        for (std::size_t blanks = random() % 8; blanks > 0; --blanks)
            document.insert(random() % (document.size() + 1), " ");
        const int columns = 1 + static_cast<int>(random() % kColumns);
        const std::string wrapped = wrap(document, columns);
        ASSERT_TRUE(haveSameReading(document, wrapped)) << testing::PrintToString(document);
        ASSERT_EQ(wrap(wrapped, columns), wrapped) << testing::PrintToString(document);
        const int others = 1 + static_cast<int>(random() % kColumns);
        ASSERT_EQ(reflow(wrapped, others), reflow(document, others)) << testing::PrintToString(document);
        ASSERT_TRUE(haveSameReading(document, reflow(document, others), true))
            << testing::PrintToString(document);

        const std::size_t begin = random() % (document.size() + 1);
        const auto lines = wrapLinesAtWords(document, begin, random() % 40, {.columns = columns});
        std::string replaced = document;
        replaced.replace(lines->begin, lines->length, lines->text);
        ASSERT_TRUE(haveSameReading(document, replaced)) << testing::PrintToString(document);
    }
}

/// Paragraphs of words of all lengths, some in styles, with symbols, pictures and menu
/// entries between them, and no blank at the end of a line.
std::string randomPages(std::mt19937 &random) {
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    std::string pages;
    for (unsigned paragraphs = 1 + below(5); paragraphs > 0; --paragraphs) {
        if (below(4) == 0)
            pages += withMarks("#12345A  #12345A#123450\r\n*an entry that is longer than one line shows\r\n");
        const std::string code = below(2) == 0 ? std::string{kStyleMark, "BDDU"[below(4)]} : "";
        const unsigned longest = 2 + below(18);
        for (unsigned words = 1 + below(30); words > 0; --words) {
            std::string word(1 + below(longest), static_cast<char>('a' + below(26)));
            if (below(12) == 0)
                word.insert(0, withMarks("#12345A"));
            if (below(6) == 0)
                word = code + word + code;
            else if (below(6) == 0)
                word = code + word + (below(3) == 0 ? " " : "") + " y" + code;
            pages += word + (words > 1 ? " " : "\r\n");
        }
    }
    return pages;
}

/// Where the fold cuts a text, as positions of the text.
std::vector<std::size_t> cutsIn(const std::string &text) {
    const std::string folded = *foldLines(text);
    std::vector<std::size_t> cuts;
    for (std::size_t i = 0; i + 2 * cuts.size() < folded.size(); ++i)
        if (folded[i + 2 * cuts.size()] != text[i])
            cuts.push_back(i);
    return cuts;
}

/// Whether a cut lies inside a word that would stay whole on a line of its own in the
/// place of the line it is in, which begins at the column that the fold has there.
bool cutsAWord(const std::string &text, std::size_t cut) {
    const auto isEnd = [&](std::size_t at) {
        return text[at] == ' ' || text[at] == '\r' || text[at] == '\n';
    };
    if (cut == text.size() || isEnd(cut) || isEnd(cut - 1))
        return false;
    const std::size_t begin = text.find_last_of(" \n", cut) + 1;
    const std::string word = text.substr(begin, text.find_first_of(" \r", cut) - begin) + "\r\n";
    const std::string before = text.substr(0, text.find_last_of('\n', cut) + 1);
    const auto cuts = cutsIn(before + word);
    return cuts.empty() || cuts.back() < before.size();
}

bool isMenuEntry(const std::string &text, std::size_t at) {
    return at < text.size() && text[text.find_last_of('\n', at) + 1] == '*';
}

/// The columns of a line that stands alone: a picture cell has one, a character of
/// double size two.
std::size_t widthOf(const StyledText &text, std::size_t begin, std::size_t end) {
    std::size_t width = 0;
    PieceReader pieces(text, begin);
    while (pieces.position() < end) {
        const auto piece = pieces.next(end);
        const std::size_t each = piece.style == Style::Double ? 2 : 1;
        width += piece.picture ? static_cast<std::size_t>(piece.picture->columns)
                               : (piece.end - piece.begin) * each;
    }
    return width;
}

void expectWidth(const std::string &wrapped, int columns) {
    StyledText shown = compilePreview(wrapped, PreviewFlavour::Normal).styled;
    for (const PictureBlock &picture : shown.pictures)
        shown.characters[picture.position] = '#';
    for (std::size_t begin = 0, end = 0; end < shown.characters.size(); begin = end + 2) {
        end = std::min(shown.characters.find("\r\n", begin), shown.characters.size());
        const std::string line = shown.characters.substr(begin, end - begin);
        const bool isWord = line.find(' ') >= line.find_last_not_of(' ');
        const bool isFree = isWord || line.starts_with("*");
        EXPECT_TRUE(isFree || widthOf(shown, begin, end) <= static_cast<std::size_t>(columns)) << line;
    }
}

TEST(WordWrap, LeavesNoWordToTheFoldThatFitsALine) {
    std::mt19937 random(16);
    for (int i = 0; i < 1000 && !HasFatalFailure(); ++i) {
        const std::string pages = randomPages(random);
        const int columns = 20 + static_cast<int>(random() % 14);
        const std::string wrapped = wrap(pages, columns);
        ASSERT_TRUE(haveSameReading(pages, wrapped)) << testing::PrintToString(pages);
        ASSERT_EQ(reflow(wrap(pages, 8), columns), wrapped) << testing::PrintToString(pages);
        const auto cuts = cutsIn(wrapped);
        for (const std::size_t cut : cuts)
            ASSERT_TRUE(isMenuEntry(wrapped, cut) || !cutsAWord(wrapped, cut))
                << testing::PrintToString(wrapped);
        if (cuts.empty())
            expectWidth(wrapped, columns);
    }
}

TEST(WordWrap, BreaksWhereTheCalculatorWouldCut) {
    const std::string seven = "seven77 ";
    const std::string x33(33, 'x');
    const struct {
        const char *about;
        std::string document;
        std::string wrapped;
    } cases[] = {
        {"the blank takes the last column", seven + seven + seven + "eightt 8 next",
         seven + seven + seven + "eightt 8 \r\nnext"},
        {"a blank has no room behind the last column", seven + seven + seven + "ninenine9 next",
         seven + seven + seven + "\r\nninenine9 next"},
        {"a last word may end in the last column", seven + seven + seven + "ninenine9",
         seven + seven + seven + "ninenine9"},
        {"quotes around the document aren't shown", '"' + seven + seven + seven + "ninenine9\"",
         '"' + seven + seven + seven + "ninenine9\""},
        {"an overlong word", "a " + x33 + "x b", "a \r\n" + x33 + "x b"},
        {"own line ends and blanks stay", "  a \r\n\r\nb  c\r\n", "  a \r\n\r\nb  c\r\n"},
        {"closing codes stay, opening ones go", seven + seven + "@Bninenine9 @B@Ininenine9@I",
         seven + seven + "@Bninenine9 @B\r\n@Ininenine9@I"},
        {"a run goes on over a line end", "@U" + seven + seven + seven + seven + "seven77@U",
         "@U" + seven + seven + seven + seven + "\r\nseven77@U"},
        {"double size", "@Da wide title of words@D", "@Da wide title \r\nof words@D"},
        {"the fold's own line end at a blank", "@Dthirteenchars@D next", "@Dthirteenchars@D next"},
        {"a menu entry", "\r\n*" + seven + seven + seven + seven + seven,
         "\r\n*" + seven + seven + seven + seven + seven},
        {"the first line is none", "*" + seven + seven + seven + seven + seven,
         "*" + seven + seven + seven + seven + "\r\n" + seven},
        {"no new menu entry", seven + seven + seven + "aa *bbbbbbbbb",
         seven + seven + seven + "\r\naa *bbbbbbbbb"},
        {"a row of a picture", "#000001      #000001      #000001      #000001      #000001      #000001",
         "#000001      #000001      #000001      #000001      #000001      #000001"},
        {"a symbol takes a column", seven + seven + seven + "eight#000001 eight888",
         seven + seven + seven + "eight#000001 \r\neight888"},
    };
    for (const auto &[about, document, wrapped] : cases)
        EXPECT_EQ(wrap(withMarks(document)), withMarks(wrapped)) << about;
}

TEST(WordWrap, JoinsNoLinesThatAreNotAWraps) {
    for (const char *document : {"a\r\nb", "a \r\n b", "a \r\n\r\nb", "a \r\n*b", "\r\n*a \r\nb",
                                 "#000001 \r\n#000001 \r\nb", "a \r\n#000001", "a @I\r\n@Bb@B@I"})
        EXPECT_EQ(reflow(withMarks(document)), withMarks(document));
}

TEST(WordWrap, TakesTheLinesThatASelectionTouches) {
    const std::string document = "one two\r\none \r\ntwo three\r\none two";
    const struct {
        std::size_t begin, length;
        bool reflow;
        std::size_t from, bytes;
        std::string text;
    } cases[] = {
        {10, 0, false, 9, 4, "one "},
        {9, 6, false, 9, 4, "one "},
        {9, 7, false, 9, 15, "one \r\ntwo \r\nthree"},
        {14, 2, true, 9, 15, "one \r\ntwo \r\nthree"},
        {0, 99, true, 0, document.size(), "one \r\ntwo\r\none \r\ntwo \r\nthree\r\none \r\ntwo"},
        {document.size(), 0, true, 26, 7, "one \r\ntwo"},
    };
    for (const auto &[begin, length, joins, from, bytes, text] : cases) {
        const auto lines = wrapLinesAtWords(document, begin, length, {.columns = 5, .reflow = joins});
        EXPECT_EQ(lines->begin, from) << begin;
        EXPECT_EQ(lines->length, bytes) << begin;
        EXPECT_EQ(lines->text, text) << begin;
    }
}

TEST(WordWrap, EndsWhenAskedTo) {
    const std::string document(50000, 'x');
    for (const bool joins : {false, true}) {
        std::size_t calls = 0;
        const auto stop = [&](std::size_t step, std::size_t total) {
            EXPECT_LE(step, total);
            return ++calls < (joins ? 15 : 5);
        };
        EXPECT_FALSE(wrapAtWords(document, {.reflow = joins}, stop));
    }
}

} // namespace
} // namespace zolt
