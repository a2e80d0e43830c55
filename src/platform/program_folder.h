#pragma once

#include <string>

namespace zolt {

/// The folder of the settings and of the files that come with the program, as
/// file system bytes without a trailing separator: the one that the environment
/// variable ZOLT_HOME names; else the executable's own if it holds a ZOLT.ini or
/// may be written to and isn't the system's; else a folder of the user's own,
/// made at need and given the files that come with the program.
std::string programFolder();

/// Where the files that come with the program are found, without a trailing
/// separator: beside the executable, or in the data folder of its installation.
std::string installedDataFolder();

} // namespace zolt
