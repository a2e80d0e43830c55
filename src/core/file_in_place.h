#pragma once

#include <string>

namespace zolt {

/// Makes a file of the program's own in the folder of temporary files, readable by
/// the user alone, and opens it for reading and writing. Gives the descriptor, or
/// less than 0 and the error in `errno`.
int makeTemporaryFile(std::string &name);

/// Writes all bytes of the open file `from` over the file `path`, which keeps its
/// owner, permissions and hard links. A copy of the old bytes stands in the folder of
/// temporary files until the new ones are on the disk; if they can't be written, the
/// old ones go back. Returns the reason of a failure, else an empty text.
std::string overwriteInPlace(int from, const std::string &path);

} // namespace zolt
