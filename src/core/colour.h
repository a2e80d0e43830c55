#pragma once

#include <cstdint>

namespace zolt {

/// A colour value: red in the low byte, then green, then blue. The high bit names
/// a system colour; kWindowText is the colour of text that sets none.
using Colour = std::uint32_t;
inline constexpr Colour kWindowText = 0x80000008;

} // namespace zolt
