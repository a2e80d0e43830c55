#pragma once

#include "core/progress.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// A line of a compiled text that begins with "*".
struct MenuEntry {
    /// Counted from 1; each line end of the text begins a line.
    int line;
    /// At most 33 characters, the "*" included.
    std::string text;

    bool operator==(const MenuEntry &) const = default;
};

/// The menu entries of a compiled text's characters. The first line is never one,
/// since no line end stands in front of it. No value when `progress` asked to stop.
std::optional<std::vector<MenuEntry>> menuEntries(std::string_view characters, const Progress &progress = {});

/// The offset, from 0, of the line end of line `line`, from 1; the text's length if it
/// has fewer line ends.
std::size_t endOfLine(std::string_view characters, int line);

} // namespace zolt
