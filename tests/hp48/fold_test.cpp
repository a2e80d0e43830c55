#include "hp48/fold.h"

#include "core/codes.h"
#include "random_document.h"
#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::withMarks;

/// Without empty lines: a line that is broken at its very end adds one.
std::string filledLines(std::string text) {
    const std::string empty = std::string(kLineEnd).append(kLineEnd);
    for (std::size_t at = text.find(empty); at != std::string::npos; at = text.find(empty, at))
        text.erase(at, kLineEnd.size());
    return text;
}

/// A text folded line by line.
std::string foldedByLine(std::string_view text) {
    std::string folded;
    std::ptrdiff_t column = 1;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(kLineEnd, begin), text.size());
        const std::string_view line = text.substr(begin, end - begin);
        const LineFolds folds = foldsOfLine(line, column);
        EXPECT_GE(folds.places.back(), line.size());
        std::size_t copied = 0;
        for (const std::size_t place : folds.places) {
            if (place >= line.size())
                break;
            folded.append(line, copied, place - copied).append(kLineEnd);
            copied = place;
        }
        folded.append(line, copied).append(kLineEnd);
        column = folds.columnBehind;
        begin = end + kLineEnd.size();
    }
    return folded;
}

TEST(Fold, IsTheSameLineByLine) {
    std::mt19937 random(11);
    for (int round = 0; round < 5'000; ++round) {
        const std::string document =
            randomDocument(random) + withMarks(round % 3 == 0 ? "\r\n@D0123456789abcdef\r\nx" : "") + "\r\n";
        ASSERT_EQ(filledLines(foldedByLine(document)), filledLines(foldLines(document).value()))
            << "round " << round;
    }
}

TEST(Fold, OfALineThatEndsBeforeLiesBehindIt) {
    const struct {
        std::string line;
        std::size_t next;
        std::size_t columns;
    } cases[] = {
        {"", 33, 0},
        {std::string(33, 'x'), 33, 33},
        {std::string(34, 'x'), 66, 34},
        {withMarks("@Babc@B"), 37, 3},
        {withMarks("#123456#123456ab"), 47, 2},
        {withMarks("@Dabc"), 18, 3}, // sixteen behind the code
        {withMarks("abc@D"), 18, 3},
        {withMarks("@Xa@"), 33, 4},
        {withMarks("ab#12"), 40, 2},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(foldsOfLine(c.line).places.back(), c.next) << c.line;
        EXPECT_EQ(visibleColumns(c.line), c.columns) << c.line;
    }
}

} // namespace
} // namespace zolt
