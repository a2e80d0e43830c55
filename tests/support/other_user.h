#pragma once

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt::test {

/// Runs a function in a process that isn't root, who may do everything. Whether it
/// gave true.
template <typename Function> bool asNobody(Function function) {
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        const bool ready = geteuid() != 0 || setuid(kNobody) == 0;
        _exit(ready && function() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0;
}

/// Stops writing at some bytes of a file, as a full disk does.
inline void limitFiles(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace zolt::test
