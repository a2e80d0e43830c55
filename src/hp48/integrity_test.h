#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zolt {

struct IntegrityResult {
    /// Lines for the user, each ended by CR LF. Positions in them count from 1.
    std::string report;
    /// The document as one calculator string, between double quotes.
    std::string TextoCorrigido;
    /// Inner double quotes and bad digits of cells; a missing outer quote is none.
    std::size_t NúmeroDeErros = 0;
};

/// Tests whether a document can stand as one string of the calculator: a double
/// quote at each end and none inside, and six digits in capitals behind each cell
/// mark. Corrects the quotes; wrong cells stay as they are.
IntegrityResult testIntegrity(std::string_view document);

} // namespace zolt
