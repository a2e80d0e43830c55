#include "core/word_count.h"

#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

/// The counts as a walk over positions.
WordCount countedSlowly(const std::string &text) {
    const auto isOneOf = [&](std::size_t position, std::string_view characters) {
        return characters.find(text[position - 1]) != std::string_view::npos;
    };
    WordCount count;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        count.CaracteresSemEspaços += !isOneOf(i, " \n\r\t");
        count.CaracteresComEspaços += !isOneOf(i, "\n\r");
        count.Parágrafos += text.substr(i - 1, 2) == "\r\n";
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
    for (const std::string &document :
         test::randomTexts({"a", "b", "c", " ", "\t", "\r", "\n", "\r\n"}, 20000))
        ASSERT_EQ(countWords(document), countedSlowly(document)) << testing::PrintToString(document);
}

} // namespace
} // namespace zolt
