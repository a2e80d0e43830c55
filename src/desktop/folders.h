#pragma once

#include <string>
#include <vector>

namespace zolt::desktop {

/// Where a desktop keeps its files (XDG Base Directory Specification). Paths are absolute,
/// without a trailing separator; in each list the user's own folder stands first.
struct Folders {
    std::vector<std::string> data;
    std::vector<std::string> config;
    /// The running desktop's names in small letters, which its own lists begin with.
    std::vector<std::string> desktops;
    /// Where programs are looked for.
    std::vector<std::string> programs;
};

/// The folders that the environment names. `data` and `config` begin with an empty path
/// if the user has no home.
Folders foldersOfUser();

} // namespace zolt::desktop
