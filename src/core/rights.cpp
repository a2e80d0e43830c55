#include "core/rights.h"

#include <cerrno>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace zolt {

namespace {

constexpr std::string_view kAccessList = "system.posix_acl_access";
constexpr mode_t kGroupRights = S_IRWXG;

/// Whether the file has the old one's group. Only root may give files away, and a user to
/// the groups that he is in, so that a failure is the usual outcome with another's file.
bool keepOwner(int fd, const struct stat &old) {
    return ::fchown(fd, old.st_uid, old.st_gid) == 0 || ::fchown(fd, static_cast<uid_t>(-1), old.st_gid) == 0;
}

std::vector<std::string> attributesOf(const std::string &file) {
    const ssize_t size = ::listxattr(file.c_str(), nullptr, 0);
    std::vector<std::string> names;
    if (size <= 0)
        return names;
    std::string list(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::listxattr(file.c_str(), list.data(), list.size());
    for (std::size_t i = 0; got > 0 && i < static_cast<std::size_t>(got); i += names.back().size() + 1)
        names.emplace_back(list.c_str() + i);
    return names;
}

/// False if the file has the attribute and the new one doesn't get it.
bool copyAttribute(const std::string &old, const std::string &name, int fd) {
    const ssize_t size = ::getxattr(old.c_str(), name.c_str(), nullptr, 0);
    if (size < 0)
        return errno == ENODATA;
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::getxattr(old.c_str(), name.c_str(), value.data(), value.size());
    return got >= 0 && ::fsetxattr(fd, name.c_str(), value.data(), static_cast<std::size_t>(got), 0) == 0;
}

} // namespace

bool copyRights(const std::string &old, const struct stat &status, int fd) {
    const bool hasGroup = keepOwner(fd, status);
    // A folder may give its new files a list of its own.
    ::fremovexattr(fd, kAccessList.data());
    bool hasList = false;
    bool keepsList = true;
    for (const std::string &name : attributesOf(old)) {
        const bool kept = copyAttribute(old, name, fd);
        if (name == kAccessList) {
            hasList = true;
            keepsList = kept;
        }
    }
    // With a list the group's rights in the mode are the list's mask. What another group
    // or a lost list would give away is cut down to what all others may do.
    mode_t mode = status.st_mode & 0777;
    if (!hasGroup || !keepsList)
        mode &= ~kGroupRights | (mode & S_IRWXO) << 3;
    return (hasList && keepsList && hasGroup) || ::fchmod(fd, mode) == 0;
}

} // namespace zolt
