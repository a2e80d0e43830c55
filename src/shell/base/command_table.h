#pragma once

#include <QList>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QObject;
class QToolBar;
class QWidget;

namespace zolt {

/// One row of a menu table. The rows below a submenu's row, one level deeper, are
/// its items. A caption of "-" is a separator.
struct MenuRow {
    int level;
    const char *name;
    const char *caption;
    /// The public slot of a receiver that the item calls; null for a submenu, and
    /// for an item that has no command and stands disabled.
    const char *slot = nullptr;
    /// The keys, the one that the menu shows first: "Ctrl+G; Ctrl+S".
    const char *key = nullptr;
    /// Name of the picture in the resources, without folder and extension.
    const char *icon = nullptr;
    enum Check { Plain, Checked, Unchecked } check = Plain;
    /// What the command puts into the shared values before its slot runs.
    void (*prepare)() = nullptr;
};

/// One row of a toolbar table. An empty key is a separator.
struct ToolRow {
    const char *key;
    const char *toolTip;
    const char *icon;
    /// As in MenuRow; a button without a slot does nothing.
    const char *slot = nullptr;
    void (*prepare)() = nullptr;
    /// Anything but Plain gives a button that stays down while its command's state is on.
    MenuRow::Check check = MenuRow::Plain;
};

/// The objects whose slots a table names, asked for at each command: a toolbar
/// outlives the document windows. The first that has the slot is called, so that what a
/// document window doesn't do itself goes to the frame.
using Receivers = std::function<QList<QObject *>()>;

/// The top-level menus that a table describes, in order. Every item and menu bears
/// its name as objectName; a submenu's action does too. The menus belong to `owner`.
QList<QMenu *> buildMenus(const QList<MenuRow> &rows, const Receivers &receivers, QWidget *owner);

/// Fills a toolbar. Each action and each button bears its key as objectName.
void buildToolBar(QToolBar *bar, const QList<ToolRow> &rows, const Receivers &receivers);

/// The item of this name in the menus, or null.
QAction *menuItem(const QList<QMenu *> &menus, const char *name);

} // namespace zolt
