#pragma once

#include <QString>
#include <string>

namespace zolt {

/// Says something in panel 1 of the status bar of the document in use, where it stands
/// until the next save or key. Nothing happens while no document is open.
void sayInStatusBar(const QString &message);

/// Says that a file couldn't be written: "NAME wasn't saved: REASON". `path` is file
/// system bytes, `reason` what the file functions return; an empty one says nothing.
/// True if the reason is empty.
bool savedOrSaid(const std::string &path, const std::string &reason);

} // namespace zolt
