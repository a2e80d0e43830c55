#include "platform/undo_selections.h"

#include <algorithm>

namespace zolt {

void UndoSelections::clear() {
    m_steps.clear();
    m_depth = 0;
}

void UndoSelections::recordChange(int depth, PaneSelection before, PaneSelection after) {
    dropStepsBehind(m_depth);
    if (!m_steps.empty() && m_steps.back().depth >= depth)
        m_steps.back().after = after;
    else
        m_steps.push_back({depth, before, after});
    m_depth = depth;
}

void UndoSelections::setLatestAfter(PaneSelection after) {
    if (!m_steps.empty() && m_steps.back().depth == m_depth)
        m_steps.back().after = after;
}

void UndoSelections::extendLatest(int depth, PaneSelection after) {
    if (m_steps.empty())
        return;
    m_steps.back().depth = depth;
    m_steps.back().after = after;
    m_depth = depth;
}

std::optional<PaneSelection> UndoSelections::undoneTo(int depth) {
    m_depth = depth;
    const auto step = std::upper_bound(m_steps.begin(), m_steps.end(), depth,
                                       [](int wanted, const Step &s) { return wanted < s.depth; });
    if (step == m_steps.end())
        return std::nullopt;
    return step->before;
}

std::optional<PaneSelection> UndoSelections::redoneTo(int depth) {
    m_depth = depth;
    const auto next = std::upper_bound(m_steps.begin(), m_steps.end(), depth,
                                       [](int wanted, const Step &s) { return wanted < s.depth; });
    if (next == m_steps.begin())
        return std::nullopt;
    return std::prev(next)->after;
}

void UndoSelections::dropStepsBehind(int depth) {
    while (!m_steps.empty() && m_steps.back().depth > depth)
        m_steps.pop_back();
}

} // namespace zolt
