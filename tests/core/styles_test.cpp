#include "core/styles.h"

#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::withMarks;

constexpr std::string_view k16 = "This formatting can only be aplied as far as the 16\xBA"
                                 "Character in each line.";
constexpr std::string_view k33 = "This formatting can only be aplied as far as the 33\xBA"
                                 "Character in each line.";
constexpr std::string_view kFormatted = "The selection is already formatted.\r\nBefore using the desired "
                                        "style, \r\nremove the one already applied.";
constexpr std::string_view kLines = "Select one line at a time";

const std::string kLong(40, 'x');
const std::string kRun = withMarks("@Bxx@B");

TEST(Styles, AreAppliedOrSayWhyNot) {
    const std::string twoLines = kLong + "\r\n" + kLong;
    const struct {
        std::string text;
        std::size_t start;
        std::size_t length;
        char letter;
        /// Empty where the style is applied.
        std::string_view message;
    } cases[] = {
        {kLong, 0, 33, 'B', ""},
        {kLong, 0, 34, 'B', k33},
        {kLong, 30, 3, '|', ""},
        {kLong, 31, 3, '|', k33},
        {kLong, 0, 16, 'D', ""},
        {kLong, 0, 17, 'D', k16},
        {twoLines, 42, 33, 'I', ""},
        {twoLines, 42, 34, 'I', k33},
        // Codes earlier in the line count.
        {kRun + std::string(27, 'x'), 32, 1, 'U', ""},
        {kRun + std::string(28, 'x'), 33, 1, 'U', k33},
        // A selection that starts between CR and LF counts from the LF on.
        {twoLines, 41, 34, 'E', ""},
        {twoLines, 41, 35, 'E', k33},
        // One that starts at the CR still belongs to the line before.
        {kLong + "\r\nabc", 40, 2, 'E', k33},
        {withMarks("a@b\r\n"), 0, 5, 'V', kFormatted},
        {withMarks("a\r\n@b"), 0, 5, 'V', kLines},
        {kLong + "\r\n", 0, 42, 'V', k33},
        {"a\rb\nc", 0, 5, 'V', ""},
        {withMarks("ab@"), 0, 2, 'V', ""},
    };
    for (const auto &[text, start, length, letter, message] : cases) {
        const SelectionEdit edit = applyStyle(text, start, length, letter);
        EXPECT_EQ(edit.message, message) << text << start;
        EXPECT_EQ(edit.outcome, message.empty() ? SelectionEdit::Replaced : SelectionEdit::Refused);
        const std::string code{kStyleMark, letter};
        EXPECT_EQ(edit.replacement, message.empty() ? code + text.substr(start, length) + code : "");
    }
}

TEST(Styles, LeaveAnEmptySelectionAlone) {
    EXPECT_EQ(applyStyle(kLong, 40, 0, 'B').outcome, SelectionEdit::Unchanged);
    EXPECT_EQ(removeStyles("").outcome, SelectionEdit::Unchanged);
}

TEST(Styles, AreRemovedAsPairsFromTheLeft) {
    EXPECT_EQ(removeStyles(kRun + kRun).replacement, "xxxx");
    EXPECT_EQ(removeStyles(withMarks("a@@Bc")).replacement, "aBc");
    EXPECT_EQ(removeStyles(withMarks("@\r\n")).replacement, "\n");
    EXPECT_EQ(removeStyles(withMarks("a@")).replacement, withMarks("a@"));
}

} // namespace
} // namespace zolt
