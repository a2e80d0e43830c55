#pragma once

#include <string>

struct stat;

namespace zolt {

/// Gives the open file `fd` the owner, permissions, access control list and extended
/// attributes of the file `old`, whose status is `status`, as far as the user may. Where
/// one of them can't be kept, group and others may do less with the file, never more.
/// False, with the error in `errno`, if the permissions can't be set at all.
bool copyRights(const std::string &old, const struct stat &status, int fd);

} // namespace zolt
