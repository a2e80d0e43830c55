#pragma once

#include <string>

class QLabel;
class QWidget;

namespace zolt {

// What the windows share that take a picture from a file.

/// The text of an image or GROB file; empty if it can't be read.
std::string readPictureText(const std::string &path);

/// Says in a message box of `owner` why a file gives no picture. `reason` is what the
/// reader of the file's form gave.
void sayRefused(QWidget *owner, const std::string &path, const std::string &reason);

/// A hidden label for pictures without an exactly black pixel: it says that no dot of
/// theirs would show.
QLabel *newNothingShows();

} // namespace zolt
