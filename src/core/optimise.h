#pragma once

#include <string>
#include <string_view>

namespace zolt {

/// What the reader of a document doesn't need. The numbers are those of
/// TipoDeOptimização.
enum class Optimisation {
    /// Blank cells that only blank cells or stray "0" follow up to the line's end.
    Partial = 1,
    /// These, and a blank in place of every other blank cell.
    Total = 2
};

/// The text without it. Lines end at CR LF, the last one at the text's end.
std::string optimiseImages(std::string_view text, Optimisation kind);

} // namespace zolt
