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

/// Shows the text edition's window with an empty document, and the frame.
void openTextEdition();

/// Opens the command line's file in the text edition. A file that can't be read
/// brings a message, then the edition chooser.
void openNamedFile();

/// The graphical edition isn't part of this version; says so.
void sayGraphicalEditionIsMissing(QWidget *owner);

} // namespace zolt
