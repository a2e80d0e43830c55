#include "platform/message_box.h"

#include "platform/owned_dialog.h"

#include <QPushButton>

namespace zolt {

QMessageBox::StandardButton ask(QWidget *owner, const QString &text, QMessageBox::StandardButtons buttons,
                                QMessageBox::Icon icon, const QString &title,
                                QMessageBox::StandardButton preselected) {
    const OwnedDialog<QMessageBox> box(icon, title, text, buttons, owner);
    box->setObjectName(QStringLiteral("MessageBox"));
    box->setTextFormat(Qt::PlainText);
    if (preselected != QMessageBox::NoButton)
        box->setDefaultButton(preselected);
    for (const auto leave : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Ok}) {
        if (buttons.testFlag(leave)) {
            box->setEscapeButton(leave);
            break;
        }
    }
    return static_cast<QMessageBox::StandardButton>(box->exec());
}

int choose(QWidget *owner, const QString &text, const QStringList &buttons, QMessageBox::Icon icon) {
    const OwnedDialog<QMessageBox> box(icon, QStringLiteral("ZOLT"), text, QMessageBox::NoButton, owner);
    box->setObjectName(QStringLiteral("MessageBox"));
    box->setTextFormat(Qt::PlainText);
    QList<QAbstractButton *> made;
    for (const QString &caption : buttons)
        made << box->addButton(caption, QMessageBox::ActionRole);
    box->setDefaultButton(static_cast<QPushButton *>(made.first()));
    box->setEscapeButton(made.last());
    box->exec();
    const qsizetype chosen = made.indexOf(box->clickedButton());
    return static_cast<int>(chosen < 0 ? made.size() - 1 : chosen);
}

void showMessage(QWidget *owner, const QString &text, QMessageBox::Icon icon, const QString &title) {
    ask(owner, text, QMessageBox::Ok, icon, title);
}

} // namespace zolt
