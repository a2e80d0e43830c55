#include "chaos/hit.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt::test {

namespace {

constexpr uid_t kUser = 65534;
constexpr rlim_t kFewBytes = 3;

std::string elsewhere(const std::string &folder) {
    return folder.substr(0, folder.size() - 1) + "-gone";
}

void limitFiles(pid_t program, rlim_t bytes) {
    const rlimit limit{bytes, RLIM_INFINITY};
    ::prlimit(program, RLIMIT_FSIZE, &limit, nullptr);
}

} // namespace

const char *nameOf(Hit hit) {
    constexpr std::array kNames{"kill",      "terminate",      "interrupt",         "hang up",
                                "full disk", "folder forbids", "file is read-only", "folder is gone"};
    return kNames[static_cast<std::size_t>(hit)];
}

int signalOf(Hit hit) {
    constexpr std::array kSignals{SIGKILL, SIGTERM, SIGINT, SIGHUP};
    const auto number = static_cast<std::size_t>(hit);
    return number < kSignals.size() ? kSignals[number] : 0;
}

void begin(Hit hit, const Victim &victim) {
    switch (hit) {
    case Hit::FullDisk:
        return limitFiles(victim.program, kFewBytes);
    case Hit::FolderForbids:
        ::chmod(victim.folder.c_str(), 0500);
        return;
    case Hit::FileIsReadOnly:
        ::chmod(victim.file.c_str(), 0440);
        return;
    case Hit::FolderIsGone:
        ::rename(victim.folder.c_str(), elsewhere(victim.folder).c_str());
        return;
    default:
        ::kill(victim.program, signalOf(hit));
    }
}

void end(Hit hit, const Victim &victim) {
    switch (hit) {
    case Hit::FullDisk:
        return limitFiles(victim.program, RLIM_INFINITY);
    case Hit::FolderForbids:
        ::chmod(victim.folder.c_str(), 0700);
        return;
    case Hit::FileIsReadOnly:
        ::chmod(victim.file.c_str(), 0640);
        return;
    case Hit::FolderIsGone:
        ::rename(elsewhere(victim.folder).c_str(), victim.folder.c_str());
        return;
    default:
        return;
    }
}

void giveToUser(const std::string &path) {
    if (::geteuid() == 0 && ::chown(path.c_str(), kUser, kUser) != 0)
        std::abort();
}

pid_t startAsUser(const std::vector<std::string> &words, const std::vector<std::string> &environment,
                  int standardOutput) {
    const pid_t program = ::fork();
    if (program != 0)
        return program;
    if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(kUser) != 0 || ::setuid(kUser) != 0))
        ::_exit(126);
    const int nowhere = ::open("/dev/null", O_RDWR);
    ::dup2(standardOutput < 0 ? nowhere : standardOutput, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    for (const std::string &variable : environment)
        ::putenv(const_cast<char *>(variable.c_str()));
    std::vector<char *> arguments;
    for (const std::string &word : words)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
}

unsigned numberFrom(const char *variable, unsigned otherwise) {
    const char *value = std::getenv(variable);
    return value ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

} // namespace zolt::test
