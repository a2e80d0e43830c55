#pragma once

#include "shell/base/command_table.h"

namespace zolt {

/// The text edition's menu bar. The receiver of all its slots is EditTextFrm.
const QList<MenuRow> &textMenuTable();
/// The text edition's pop-up menu, one top-level menu.
const QList<MenuRow> &textPopUpTable();
/// The text edition's two toolbars.
const QList<ToolRow> &textStandardToolbarTable();
const QList<ToolRow> &textFormatToolbarTable();

} // namespace zolt
