#pragma once

#include "shell/base/command_table.h"

namespace zolt {

/// The menus of the empty frame.
const QList<MenuRow> &frameMenuTable();
/// The frame's own toolbar, whose receiver is the frame.
const QList<ToolRow> &frameToolbarTable();
/// The Window menu's items, alike in the frame and in the document windows; `level`
/// is the level of the items.
QList<MenuRow> windowMenuRows(bool enabled);

/// The sizes that the font size lists offer, in points.
inline constexpr int kFontSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

} // namespace zolt
