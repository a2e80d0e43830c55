#include "core/file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

namespace {

std::string reasonOf(int error) { return std::strerror(error); }

/// An open file that closes itself.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }
    int close() {
        const int result = m_fd >= 0 ? ::close(m_fd) : 0;
        m_fd = -1;
        return result;
    }

private:
    int m_fd;
};

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// The file that a chain of symbolic links leads to; `path` itself for any other.
std::string linkTarget(const std::string &path) {
    std::string target = path;
    for (int hops = 0; hops < 32; ++hops) {
        char buffer[4096];
        const ssize_t length = ::readlink(target.c_str(), buffer, sizeof buffer);
        if (length <= 0)
            break;
        const std::string next(buffer, static_cast<std::size_t>(length));
        target = next.starts_with('/') ? next : folderOf(target) + next;
    }
    return target;
}

void flushFolder(const std::string &folder) {
    Descriptor directory(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isOpen())
        ::fsync(directory.get());
}

} // namespace

FileContents readFile(const std::string &path, std::uint64_t largest) {
    FileContents contents;
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
        contents.reason = reasonOf(errno);
        return contents;
    }
    if (!S_ISREG(status.st_mode)) {
        contents.reason = S_ISDIR(status.st_mode) ? reasonOf(EISDIR) : "Not a regular file";
        return contents;
    }
    if (static_cast<std::uint64_t>(status.st_size) > largest) {
        contents.reason = reasonOf(EFBIG);
        return contents;
    }
    contents.bytes.resize(static_cast<std::size_t>(status.st_size));
    std::size_t filled = 0;
    while (filled < contents.bytes.size()) {
        const ssize_t got = ::read(file.get(), contents.bytes.data() + filled, contents.bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            contents.reason = reasonOf(errno);
            contents.bytes.clear();
            return contents;
        }
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    contents.bytes.resize(filled);
    return contents;
}

std::string writeFile(const std::string &path, std::string_view bytes) {
    const std::string target = linkTarget(path);
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? reasonOf(EISDIR) : "Not a regular file";
    // A file that its owner made read-only is not replaced behind his back.
    if (exists && ::access(target.c_str(), W_OK) != 0)
        return reasonOf(errno);

    std::string beside = folderOf(target) + ".zolt-XXXXXX";
    Descriptor file(::mkostemp(beside.data(), O_CLOEXEC));
    if (!file.isOpen())
        return reasonOf(errno);
    mode_t mask = ::umask(0);
    ::umask(mask);
    const mode_t mode = exists ? status.st_mode & 07777 : 0666 & ~mask;
    const bool whole = ::fchmod(file.get(), mode) == 0 && writeAll(file.get(), bytes) &&
                       ::fsync(file.get()) == 0 && file.close() == 0 &&
                       ::rename(beside.c_str(), target.c_str()) == 0;
    if (!whole) {
        const std::string reason = reasonOf(errno);
        ::unlink(beside.c_str());
        return reason;
    }
    flushFolder(folderOf(target));
    return {};
}

std::string folderOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return separator == std::string_view::npos ? std::string() : std::string(path.substr(0, separator + 1));
}

std::string titleOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

} // namespace zolt
