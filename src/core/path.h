#pragma once

#include <string>
#include <string_view>

namespace zolt {

/// The part of a path up to and including its last separator; empty without one.
std::string folderOf(std::string_view path);
/// The part of a path behind its last separator.
std::string titleOf(std::string_view path);
/// What stands behind the last point of that, its capitals as small letters; empty without
/// a point.
std::string extensionOf(std::string_view path);

} // namespace zolt
