#pragma once

#include "desktop/folders.h"

#include <string>
#include <string_view>

namespace zolt::desktop {

/// Lets the user's desktop open files of an extension with a program: writes the type, the
/// program's entry and its place as the default below the user's folders, and leaves all
/// else in those files as it is. Once is as good as twice. The desktop knows the type once
/// its databases are refreshed. `format` is the type's name as people read it. Returns the
/// reason of the first failure, else an empty text.
std::string registerType(std::string_view extension, std::string_view program, std::string_view format,
                         const Folders &folders);

} // namespace zolt::desktop
