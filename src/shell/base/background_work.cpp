#include "shell/base/background_work.h"

#include <utility>

namespace zolt {

BackgroundWork::BackgroundWork() : m_thread([this] { work(); }) {}

BackgroundWork::~BackgroundWork() {
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void BackgroundWork::run(std::function<void()> job) {
    {
        const std::lock_guard lock(m_mutex);
        m_jobs.push(std::move(job));
    }
    m_changed.notify_all();
}

void BackgroundWork::finish() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_jobs.empty() && !m_isBusy; });
}

void BackgroundWork::work() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ends || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        const std::function<void()> job = std::move(m_jobs.front());
        m_jobs.pop();
        m_isBusy = true;
        lock.unlock();
        job();
        lock.lock();
        m_isBusy = false;
        m_changed.notify_all();
    }
}

} // namespace zolt
