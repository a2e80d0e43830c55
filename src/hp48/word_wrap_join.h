#pragma once

#include "core/progress.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// Whole lines of a text, without the line end of the last one. Positions from 0.
struct LineRange {
    std::size_t begin;
    std::size_t end;
};

/// The text without the line ends that a wrap put between the lines of `range`, whose
/// end follows. No value when `progress` asked to stop.
std::optional<std::string> joinWrappedLines(std::string_view text, LineRange &range,
                                            const Progress &progress);

} // namespace zolt
