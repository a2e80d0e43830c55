#pragma once

#include "core/progress.h"

#include <algorithm>
#include <cstddef>

namespace zolt {

/// Between two calls of a Progress: a small part of a millisecond's work.
inline constexpr std::size_t kBytesBetweenReports = 4096;

/// Passes the positions of one long walk on to a Progress: the first one that reaches
/// `first`, and then each that is a step or more beyond the last.
class Reporter {
public:
    Reporter(const Progress &progress, std::size_t total, std::size_t step = kBytesBetweenReports,
             std::size_t first = 0)
        : m_progress(progress), m_total(total), m_step(step), m_next(first) {}

    /// True unless the work shall stop. `position` never goes down; one beyond the
    /// total is told as the total.
    bool goOn(std::size_t position) {
        if (position < m_next)
            return true;
        m_next = position + m_step;
        return zolt::goOn(m_progress, std::min(position, m_total), m_total);
    }

private:
    const Progress &m_progress;
    std::size_t m_total;
    std::size_t m_step;
    std::size_t m_next;
};

} // namespace zolt
