#pragma once

#include "core/path.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zolt {

/// What reading a file gave. `reason` says in words why it failed and is empty
/// when `bytes` holds the whole file.
struct FileContents {
    std::string bytes;
    std::string reason;

    bool ok() const { return reason.empty(); }
};

/// Files above this size are refused; documents of the calculator are far smaller.
inline constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 30;

/// Reads a whole regular file. `path` holds the bytes that the file system uses.
FileContents readFile(const std::string &path, std::uint64_t largest = kLargestFile);

/// Replaces the file `path` by `bytes`, or makes it, as an AtomicFile does: at every
/// moment the old or the new contents stand there whole, but for a file that can only
/// be written in place. Returns the reason of a
/// failure, else an empty text.
std::string writeFile(const std::string &path, std::string_view bytes);

} // namespace zolt
