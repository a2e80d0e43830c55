#pragma once

#include <QFont>
#include <QString>
#include <string>

namespace zolt {

/// Makes the program's own fonts known by name: all TrueType files of a folder,
/// given as file system bytes. False if the plain font isn't there afterwards.
bool loadFonts(const std::string &folder);

/// A font drawn without hinting, so that the program's own fonts stand on whole
/// pixels: at 10 points and 96 dots to the inch a dot is 2 by 2 pixels. Characters
/// that it lacks come from the plain font.
QFont zoltFont(const QString &name, double points);

} // namespace zolt
