#pragma once

#include <optional>
#include <string_view>

namespace zolt {

/// The nearest signs, as nearestSigns() gives them, of the characters in blocks that are
/// letters, digits and arrows throughout. Nothing if there are none.
std::optional<std::string_view> signsInBlock(char32_t character);

} // namespace zolt
