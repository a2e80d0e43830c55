#include "core/new_file.h"

#include "core/path.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace zolt {

namespace {

constexpr std::string_view kPrefix = ".zolt-";
constexpr char kTemplate[] = ".zolt-XXXXXX";
constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};
/// A file so old, in seconds, that no program can be just about to lock it.
constexpr std::time_t kSettled = 60;

/// The name of a new file that exists now, for the handler of signals: taken while it is
/// written here, ready once it stands.
struct NamedFile {
    std::atomic<bool> taken = false;
    std::atomic<bool> ready = false;
    std::array<char, 4096> name{};
};
std::array<NamedFile, 16> namedFiles;

void remember(const std::string &name) {
    for (NamedFile &file : namedFiles) {
        bool expected = false;
        if (name.size() >= file.name.size() || !file.taken.compare_exchange_strong(expected, true))
            continue;
        std::memcpy(file.name.data(), name.c_str(), name.size() + 1);
        file.ready = true;
        return;
    }
}

void forget(const std::string &name) {
    for (NamedFile &file : namedFiles)
        if (file.ready && name == file.name.data()) {
            file.ready = false;
            file.taken = false;
        }
}

/// Only what a handler of signals may do.
void endBySignal(int signal) {
    for (NamedFile &file : namedFiles)
        if (file.ready)
            ::unlink(file.name.data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::string folderToOpen(const std::string &target) {
    const std::string folder = folderOf(target);
    return folder.empty() ? "." : folder;
}

/// A file without a name, or less than 0 where that can't be or it couldn't be named later.
int makeNameless(const std::string &folder) {
    return ::access("/proc/self/fd", X_OK) == 0
               ? ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR)
               : -1;
}

bool isSettledFile(int folder, const char *name) {
    struct stat status {};
    return ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == ::geteuid() && std::time(nullptr) - status.st_mtime > kSettled;
}

/// Takes a file away that no program holds locked.
void clearLeftOver(int folder, const char *name) {
    if (!isSettledFile(folder, name))
        return;
    const int fd = ::openat(folder, name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (fd < 0)
        return;
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
        ::unlinkat(folder, name, 0);
    ::close(fd);
}

void clearLeftOvers(const std::string &folder) {
    DIR *entries = ::opendir(folder.c_str());
    if (!entries)
        return;
    while (const dirent *entry = ::readdir(entries)) {
        const std::string_view name = entry->d_name;
        if (name.size() == std::strlen(kTemplate) && name.starts_with(kPrefix))
            clearLeftOver(::dirfd(entries), entry->d_name);
    }
    ::closedir(entries);
}

/// A name beside the target that no file has.
std::string freeName(const std::string &target) {
    std::string name = folderOf(target) + kTemplate;
    const int fd = ::mkostemp(name.data(), O_CLOEXEC);
    if (fd < 0)
        return {};
    ::close(fd);
    ::unlink(name.c_str());
    return name;
}

bool linkTo(int fd, const std::string &name) {
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    return ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

} // namespace

void onEndingSignals(void (*handler)(int signal)) {
    for (const int signal : kEndingSignals)
        if (std::signal(signal, handler) == SIG_IGN)
            std::signal(signal, SIG_IGN);
}

void leaveNoFilesOnSignals() {
    onEndingSignals(endBySignal);
    std::signal(SIGXFSZ, SIG_IGN);
}

SignalsWait::SignalsWait() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : kEndingSignals)
        sigaddset(&ending, signal);
    ::pthread_sigmask(SIG_BLOCK, &ending, &m_before);
}

SignalsWait::~SignalsWait() {
    ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

bool NewFile::make(const std::string &target) {
    const std::string folder = folderToOpen(target);
    clearLeftOvers(folder);
    m_fd = makeNameless(folder);
    if (m_fd >= 0)
        return true;
    const SignalsWait wait;
    m_name = folderOf(target) + kTemplate;
    m_fd = ::mkostemp(m_name.data(), O_CLOEXEC);
    if (m_fd < 0) {
        m_name.clear();
        return false;
    }
    ::flock(m_fd, LOCK_EX | LOCK_NB);
    remember(m_name);
    return true;
}

void NewFile::adopt(int fd, std::string name) {
    m_fd = fd;
    m_name = std::move(name);
    remember(m_name);
}

bool NewFile::replace(const std::string &target) {
    const SignalsWait wait;
    if (m_name.empty()) {
        if (linkTo(m_fd, target))
            return true;
        if (errno != EEXIST)
            return false;
        ::flock(m_fd, LOCK_EX | LOCK_NB);
        std::string name = freeName(target);
        if (name.empty() || !linkTo(m_fd, name))
            return false;
        m_name = std::move(name);
        remember(m_name);
    }
    if (::rename(m_name.c_str(), target.c_str()) != 0)
        return false;
    forget(m_name);
    m_name.clear();
    return true;
}

void NewFile::discard() {
    if (m_fd < 0)
        return;
    const int error = errno;
    ::close(std::exchange(m_fd, -1));
    if (!m_name.empty()) {
        ::unlink(m_name.c_str());
        forget(m_name);
        m_name.clear();
    }
    errno = error;
}

} // namespace zolt
