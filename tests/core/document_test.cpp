#include "core/document.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

std::string everyByte() {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

struct FileCase {
    std::string_view file;
    std::string_view document;
};

class ReadsFile : public testing::TestWithParam<FileCase> {};

TEST_P(ReadsFile, AsTheDocumentItHolds) {
    EXPECT_EQ(documentFromFile(GetParam().file), GetParam().document);
}

INSTANTIATE_TEST_SUITE_P(LineEnds, ReadsFile,
                         testing::Values(FileCase{"", ""}, FileCase{"\r\n", ""}, FileCase{"\r", ""},
                                         FileCase{"a", "a"}, FileCase{"a\r\n", "a"}, FileCase{"a\r", "a"},
                                         FileCase{"a\r\n\r\n", "a\r\n"}, FileCase{"a\rb\r\n", "a\r\nb"},
                                         FileCase{"a\nb\r\n", "a\nb"}, FileCase{"a\n", "a\n"},
                                         FileCase{"a\r\r\nb", "a\r\n\r\nb"}, FileCase{"\n\r\r\n", "\n\r\n"}));

TEST(DocumentFile, GivesBackEveryByteOfADocument) {
    // A lone CR is the one thing that a file turns into a line end.
    std::string document = everyByte() + "\r\n" + everyByte();
    std::erase(document, '\r');
    for (const std::string &text : {document, document + "\r\n", std::string(), std::string("\r\n\r\n")})
        EXPECT_EQ(documentFromFile(fileFromDocument(text)), text);
}

TEST(DocumentFile, StopsReadingWhenTold) {
    const std::string file(1 << 20, '\r');
    const std::string document = documentFromFile(file, [](std::size_t, std::size_t) { return false; });
    EXPECT_LT(document.size(), file.size());
}

} // namespace
} // namespace zolt
