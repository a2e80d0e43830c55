#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace zolt {

/// The codes of the quick bar's characters, by their place (from 0), in rows of the
/// wide layout or columns of the tall one, 18 each.
inline constexpr std::array<unsigned char, 72> kQuickBarCodes{
    140, 223, 145, 146, 147, 148, 149, 150, 181, 135, 151, 152, 153, 248, 154, 157, 133, 156, //
    155, 132, 167, 131, 136, 130, 128, 176, 159, 185, 178, 179, 188, 189, 190, 177, 215, 247, //
    137, 138, 139, 162, 124, 142, 141, 144, 143, 134, 127, 158, 183, 166, 172, 173, 175, 129, //
    161, 164, 165, 168, 182, 208, 216, 222, 240, 254, 171, 123, 91,  40,  41,  93,  125, 187};

/// The keys that type the character at a place on a Windows keyboard. The four
/// brackets of ASCII go without the leading zero.
inline std::string quickBarToolTip(std::size_t place) {
    const std::string code = std::to_string(kQuickBarCodes[place]);
    return (place >= 66 && place <= 69 ? "Alt+" : "Alt+0") + code;
}

} // namespace zolt
