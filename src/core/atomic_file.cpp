#include "core/atomic_file.h"

#include "core/descriptor.h"
#include "core/file_in_place.h"
#include "core/path.h"
#include "core/rights.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

namespace {

/// The file that a chain of symbolic links leads to; `path` itself for any other.
std::string linkTarget(const std::string &path) {
    constexpr int kMostLinks = 32;
    std::string target = path;
    for (int hops = 0; hops < kMostLinks; ++hops) {
        char buffer[4096];
        const ssize_t length = ::readlink(target.c_str(), buffer, sizeof buffer);
        if (length <= 0)
            break;
        const std::string next(buffer, static_cast<std::size_t>(length));
        target = next.starts_with('/') ? next : folderOf(target).append(next);
    }
    return target;
}

/// The permissions of a new file, as the process's mask leaves them.
mode_t newFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

/// Whether an error says that a folder or a file may not be changed in this way, while
/// another way may be open: a folder of others, a sticky one, a read-only file system
/// with a writable file on it, a file that is itself a mount.
bool isRefusal(int error) {
    constexpr std::array kRefusals{EACCES, EPERM, EROFS, EBUSY, EXDEV};
    return std::find(kRefusals.begin(), kRefusals.end(), error) != kRefusals.end();
}

void flushFolder(const std::string &folder) {
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

} // namespace

AtomicFile::AtomicFile(const std::string &path) : m_target(linkTarget(path)) {
    open();
}

void AtomicFile::open() {
    struct stat status {};
    m_targetExists = ::stat(m_target.c_str(), &status) == 0;
    if (!m_targetExists && errno != ENOENT)
        return fail(errno);
    if (m_targetExists && !S_ISREG(status.st_mode)) {
        m_reason = S_ISDIR(status.st_mode) ? reasonOf(EISDIR) : "Not a regular file";
        return;
    }
    // A file that its owner made read-only is not replaced behind his back.
    if (m_targetExists && ::access(m_target.c_str(), W_OK) != 0)
        return fail(errno);
    if (!m_new.make(m_target) && m_targetExists && isRefusal(errno)) {
        m_isBeside = false;
        std::string name;
        if (const int fd = makeTemporaryFile(name); fd >= 0)
            m_new.adopt(fd, name);
    }
    if (!m_new.isOpen())
        return fail(errno);
    const bool hasRights = !m_isBeside || (m_targetExists ? copyRights(m_target, status, m_new.get())
                                                          : ::fchmod(m_new.get(), newFileMode()) == 0);
    if (!hasRights)
        fail(errno);
}

void AtomicFile::append(std::string_view bytes) {
    while (!bytes.empty() && m_reason.empty()) {
        const ssize_t written = ::write(m_new.get(), bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0 || errno != EINTR)
            fail(written == 0 ? EIO : errno);
    }
}

std::string AtomicFile::commit() {
    if (m_reason.empty() && ::fsync(m_new.get()) != 0)
        fail(errno);
    if (m_reason.empty())
        takePlace();
    m_new.discard();
    return m_reason;
}

void AtomicFile::takePlace() {
    if (m_isBeside && m_new.replace(m_target))
        flushFolder(folderOf(m_target));
    else if (!m_isBeside || (m_targetExists && isRefusal(errno)))
        m_reason = overwriteInPlace(m_new.get(), m_target);
    else
        fail(errno);
}

void AtomicFile::fail(int error) {
    if (m_reason.empty())
        m_reason = reasonOf(error);
}

} // namespace zolt
