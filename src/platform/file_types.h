#pragma once

#include <string>

namespace zolt {

/// Lets the desktop open the files of an extension with a program, under the name of a
/// format: type, icon, program and default go into the user's own files, and what other
/// programs have there stays. `program` and `icon` are paths in file system bytes; the icon
/// is an ICO file. The desktop is told a moment later, by programs of its own that are not
/// waited for. Returns the reason of a failure, else an empty text.
std::string RegistarTipoDeFicheiro(const std::string &extension, const std::string &program,
                                   const std::string &format, const std::string &icon);

/// The path of the program that the desktop opens files of an extension with; empty if
/// there is none.
std::string ProgramaAssociado(const std::string &extension);

/// Whether that is this very program.
bool opensInThisProgram(const std::string &extension, const std::string &program);

} // namespace zolt
