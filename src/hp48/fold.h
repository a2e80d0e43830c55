#pragma once

#include "core/progress.h"
#include "hp48/place_map.h"

#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// Folds the lines of `text`, which ends in CR LF, to the calculator's grid: a line
/// end is put behind the 33rd column, and behind the 16th character of double size.
/// Style codes and picture cells take no column; the character right behind a fold
/// is taken as a plain one whatever it is. Nothing but line ends is added and
/// nothing is taken away. No value when `progress` asked to stop. `places`, if given, gets
/// where the text's characters stand in the folded one.
std::optional<std::string> foldLines(std::string_view text, const Progress &progress = {},
                                     PlaceMap *places = nullptr);

} // namespace zolt
