#include "hp48/integrity_test.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

const std::string kBeginning = "\r\n** Beginning verification **\r\n\r\n";
const std::string kSuperior = "-Superior ('') character inserted \r\n";
const std::string kInferior = "-Inferior ('') character inserted \r\n";

std::string ending(int errors) {
    return "\r\n** Verification ended **\r\n\r\nNumber of errors found: " + std::to_string(errors) + "\r\n";
}

std::string innerQuote(int position) {
    return "-Ilegal character found (\") in position (" + std::to_string(position) +
           "). Substituted by (')\r\n";
}

std::string wrongDigits(int position, int digits) {
    std::string lines;
    for (int i = 0; i < digits; ++i)
        lines += "-Illegal graphical object found at (" + std::to_string(position) + ").\r\n";
    return lines;
}

struct Case {
    std::string document;
    std::string corrected;
    std::string lines;
    int errors = 0;
};

class TestsDocument : public testing::TestWithParam<Case> {};

TEST_P(TestsDocument, AndCorrectsItsQuotes) {
    const IntegrityResult result = testIntegrity(GetParam().document);
    EXPECT_EQ(result.TextoCorrigido, GetParam().corrected);
    EXPECT_EQ(result.report, kBeginning + GetParam().lines + ending(GetParam().errors));
    EXPECT_EQ(result.NúmeroDeErros, static_cast<std::size_t>(GetParam().errors));
}

const Case kQuotes[] = {
    {"", "\"\"", "Empty document\r\n"},
    {"   ", "   ", ""},
    {"\"", "\"", ""},
    {"\"\"", "\"\"", ""},
    {"x", "\"x\"", kSuperior + kInferior},
    {"inner\"quote", "\"inner'quote\"", kSuperior + kInferior + innerQuote(7), 1},
    {"\"ends\"\r\n", "\"ends'\r\n\"", kInferior + innerQuote(6), 1},
    // Blanks in front of the opening quote and behind the closing one make them inner ones.
    {"  \"a\" ", "  'a' ", innerQuote(3) + innerQuote(5), 2},
    {" a ", "\" a \"", kSuperior + kInferior},
    {"a\"", "\"a\"", kSuperior},
    {"\"\"\"\"", "\"''\"", innerQuote(2) + innerQuote(3), 2},
};

const Case kCells[] = {
    {"\"\x9E"
     "0F9A3C\"",
     "\"\x9E"
     "0F9A3C\"",
     ""},
    {"\"\x9E"
     "0F9a3g\"",
     "\"\x9E"
     "0F9a3g\"",
     wrongDigits(2, 2), 2},
    {"\"\x9E\"", "\"\x9E\"", wrongDigits(2, 6), 6},
    // Two marks side by side are looked at on their own.
    {"\"\x9E\x9E"
     "000000\"",
     "\"\x9E\x9E"
     "000000\"",
     wrongDigits(2, 1), 1},
    // A quote among the digits has become an apostrophe when the digits are read.
    {"\"\x9E"
     "00\"000\"",
     "\"\x9E"
     "00'000\"",
     innerQuote(5) + wrongDigits(2, 1), 2},
    // The first and the last character are not looked at.
    {"\x9E ", "\"\x9E \"", kSuperior + kInferior + wrongDigits(2, 6), 6},
    {" \x9E", "\" \x9E\"", kSuperior + kInferior + wrongDigits(3, 6), 6},
};

INSTANTIATE_TEST_SUITE_P(Quotes, TestsDocument, testing::ValuesIn(kQuotes));
INSTANTIATE_TEST_SUITE_P(Cells, TestsDocument, testing::ValuesIn(kCells));

} // namespace
} // namespace zolt
