#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zolt {

/// Why a selection can't get a style, in the words of a pane.
struct StyleMessages {
    std::string_view beyondColumn16;
    std::string_view beyondColumn33;
    std::string_view severalLines;
    std::string_view alreadyFormatted;
};
/// Those of the textual edition, and of the graphical one's pane without wrap.
inline constexpr StyleMessages kStyleMessages{
    .beyondColumn16 = "This formatting can only be aplied as far as the 16\xBA"
                      "Character in each line.",
    .beyondColumn33 = "This formatting can only be aplied as far as the 33\xBA"
                      "Character in each line.",
    .severalLines = "Select one line at a time",
    .alreadyFormatted = "The selection is already formatted.\r\n"
                        "Before using the desired style, \r\n"
                        "remove the one already applied.",
};

/// What a command does to a selection.
struct SelectionEdit {
    enum Outcome { Unchanged, Replaced, Refused };

    Outcome outcome = Unchanged;
    /// What the selection is replaced by.
    std::string replacement;
    /// Why it was refused.
    std::string_view message;
};

/// Puts the style code of `letter` (one of the eight) before and behind the
/// selection. `selStart` (from 0) and `selLength` are the selection's place in
/// `text`. Refused if the selection ends beyond the style's last column, all bytes
/// of its line counted, or if it holds a style mark or a line end.
SelectionEdit applyStyle(std::string_view text, std::size_t selStart, std::size_t selLength, char letter);

/// Takes the style codes out of a selection: each style mark and the byte behind it.
/// A mark at the very end has its letter outside the selection and stays.
SelectionEdit removeStyles(std::string_view selection);

/// The line that "Horizontal line" inserts.
std::string horizontalLine();

} // namespace zolt
