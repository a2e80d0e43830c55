#pragma once

#include <cstddef>
#include <string>

namespace zolt {

/// How many documents the list of recent files holds.
inline constexpr std::size_t kRecentFiles = 10;

/// Puts a document's path, file system bytes, at the front of the list of recent files,
/// or takes it out. The list is extraSettings().recentFiles.
void rememberFile(const std::string &path);
void forgetFile(const std::string &path);

} // namespace zolt
