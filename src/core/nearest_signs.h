#pragma once

#include <optional>
#include <string_view>

namespace zolt {

/// What stands on the calculator for a character that it doesn't have: signs that read
/// as nearly the same, several where one won't do, none for what has no width. Nothing
/// if there is no such sign.
std::optional<std::string_view> nearestSigns(char32_t character);

} // namespace zolt
