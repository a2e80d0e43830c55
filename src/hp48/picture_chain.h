#pragma once

#include "hp48/style_marks.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zolt {

/// Line ends from which no further cell of a picture is reached, so that the search
/// need not be made again for each of a long row of pictures.
class KnownEnds {
public:
    explicit KnownEnds(std::size_t textSize) : m_textSize(textSize) {}

    bool has(std::size_t lineEnd) const { return lineEnd < m_known.size() && m_known[lineEnd]; }
    /// The last position that any search has looked at.
    std::size_t searchedTo() const { return m_searchedTo; }

    /// `searchedTo` is the last position that was looked at.
    void add(const std::vector<std::size_t> &lineEnds, std::size_t searchedTo) {
        if (m_known.empty() && !lineEnds.empty())
            m_known.resize(m_textSize);
        for (const std::size_t lineEnd : lineEnds)
            m_known[lineEnd] = true;
        m_searchedTo = std::max(m_searchedTo, searchedTo);
    }

    /// To be called when characters at `changed` are taken out; `reader` is where
    /// compiling goes on, behind which nothing is asked for.
    void forget(std::size_t reader, std::size_t changed) {
        if (m_known.empty() || changed > m_searchedTo || changed <= reader)
            return;
        const auto from = m_known.begin() + static_cast<std::ptrdiff_t>(reader);
        std::fill(from, m_known.begin() + static_cast<std::ptrdiff_t>(changed), false);
    }

private:
    std::size_t m_textSize;
    std::size_t m_searchedTo = 0;
    std::vector<bool> m_known;
};

/// The place behind the picture whose first cell stands at `begin`. A picture goes on
/// from cell to cell. Over a line end it goes together with the seven characters
/// behind it, whatever they are: only a cell that follows these makes the next line
/// part of the picture. A column of single cells is one picture for each.
StyleMarks::Place endOfPicture(const StyleMarks &marks, StyleMarks::Place begin, KnownEnds &ends);

} // namespace zolt
