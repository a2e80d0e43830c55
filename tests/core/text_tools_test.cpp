#include "core/date_forms.h"
#include "core/optimise.h"
#include "core/quick_bar.h"
#include "core/word_count.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace zolt {
namespace {

/// Documents of few different characters, so that what matters meets often.
std::vector<std::string> randomDocuments(const std::vector<std::string> &pieces, std::size_t count) {
    std::minstd_rand random(7);
    std::vector<std::string> documents;
    while (documents.size() < count) {
        std::string document;
        for (std::size_t left = random() % 24; left > 0; --left)
            document += pieces[random() % pieces.size()];
        documents.push_back(document);
    }
    return documents;
}

/// The `length` characters at `position` (from 1), fewer at the text's end.
std::string mid(const std::string &text, std::size_t position, std::size_t length) {
    return position > text.size() ? std::string() : text.substr(position - 1, length);
}

const std::string kCell = "\x9E"
                          "000000";

/// Optimisation as a walk over positions, one deletion at a time.
std::string optimisedSlowly(std::string text, Optimisation kind) {
    text += "\r\n";
    for (std::size_t p = 1;; ++p) {
        while (mid(text, p, 7) == kCell) {
            const std::size_t lineEnd = text.find("\r\n", p - 1);
            if (text.substr(p - 1, lineEnd - (p - 1))
                    .find_first_not_of("\x9E"
                                       "0") != std::string::npos)
                break;
            text.erase(p - 1, 7);
        }
        if (p == text.size())
            break;
    }
    text.resize(text.size() - 2);
    if (kind == Optimisation::Total) {
        const std::size_t length = text.size();
        for (std::size_t p = 1; p <= length; ++p)
            if (mid(text, p, 7) == kCell)
                text.replace(p - 1, 7, " ");
    }
    return text;
}

TEST(Optimisation, EqualsTheSlowWalkOverRandomDocuments) {
    const std::vector<std::string> pieces{kCell,    kCell, kCell, "\x9E", "0",    "00",
                                          "000000", "A",   "\r",  "\n",   "\r\n", " "};
    for (const std::string &document : randomDocuments(pieces, 20000))
        for (const Optimisation kind : {Optimisation::Partial, Optimisation::Total})
            ASSERT_EQ(optimiseImages(document, kind), optimisedSlowly(document, kind))
                << testing::PrintToString(document);
}

TEST(Optimisation, DropsBlankCellsAtLineEnds) {
    const std::string text = kCell + kCell + "\r\n" + kCell + "a" + kCell + "0";
    EXPECT_EQ(optimiseImages(text, Optimisation::Partial), "\r\n" + kCell + "a0");
    EXPECT_EQ(optimiseImages(text, Optimisation::Total), "\r\n a0");
    // A cell that arises from remains is not looked at again.
    EXPECT_EQ(optimiseImages("\x9E" + kCell + "000000", Optimisation::Partial), kCell);
}

/// The counts as a walk over positions.
WordCount countedSlowly(const std::string &text) {
    const auto isOneOf = [&](std::size_t position, std::string_view characters) {
        return characters.find(text[position - 1]) != std::string_view::npos;
    };
    WordCount count;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        count.CaracteresSemEspaços += !isOneOf(i, " \n\r\t");
        count.CaracteresComEspaços += !isOneOf(i, "\n\r");
        count.Parágrafos += mid(text, i, 2) == "\r\n";
        if (isOneOf(i, " \n\r\t"))
            continue;
        for (std::size_t j = i; j <= text.size(); ++j)
            if (isOneOf(j, " \r\t")) {
                count.CaracteresSemEspaços += j - i - 1;
                count.CaracteresComEspaços += j - i;
                count.Parágrafos += text[j - 1] == '\r';
                i = j;
                ++count.Palavras;
                break;
            }
    }
    if (!text.empty() && !isOneOf(text.size(), " \n\r\t"))
        ++count.Palavras;
    return count;
}

TEST(WordCount, EqualsTheSlowWalkOverRandomDocuments) {
    for (const std::string &document : randomDocuments({"a", "b", "c", " ", "\t", "\r", "\n", "\r\n"}, 20000))
        ASSERT_EQ(countWords(document), countedSlowly(document)) << testing::PrintToString(document);
}

TEST(WordCount, CountsAsToldInTheWindow) {
    EXPECT_EQ(countWords(""), (WordCount{0, 0, 0, 0}));
    EXPECT_EQ(countWords("ab cd"), (WordCount{2, 4, 5, 0}));
    EXPECT_EQ(countWords("ab\r\n"), (WordCount{1, 2, 3, 1}));
    EXPECT_EQ(countWords("\r\n\r\n"), (WordCount{0, 0, 0, 2}));
}

TEST(DateForms, ShowAMomentInTheirOrder) {
    const std::array<std::string, kDateForms> expected{"05-03-2007",
                                                       "Monday, 5 March 2007",
                                                       "05 de March de 2007",
                                                       "05-03-07",
                                                       "2007-03-05",
                                                       "05-Mar-07",
                                                       "05/03/2007",
                                                       "05 Mar, 2007",
                                                       "05/03/07",
                                                       "March de 07",
                                                       "March-07",
                                                       "05-03-2007 9:04",
                                                       "05-03-2007 9:04:08",
                                                       "9:04",
                                                       "9:04:08",
                                                       "09:04",
                                                       "09:04:08"};
    EXPECT_EQ(dateForms({2007, 3, 5, 9, 4, 8}, {"March", "Mar", "Monday, 5 March 2007"}), expected);
    EXPECT_EQ(dateForms({1999, 12, 31, 23, 59, 0}, {"dezembro", "dez", ""})[12], "31-12-1999 23:59:00");
}

TEST(QuickBar, HasEveryCharacterOnceAndFourShortToolTips) {
    EXPECT_EQ(std::set<int>(kQuickBarCodes.begin(), kQuickBarCodes.end()).size(), 72u);
    EXPECT_EQ(quickBarToolTip(0), "Alt+0140");
    EXPECT_EQ(quickBarToolTip(65), "Alt+0123");
    EXPECT_EQ(quickBarToolTip(66), "Alt+91");
    EXPECT_EQ(quickBarToolTip(69), "Alt+93");
    EXPECT_EQ(quickBarToolTip(70), "Alt+0125");
}

} // namespace
} // namespace zolt
