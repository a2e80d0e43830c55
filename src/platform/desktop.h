#pragma once

#include <QString>
#include <string>

namespace zolt {

/// Opens a file in the program that the desktop has for it. `path` is file system
/// bytes. False if the desktop has none.
bool openInDesktop(const std::string &path);

/// Text for the screen from bytes of code page 1252, and file names from theirs.
QString fromWindows(std::string_view bytes);
/// The bytes of a text in code page 1252; "?" for characters that it lacks.
std::string windowsBytes(const QString &text);
QString fromFileName(const std::string &bytes);
std::string fileNameBytes(const QString &name);

} // namespace zolt
