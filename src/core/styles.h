#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zolt {

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
