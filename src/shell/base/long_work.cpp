#include "shell/base/long_work.h"

#include "shell/base/shared_values.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QList>
#include <QPointer>
#include <QProgressBar>
#include <memory>

namespace zolt {

namespace {

/// Work that is under way. The windows that close meanwhile wait for the last of it.
class Work {
public:
    Work() { ++running; }
    ~Work() {
        if (--running > 0)
            return;
        for (const QPointer<QWidget> &window : std::exchange(closed, {}))
            if (window)
                window->deleteLater();
    }
    Work(const Work &) = delete;
    Work &operator=(const Work &) = delete;

    static inline int running = 0;
    static inline QList<QPointer<QWidget>> closed;
};

} // namespace

Progress livelyProgress(std::function<void(std::size_t, std::size_t)> show, std::function<bool()> stopped) {
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    return [clock, work = std::make_shared<Work>(), show = std::move(show),
            stopped = std::move(stopped)](std::size_t step, std::size_t total) {
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
        [bar = QPointer<QProgressBar>(bar)](std::size_t step, std::size_t total) {
            if (!bar)
                return;
            bar->setRange(0, static_cast<int>(total));
            bar->setValue(static_cast<int>(step));
        },
        [] { return shared::PararLeitura != 0; });
}

void outliveWork(QWidget &window) {
    if (Work::running == 0 || !window.testAttribute(Qt::WA_DeleteOnClose))
        return;
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    Work::closed << &window;
}

} // namespace zolt
