#pragma once

#include <QMessageBox>
#include <QString>
#include <QStringList>

class QWidget;

namespace zolt {

/// A plain box with an OK button. Without a title it bears the program's name.
void showMessage(QWidget *owner, const QString &text, QMessageBox::Icon icon = QMessageBox::NoIcon,
                 const QString &title = QStringLiteral("ZOLT"));

/// A box that asks; gives the button that closed it. Escape and the window's own
/// close button count as Cancel, or as No where there is no Cancel.
QMessageBox::StandardButton ask(QWidget *owner, const QString &text, QMessageBox::StandardButtons buttons,
                                QMessageBox::Icon icon, const QString &title = QStringLiteral("ZOLT"),
                                QMessageBox::StandardButton preselected = QMessageBox::NoButton);

/// A box with buttons of its own; gives the number of the one that closed it, from 0.
/// Escape and the window's own close button count as the last one; Enter as the first.
int choose(QWidget *owner, const QString &text, const QStringList &buttons, QMessageBox::Icon icon);

} // namespace zolt
