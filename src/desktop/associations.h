#pragma once

#include "desktop/folders.h"

#include <string>
#include <string_view>

namespace zolt::desktop {

/// The program that a file manager opens files of an extension with, as an absolute path;
/// empty if there is none. The extension may have its leading point. Names alone count,
/// as for an empty file: the type is that of the best pattern, and the program the first
/// that is there of those which the lists mimeapps.list and mimeinfo.cache name for the
/// type or one that it is a kind of (MIME Applications Associations Specification).
std::string programFor(std::string_view extension, const Folders &folders);

} // namespace zolt::desktop
