#pragma once

#include <cstddef>
#include <string_view>

namespace zolt {

/// The four counts of "Word count". A word ends at a blank, CR or tab, and at the
/// text's end unless that is a line feed; a line feed parts no words. What ends a
/// word, also a CR, counts as one character of CaracteresComEspaços.
struct WordCount {
    std::size_t Palavras = 0;
    std::size_t CaracteresSemEspaços = 0;
    std::size_t CaracteresComEspaços = 0;
    /// Line ends; a last line without one is no paragraph.
    std::size_t Parágrafos = 0;

    bool operator==(const WordCount &) const = default;
};

WordCount countWords(std::string_view text);

} // namespace zolt
