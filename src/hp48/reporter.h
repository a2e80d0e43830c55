#pragma once

#include "core/progress.h"

namespace zolt {

/// Passes the positions of one long walk on to a Progress, the first one at once
/// and then one in some thousands.
class Reporter {
public:
    Reporter(const Progress &progress, std::size_t total) : m_progress(progress), m_total(total) {}

    /// True unless the work shall stop. `position` never goes down.
    bool goOn(std::size_t position) {
        if (position < m_next)
            return true;
        m_next = position + kEvery;
        return zolt::goOn(m_progress, position, m_total);
    }

private:
    static constexpr std::size_t kEvery = 4096;

    const Progress &m_progress;
    std::size_t m_total;
    std::size_t m_next = 0;
};

} // namespace zolt
