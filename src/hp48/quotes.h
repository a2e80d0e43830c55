#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// A text as one string of the calculator, and what was done to make it one.
struct QuotedText {
    std::string text;
    bool openingAdded = false;
    bool closingAdded = false;
    /// Where in `text`, from 0, an apostrophe stands for a double quote.
    std::vector<std::size_t> replaced;
};

/// Puts a double quote at each end of a text that has none there, blanks aside, and
/// apostrophes for those inside. What has been added stands outside the blanks; a
/// quote of the text's own with blanks around it so counts as one inside. A text of
/// blanks alone stays as it is.
QuotedText quoted(std::string_view text);

} // namespace zolt
