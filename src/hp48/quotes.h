#pragma once

#include <string>

namespace zolt {

/// A text as one string of the calculator, and what was done to make it one.
struct QuotedText {
    std::string text;
    bool openingAdded = false;
    bool closingAdded = false;
};

/// Puts a double quote at each end of a text that has none there, blanks aside, and
/// apostrophes for those inside. What has been added stands outside the blanks; a
/// quote of the text's own with blanks around it so counts as one inside. A text of
/// blanks alone stays as it is. A text with room for two characters more is not copied.
QuotedText quoted(std::string text);

} // namespace zolt
