#pragma once

#include <string>

namespace zolt {

/// The file, file system bytes, that waits for an edition to be chosen for it.
const std::string &fileToOpen();
/// Lets the user choose the edition of a file.
void askForEditionOf(const std::string &path);

/// Makes a file the document in use, in the edition that its ending tells, else in the one
/// in use, else in the one that the user chooses. Changes of the document in use are asked
/// about; one of the other edition closes. The reason is returned, and nothing has changed,
/// if the file can't be opened.
std::string openDocument(const std::string &path);

/// Opens a recent file. One that can't be opened gives a message, and leaves the list if it
/// is gone.
void openRecentFile(const std::string &path);

/// Says in a message box why a file can't be opened.
void sayNotOpened(const std::string &path, const std::string &reason);

} // namespace zolt
