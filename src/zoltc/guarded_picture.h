#pragma once

#include "images/image_text.h"
#include "zoltc/command.h"

#include <cstdint>
#include <string>

namespace zolt::cli {

/// What reading a PC picture gave: its dots and Done, or the reason and what the command
/// ends with, Refused where the picture is beyond the limits.
struct GuardedPicture {
    PictureOfText picture;
    Exit exit = Done;
};

/// What decoding may take: the largest picture, and nearly as much again.
inline constexpr std::uint64_t kMostDecodingBytes = std::uint64_t{384} << 20;

/// The dots of a PC picture on a surface of `width` by `height` dots. The decoders are
/// other people's work and the file anybody's: they run in a process of their own, which
/// ends if it takes more than eight seconds of work or `mostBytes`, and whose end is no harm.
GuardedPicture readGuardedPicture(const std::string &file, int width, int height,
                                  std::uint64_t mostBytes = kMostDecodingBytes);

} // namespace zolt::cli
