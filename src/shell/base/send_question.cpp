#include "shell/base/send_question.h"

#include "platform/message_box.h"

namespace zolt {

bool mayLoseFormat(QWidget *owner, const char *edition) {
    const QString question = QStringLiteral("Sending this document to the %1 edition, may\r\n"
                                            "cause the lost of some formatting elements.\r\n"
                                            "Do you wish to proceed?")
                                 .arg(QString::fromUtf8(edition));
    return ask(owner, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Question) ==
           QMessageBox::Yes;
}

} // namespace zolt
