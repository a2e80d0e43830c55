#include "core/file.h"

#include "core/atomic_file.h"
#include "core/descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace zolt {

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
    contents.bytes.resize(static_cast<std::size_t>(status.st_size));
    std::size_t filled = 0;
    while (filled < contents.bytes.size()) {
        const ssize_t got =
            ::read(file.get(), contents.bytes.data() + filled, contents.bytes.size() - filled);
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
    AtomicFile file(path);
    file.append(bytes);
    return file.commit();
}

} // namespace zolt
