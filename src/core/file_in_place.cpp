#include "core/file_in_place.h"

#include "core/descriptor.h"
#include "core/new_file.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>

namespace zolt {

namespace {

/// Writes a piece at an offset. False, with the error in `errno`, if that fails.
bool writePiece(int to, std::string_view piece, off_t offset) {
    while (!piece.empty()) {
        const ssize_t written = ::pwrite(to, piece.data(), piece.size(), offset);
        if (written < 0 && errno != EINTR)
            return false;
        if (written == 0) {
            errno = EIO;
            return false;
        }
        if (written > 0) {
            piece.remove_prefix(static_cast<std::size_t>(written));
            offset += written;
        }
    }
    return true;
}

/// Makes the contents of `to` those of `from` and flushes them. What is longer is cut
/// last, so that bytes which go back find the room that they had. False, with the
/// error in `errno`, if that fails.
bool copyContents(int from, int to) {
    std::array<char, 1 << 16> piece;
    off_t offset = 0;
    while (const ssize_t got = ::pread(from, piece.data(), piece.size(), offset)) {
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0 || !writePiece(to, {piece.data(), static_cast<std::size_t>(got)}, offset))
            return false;
        offset += got;
    }
    return ::ftruncate(to, offset) == 0 && ::fsync(to) == 0;
}

/// Puts the new bytes there, or the old ones back.
std::string replaceContents(int from, int to, int old, const std::string &oldName) {
    if (copyContents(from, to)) {
        ::unlink(oldName.c_str());
        return {};
    }
    std::string reason = reasonOf(errno);
    if (!copyContents(old, to))
        return reason + " (the old contents are in " + oldName + ")";
    ::unlink(oldName.c_str());
    return reason;
}

} // namespace

int makeTemporaryFile(std::string &name) {
    // Without a choice of the user's, where files outlive a restart.
    const char *chosen = std::getenv("TMPDIR");
    for (const char *folder : {chosen, "/var/tmp", "/tmp"}) {
        if (!folder || !*folder)
            continue;
        name = std::string(folder) + "/zolt-XXXXXX";
        if (const int fd = ::mkostemp(name.data(), O_CLOEXEC); fd >= 0)
            return fd;
    }
    return -1;
}

std::string overwriteInPlace(int from, const std::string &path) {
    const SignalsWait wait; // half of the new bytes over half of the old ones is no file
    const Descriptor target(::open(path.c_str(), O_RDWR | O_CLOEXEC));
    if (!target.isOpen())
        return reasonOf(errno);
    std::string oldName;
    const Descriptor old(makeTemporaryFile(oldName));
    if (!old.isOpen())
        return reasonOf(errno);
    if (!copyContents(target.get(), old.get())) {
        std::string reason = reasonOf(errno);
        ::unlink(oldName.c_str());
        return reason;
    }
    return replaceContents(from, target.get(), old.get(), oldName);
}

} // namespace zolt
