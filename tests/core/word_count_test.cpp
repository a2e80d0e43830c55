#include "core/word_count.h"

#include "support/literal_commands.h"
#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(WordCount, EqualsTheSlowWalkOverRandomDocuments) {
    for (const std::string &document :
         test::randomTexts({"a", "b", "c", " ", "\t", "\r", "\n", "\r\n"}, 20000))
        ASSERT_EQ(countWords(document), literal::wordCount(document)) << testing::PrintToString(document);
}

} // namespace
} // namespace zolt
