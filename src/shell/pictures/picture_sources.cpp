#include "shell/pictures/picture_sources.h"

#include "core/file.h"
#include "images/image_text.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/pictures.h"
#include "shell/pictures/picture_filters.h"

#include <QLabel>

namespace zolt {

std::string readPictureText(const std::string &path) {
    const FileContents file = readFile(path, kLargestImageText);
    return file.ok() ? pictureTextFromFile(file.bytes) : std::string();
}

void sayRefused(QWidget *owner, const std::string &path, const std::string &reason) {
    const QString words = QString::fromStdString(reason);
    if (reason == kPictureNotRecognised)
        return showMessage(owner, words, QMessageBox::Critical);
    showMessage(owner, QStringLiteral("%1 can't be opened: %2.").arg(fromFileName(titleOf(path)), words),
                QMessageBox::Warning);
}

QLabel *newNothingShows() {
    auto *label = new QLabel(QStringLiteral("No dot of this picture is black: nothing would show."));
    label->setObjectName(QStringLiteral("NothingShows"));
    label->setWordWrap(true);
    label->hide();
    return label;
}

} // namespace zolt
