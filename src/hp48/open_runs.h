#pragma once

#include "core/codes.h"
#include "hp48/picture_chain.h"
#include "hp48/style_marks.h"

#include <cstddef>
#include <vector>

namespace zolt {

/// The runs of styles that are open where a reader stands that takes the codes out of a
/// text. Runs opened later lie on top of those opened before.
class OpenRuns {
public:
    /// Takes out the codes at a place, and the partners of those that open a run. Each
    /// letter is tried once, in the order of kStyleCodes. Gives where the text goes on.
    StyleMarks::Place takeCodes(StyleMarks &marks, KnownEnds &ends, StyleMarks::Place at);

    /// The style at a position; positions never go back.
    Style styleAt(std::size_t position);
    /// Where the style that was asked for last holds no more, or `limit`.
    std::size_t endOfStyle(std::size_t limit) const;

private:
    struct Run {
        std::size_t end;
        Style style;
    };
    std::vector<Run> m_runs;
};

} // namespace zolt
