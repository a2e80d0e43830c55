#pragma once

#include <csignal>
#include <sys/resource.h>

namespace zolt::test {

/// While it lives, no file of this process can grow beyond a few bytes.
class FullDisk {
public:
    FullDisk() : m_before(limit()), m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        const rlimit few{3, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &few);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    static rlimit limit() {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        return limit;
    }
    rlimit m_before;
    void (*m_handler)(int);
};

} // namespace zolt::test
