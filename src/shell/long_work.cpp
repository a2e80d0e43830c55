#include "shell/long_work.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <memory>

namespace zolt {

Progress livelyProgress(std::function<void(std::size_t, std::size_t)> show, std::function<bool()> stopped) {
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    return
        [clock, show = std::move(show), stopped = std::move(stopped)](std::size_t step, std::size_t total) {
            if (clock->elapsed() >= kYieldEvery) {
                if (show)
                    show(step, total);
                QCoreApplication::processEvents();
                clock->restart();
            }
            return !stopped();
        };
}

} // namespace zolt
