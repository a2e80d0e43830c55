#pragma once

#include <cstddef>
#include <functional>

namespace zolt {

/// Called by long work with the step reached and the number of steps. A false
/// answer ends the work at once. Long work calls it at least every few thousand
/// bytes; whoever shows the progress decides by time how often the windows get
/// a turn. An empty function is never called.
using Progress = std::function<bool(std::size_t step, std::size_t total)>;

/// True unless `progress` asks to stop.
inline bool goOn(const Progress &progress, std::size_t step, std::size_t total) {
    return !progress || progress(step, total);
}

} // namespace zolt
