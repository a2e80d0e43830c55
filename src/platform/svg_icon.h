#pragma once

#include <QIcon>

namespace zolt {

/// An icon of the program's own, by its name without folder and ending. Its drawing is
/// read when the icon shows for the first time, and once for all its sizes; most icons of
/// the menus never show.
QIcon svgIcon(const QString &name);

} // namespace zolt
