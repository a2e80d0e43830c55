#pragma once

#include <string>
#include <string_view>

namespace zolt {

/// The HP file of a corrected document: its bytes and one CR LF.
std::string hpFile(std::string_view text);

} // namespace zolt
