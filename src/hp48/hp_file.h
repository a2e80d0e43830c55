#pragma once

#include <string>

namespace zolt {

/// The HP file of a corrected document: its bytes and one CR LF.
std::string hpFile(std::string text);

} // namespace zolt
