#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <queue>
#include <thread>

namespace zolt {

/// Jobs that run one after the other beside the windows. They touch nothing that the
/// windows have: each holds the values that it needs.
class BackgroundWork {
public:
    BackgroundWork();
    /// Waits for all jobs.
    ~BackgroundWork();
    BackgroundWork(const BackgroundWork &) = delete;
    BackgroundWork &operator=(const BackgroundWork &) = delete;

    void run(std::function<void()> job);
    /// Waits until all jobs so far are done.
    void finish();

private:
    void work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::queue<std::function<void()>> m_jobs;
    bool m_isBusy = false;
    bool m_ends = false;
    std::thread m_thread; // the last, so that all else is there when it starts
};

} // namespace zolt
