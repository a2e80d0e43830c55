#include "platform/message_box.h"

#include "platform/owned_dialog.h"

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

void showMessage(QWidget *owner, const QString &text, QMessageBox::Icon icon, const QString &title) {
    ask(owner, text, QMessageBox::Ok, icon, title);
}

} // namespace zolt
