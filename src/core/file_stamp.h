#pragma once

#include <cstdint>
#include <string>

namespace zolt {

/// By what one sees that a file has been changed: which file it is, its size and the time
/// of its last change, in nanoseconds since 1970.
struct FileStamp {
    bool exists = false;
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    std::int64_t time = 0;

    bool operator==(const FileStamp &) const = default;
};

/// The stamp of the file that a path leads to, links followed.
FileStamp stampOf(const std::string &path);

} // namespace zolt
