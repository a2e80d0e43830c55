#include "core/file.h"

#include "core/atomic_file.h"
#include "core/descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

namespace {

/// Small enough to stay in the processor's cache.
constexpr std::size_t kPiece = std::size_t{1} << 16;
/// Quotes and a line end can be put to what was read without taking memory anew.
constexpr std::size_t kRoomForMore = 16;

/// Adds what a file holds, up to `size` bytes of it. False, with the error in `errno`, if
/// it can't be read.
bool readUpTo(int file, std::size_t size, std::string &bytes) {
    bytes.reserve(size + kRoomForMore);
    // A text that is made long enough beforehand is filled with zeros first.
    std::array<char, kPiece> piece;
    while (bytes.size() < size) {
        const ssize_t got = ::read(file, piece.data(), std::min(piece.size(), size - bytes.size()));
        if (got == 0)
            break;
        if (got > 0)
            bytes.append(piece.data(), static_cast<std::size_t>(got));
        else if (errno != EINTR)
            return false;
    }
    return true;
}

} // namespace

FileContents readFile(const std::string &path, std::uint64_t largest) {
    FileContents contents;
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
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
    if (!readUpTo(file.get(), static_cast<std::size_t>(status.st_size), contents.bytes)) {
        contents.reason = reasonOf(errno);
        contents.bytes.clear();
    }
    return contents;
}

std::string writeFile(const std::string &path, std::string_view bytes) {
    AtomicFile file(path);
    file.append(bytes);
    return file.commit();
}

} // namespace zolt
