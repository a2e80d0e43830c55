#include "core/styles.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

constexpr std::string_view k16 = "This formatting can only be aplied as far as the 16\xBA"
                                 "Character in each line.";
constexpr std::string_view k33 = "This formatting can only be aplied as far as the 33\xBA"
                                 "Character in each line.";
constexpr std::string_view kFormatted = "The selection is already formatted.\r\nBefore using the desired "
                                        "style, \r\nremove the one already applied.";
constexpr std::string_view kLines = "Select one line at a time";

struct StyleCase {
    std::string text;
    std::size_t start;
    std::size_t length;
    char letter;
    /// Empty where the style is applied.
    std::string_view message;
};

class AppliesStyle : public testing::TestWithParam<StyleCase> {};

TEST_P(AppliesStyle, OrSaysWhyNot) {
    const auto &[text, start, length, letter, message] = GetParam();
    const SelectionEdit edit = applyStyle(text, start, length, letter);
    EXPECT_EQ(edit.message, message);
    EXPECT_EQ(edit.outcome, message.empty() ? SelectionEdit::Replaced : SelectionEdit::Refused);
    const std::string code{'\x0B', letter};
    EXPECT_EQ(edit.replacement, message.empty() ? code + text.substr(start, length) + code : "");
}

const std::string kLong(40, 'x');
const std::string kRun = "\x0B"
                         "Bxx\x0B"
                         "B";

INSTANTIATE_TEST_SUITE_P(Columns, AppliesStyle,
                         testing::Values(StyleCase{kLong, 0, 33, 'B', ""}, StyleCase{kLong, 0, 34, 'B', k33},
                                         StyleCase{kLong, 30, 3, '|', ""}, StyleCase{kLong, 31, 3, '|', k33},
                                         StyleCase{kLong, 0, 16, 'D', ""}, StyleCase{kLong, 0, 17, 'D', k16},
                                         StyleCase{kLong + "\r\n" + kLong, 42, 33, 'I', ""},
                                         StyleCase{kLong + "\r\n" + kLong, 42, 34, 'I', k33},
                                         // Codes earlier in the line count.
                                         StyleCase{kRun + std::string(27, 'x'), 32, 1, 'U', ""},
                                         StyleCase{kRun + std::string(28, 'x'), 33, 1, 'U', k33},
                                         // A selection that starts between CR and LF counts from the LF on.
                                         StyleCase{kLong + "\r\n" + kLong, 41, 34, 'E', ""},
                                         StyleCase{kLong + "\r\n" + kLong, 41, 35, 'E', k33},
                                         // One that starts at the CR still belongs to the line before.
                                         StyleCase{kLong + "\r\nabc", 40, 2, 'E', k33}));

INSTANTIATE_TEST_SUITE_P(Obstacles, AppliesStyle,
                         testing::Values(StyleCase{"a\x0B"
                                                   "b\r\n",
                                                   0, 5, 'V', kFormatted},
                                         StyleCase{"a\r\n\x0B"
                                                   "b",
                                                   0, 5, 'V', kLines},
                                         StyleCase{kLong + "\r\n", 0, 42, 'V', k33},
                                         StyleCase{"a\rb\nc", 0, 5, 'V', ""},
                                         StyleCase{"ab\x0B", 0, 2, 'V', ""}));

TEST(Styles, LeaveAnEmptySelectionAlone) {
    EXPECT_EQ(applyStyle(kLong, 40, 0, 'B').outcome, SelectionEdit::Unchanged);
    EXPECT_EQ(removeStyles("").outcome, SelectionEdit::Unchanged);
}

TEST(Styles, AreRemovedAsPairsFromTheLeft) {
    EXPECT_EQ(removeStyles(kRun + kRun).replacement, "xxxx");
    EXPECT_EQ(removeStyles("a\x0B\x0B"
                           "Bc")
                  .replacement,
              "aBc");
    EXPECT_EQ(removeStyles("\x0B\r\n").replacement, "\n");
    EXPECT_EQ(removeStyles("a\x0B").replacement, "a\x0B");
}

} // namespace
} // namespace zolt
