#pragma once

#include "shell/base/command_table.h"

#include <string_view>

namespace zolt {

// The rows that stand in the menus and on the toolbars of both editions.

/// The two editions, where their rows name slots or values of their own.
enum class RowsOf { Textual, Graphical };
/// The menu bar's items and the pop-up menu's have names of their own.
enum class NamesOf { MenuBar, PopUp };

/// File, from New to Save As, and from the last separator to Exit.
QList<MenuRow> fileRows();
/// File: the page setup and printing, as a group.
QList<MenuRow> printRows();
/// The head of the submenu "Send to", and its item without a command.
QList<MenuRow> sendRows(const QList<MenuRow> &editions);
QList<MenuRow> exitRows();
QList<MenuRow> editRows();
/// View, from the status bar to Always on Top.
QList<MenuRow> viewRows();
/// View: the full screen, behind the previews.
QList<MenuRow> fullScreenRows();
/// The three sources of a picture, below a submenu "Image".
QList<MenuRow> imageRows(int level, NamesOf names, RowsOf edition);
/// The submenu of the nine styles.
QList<MenuRow> styleRows(NamesOf names, RowsOf edition);
/// Format, from the case commands to the schemes.
QList<MenuRow> caseAndColourRows();
/// The end of Tools.
QList<MenuRow> optionsRows();
QList<MenuRow> helpRows();
/// The pop-up menu from Undo to the head of its submenu Insert.
QList<MenuRow> popUpRows();

/// The standard toolbar: document, printing, then find to character table, which begin and end with
/// a separator.
QList<ToolRow> fileButtons();
QList<ToolRow> printButtons();
QList<ToolRow> editButtons();
/// The same behind the previews' buttons.
QList<ToolRow> fullScreenButtons();
/// The format toolbar: styles, colours and pictures. The graphical edition's style
/// buttons show the style at the caret.
QList<ToolRow> formatButtons(RowsOf edition);

/// The key of the button that gives a style, by the style's font.
struct StyleButton {
    std::string_view font;
    const char *key;
};
QList<StyleButton> styleButtons();

} // namespace zolt
