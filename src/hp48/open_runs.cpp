#include "hp48/open_runs.h"

#include <algorithm>

namespace zolt {

namespace {

/// The letter behind a mark at the place; a zero byte where no mark stands.
char letterAt(const StyleMarks &marks, StyleMarks::Place at) {
    return marks.at(at) == kStyleMark ? marks.at(marks.advance(at, 1)) : '\0';
}

} // namespace

StyleMarks::Place OpenRuns::takeCodes(StyleMarks &marks, KnownEnds &ends, StyleMarks::Place at) {
    char letter = letterAt(marks, at);
    for (std::size_t i = 0; i < kStyleCodes.size(); ++i) {
        if (letter != kStyleCodes[i].letter)
            continue;
        at = marks.advance(at, 2);
        if (const auto partner = marks.takeFirst(i, at)) {
            ends.forget(at.position, *partner);
            at = marks.settled(at);
            m_runs.push_back({*partner, kStyleCodes[i].style});
        }
        letter = letterAt(marks, at);
    }
    return at;
}

Style OpenRuns::styleAt(std::size_t position) {
    while (!m_runs.empty() && m_runs.back().end <= position)
        m_runs.pop_back();
    return m_runs.empty() ? Style::Plain : m_runs.back().style;
}

std::size_t OpenRuns::endOfStyle(std::size_t limit) const {
    return m_runs.empty() ? limit : std::min(limit, m_runs.back().end);
}

} // namespace zolt
