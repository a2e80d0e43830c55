#pragma once

#include "core/byte_sink.h"
#include "core/progress.h"

#include <cstddef>
#include <limits>
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

/// The document as one calculator string, as testIntegrity() corrects it. One that is
/// given away with room for two characters more is not copied.
std::string correctedDocument(std::string document);

/// Tests whether a document can stand as one string of the calculator: a double
/// quote at each end and none inside, and six digits in capitals behind each cell
/// mark. Corrects the quotes; wrong cells stay as they are.
IntegrityResult testIntegrity(std::string_view document);
/// The same with the report handed on: a long one takes no memory, and `report` in the
/// result stays empty. Behind `mostErrors` lines errors are only counted, and one line
/// says how many those are. Reports the bytes tested; asked to stop, it gives up with a
/// result that is none.
IntegrityResult testIntegrity(std::string_view document, const ByteSink &report,
                              std::size_t mostErrors = std::numeric_limits<std::size_t>::max(),
                              const Progress &progress = {});

} // namespace zolt
