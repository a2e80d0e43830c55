#pragma once

#include "shell/base/command_table.h"

namespace zolt {

/// The graphical edition's menu bar, pop-up menu (one top-level menu) and two toolbars.
const QList<MenuRow> &graphMenuTable();
const QList<MenuRow> &graphPopUpTable();
const QList<ToolRow> &graphStandardToolbarTable();
const QList<ToolRow> &graphFormatToolbarTable();

} // namespace zolt
