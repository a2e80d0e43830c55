#include "hp48/integrity_test.h"

#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

const std::string kBeginning = "\r\n** Beginning verification **\r\n\r\n";
const std::string kSuperior = "-Superior ('') character inserted \r\n";
const std::string kInferior = "-Inferior ('') character inserted \r\n";

std::string ending(std::size_t errors) {
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

TEST(IntegrityTest, ReportsAndCorrects) {
    const struct {
        std::string document;
        std::string corrected;
        std::string lines;
        std::size_t errors = 0;
    } cases[] = {
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
        {"\"#0F9A3C\"", "\"#0F9A3C\"", ""},
        {"\"#0F9a3g\"", "\"#0F9a3g\"", wrongDigits(2, 2), 2},
        {"\"#\"", "\"#\"", wrongDigits(2, 6), 6},
        // Two marks side by side are looked at on their own.
        {"\"##000000\"", "\"##000000\"", wrongDigits(2, 1), 1},
        // A quote among the digits has become an apostrophe when the digits are read.
        {"\"#00\"000\"", "\"#00'000\"", innerQuote(5) + wrongDigits(2, 1), 2},
        // The first and the last character are not looked at.
        {"# ", "\"# \"", kSuperior + kInferior + wrongDigits(2, 6), 6},
        {" #", "\" #\"", kSuperior + kInferior + wrongDigits(3, 6), 6},
    };
    for (const auto &[document, corrected, lines, errors] : cases) {
        const IntegrityResult result = testIntegrity(test::withMarks(document));
        EXPECT_EQ(result.TextoCorrigido, test::withMarks(corrected)) << document;
        EXPECT_EQ(result.report, kBeginning + lines + ending(errors));
        EXPECT_EQ(result.NúmeroDeErros, errors);
    }
}

} // namespace
} // namespace zolt
