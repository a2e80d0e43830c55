#pragma once

#include "core/progress.h"
#include "hp48/place_map.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// Folds the lines of `text`, which ends in CR LF, to the calculator's grid: a line
/// end is put behind the 33rd column, and behind the 16th character of double size.
/// Style codes and picture cells take no column; the character right behind a fold
/// is taken as a plain one whatever it is. Nothing but line ends is added and
/// nothing is taken away. No value when `progress` asked to stop. `places`, if given, gets
/// where the text's characters stand in the folded one.
std::optional<std::string> foldLines(std::string_view text, const Progress &progress = {},
                                     PlaceMap *places = nullptr);

/// Where one line is folded.
struct LineFolds {
    /// The positions in the line, from 0, in front of which it is broken. The last one is
    /// the line's end or lies behind it: there the next fold would be if plain characters
    /// followed.
    std::vector<std::size_t> places;
    /// The column at which the next line begins.
    std::ptrdiff_t columnBehind = 1;
};

/// The folds that foldLines() makes in a line, which is given without its line end.
/// `column` is the one at which the line begins: 1, unless a double-size code broke the
/// line before right in front of its end, which then is no line end to the fold.
LineFolds foldsOfLine(std::string_view line, std::ptrdiff_t column = 1);

/// The columns that a line, or a part of one, takes on the calculator: its characters
/// without the codes of all eight letters, and without each cell mark and the six
/// characters behind it. A character in double size is one column, as for the fold.
std::size_t visibleColumns(std::string_view line);

} // namespace zolt
