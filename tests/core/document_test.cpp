#include "core/document.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

TEST(DocumentFile, EndsItsLinesWithCrLfOrCr) {
    const std::pair<std::string_view, std::string_view> filesAndDocuments[] = {{"", ""},
                                                                               {"\r\n", ""},
                                                                               {"\r", ""},
                                                                               {"a", "a"},
                                                                               {"a\r\n", "a"},
                                                                               {"a\r", "a"},
                                                                               {"a\r\n\r\n", "a\r\n"},
                                                                               {"a\rb\r\n", "a\r\nb"},
                                                                               {"a\nb\r\n", "a\nb"},
                                                                               {"a\n", "a\n"},
                                                                               {"a\r\r\nb", "a\r\n\r\nb"},
                                                                               {"\n\r\r\n", "\n\r\n"}};
    for (const auto &[file, document] : filesAndDocuments)
        EXPECT_EQ(documentFromFile(file), document);
}

TEST(DocumentFile, StopsReadingWhenTold) {
    const std::string file(1 << 20, '\r');
    const std::string document = documentFromFile(file, [](std::size_t, std::size_t) { return false; });
    EXPECT_LT(document.size(), file.size());
}

} // namespace
} // namespace zolt
