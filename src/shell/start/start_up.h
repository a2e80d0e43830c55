#pragma once

#include <string>

class QWidget;

namespace zolt {

class MDIFrm;

/// What must stand before the application object: scaling by whole numbers, 96
/// dots to the inch, so that a point size always gives the same pixels.
void prepareApplication();

/// Loads the fonts, reads the settings, raises the frame and opens the file that
/// the command line names, or shows the edition chooser. `commandLine` is one file
/// name as file system bytes, with or without double quotes around it. The program
/// goes on until the frame says that it has ended.
MDIFrm &startProgram(const std::string &commandLine);

} // namespace zolt
