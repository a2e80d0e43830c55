#pragma once

#include "core/progress.h"

class QProgressBar;
class QWidget;

namespace zolt {

/// How often long work lets the windows live, in milliseconds.
inline constexpr int kYieldEvery = 10;

/// A Progress for long work in a window. Every few milliseconds it calls `show` with
/// the step reached and lets the event loop run, so that a button can make `stopped`
/// true; the work then ends at once. While a copy of the Progress lives, no window that
/// tells outliveWork of its closing is deleted.
Progress livelyProgress(std::function<void(std::size_t step, std::size_t total)> show,
                        std::function<bool()> stopped);

/// The same for the reading of a picture, shown in `bar`; PararLeitura stops it.
Progress readingProgress(QProgressBar *bar);

/// A closing window calls it, so that work that is under way, its own or another's, still
/// finds it: the window goes when the work has ended.
void outliveWork(QWidget &window);

} // namespace zolt
