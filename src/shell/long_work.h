#pragma once

#include "core/progress.h"

class QProgressBar;

namespace zolt {

/// How often long work lets the windows live, in milliseconds.
inline constexpr int kYieldEvery = 10;

/// A Progress for long work in a window. Every few milliseconds it calls `show` with
/// the step reached and lets the event loop run, so that a button can make `stopped`
/// true; the work then ends at once.
Progress livelyProgress(std::function<void(std::size_t step, std::size_t total)> show,
                        std::function<bool()> stopped);

/// The same for the reading of a picture, shown in `bar`; PararLeitura stops it.
Progress readingProgress(QProgressBar *bar);

} // namespace zolt
