#include "shell/base/command_table.h"

#include "platform/svg_icon.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace zolt {

namespace {

QIcon iconOf(const char *name) {
    return name ? svgIcon(QString::fromUtf8(name)) : QIcon();
}

/// Lets `action` call the public slot of that name; slots have no arguments.
void connectSlot(QAction *action, const Receivers &receivers, const char *slot, void (*prepare)()) {
    if (!slot)
        return;
    QObject::connect(action, &QAction::triggered, action, [receivers, slot, prepare] {
        const QByteArray signature = QByteArray(slot) + "()";
        for (QObject *object : receivers()) {
            if (object->metaObject()->indexOfMethod(signature) < 0)
                continue;
            if (prepare)
                prepare();
            QMetaObject::invokeMethod(object, slot, Qt::DirectConnection);
            return;
        }
    });
}

QAction *addItem(QMenu *menu, const MenuRow &row, const Receivers &receivers) {
    auto *action = new QAction(iconOf(row.icon), QString::fromUtf8(row.caption), menu);
    action->setObjectName(QString::fromUtf8(row.name));
    action->setIconVisibleInMenu(true);
    if (row.key) {
        action->setShortcuts(QKeySequence::listFromString(QString::fromUtf8(row.key)));
        action->setShortcutContext(Qt::WindowShortcut);
    }
    if (row.check != MenuRow::Plain) {
        action->setCheckable(true);
        action->setChecked(row.check == MenuRow::Checked);
    }
    action->setEnabled(row.slot != nullptr);
    connectSlot(action, receivers, row.slot, row.prepare);
    menu->addAction(action);
    return action;
}

bool isSubmenu(const QList<MenuRow> &rows, qsizetype i) {
    return i + 1 < rows.size() && rows[i + 1].level > rows[i].level;
}

} // namespace

QList<QMenu *> buildMenus(const QList<MenuRow> &rows, const Receivers &receivers, QWidget *owner) {
    QList<QMenu *> topLevel;
    QList<QMenu *> open;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const MenuRow &row = rows[i];
        open.resize(row.level);
        if (row.level == 0 || isSubmenu(rows, i)) {
            auto *menu = new QMenu(QString::fromUtf8(row.caption), open.isEmpty() ? owner : open.last());
            menu->setObjectName(QString::fromUtf8(row.name));
            menu->menuAction()->setObjectName(QString::fromUtf8(row.name));
            if (open.isEmpty())
                topLevel << menu;
            else
                open.last()->addMenu(menu);
            open << menu;
        } else if (qstrcmp(row.caption, "-") == 0) {
            open.last()->addSeparator()->setObjectName(QString::fromUtf8(row.name));
        } else {
            addItem(open.last(), row, receivers);
        }
    }
    return topLevel;
}

void buildToolBar(QToolBar *bar, const QList<ToolRow> &rows, const Receivers &receivers) {
    for (const ToolRow &row : rows) {
        if (!*row.key) {
            bar->addSeparator();
            continue;
        }
        auto *action = new QAction(iconOf(row.icon), QString::fromUtf8(row.toolTip), bar);
        action->setObjectName(QString::fromUtf8(row.key));
        action->setToolTip(QString::fromUtf8(row.toolTip));
        action->setCheckable(row.check != MenuRow::Plain);
        action->setChecked(row.check == MenuRow::Checked);
        connectSlot(action, receivers, row.slot, row.prepare);
        bar->addAction(action);
        bar->widgetForAction(action)->setObjectName(QString::fromUtf8(row.key));
    }
}

QAction *menuItem(const QList<QMenu *> &menus, const char *name) {
    for (QMenu *menu : menus)
        if (auto *action = menu->findChild<QAction *>(QString::fromUtf8(name)))
            return action;
    return nullptr;
}

} // namespace zolt
