#include "shell/long_work.h"

#include "shell/shared_values.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressBar>
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

Progress readingProgress(QProgressBar *bar) {
    return livelyProgress(
        [bar](std::size_t step, std::size_t total) {
            bar->setRange(0, static_cast<int>(total));
            bar->setValue(static_cast<int>(step));
        },
        [] { return shared::PararLeitura != 0; });
}

} // namespace zolt
