#include "shell/pictures/picture_sources.h"

#include "core/file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/pictures.h"
#include "platform/surface_view.h"
#include "shell/base/shared_values.h"
#include "shell/pictures/picture_filters.h"

#include <QLabel>
#include <cstdint>
#include <utility>

namespace zolt {

namespace {

/// Why a file gives no picture. `reason` is what the reader of the file's form gave.
OpenedPicture refused(const std::string &path, const std::string &reason) {
    const QString words = QString::fromStdString(reason);
    OpenedPicture none;
    if (reason == kPictureNotRecognised)
        none.notice = {words, QMessageBox::Critical};
    else
        none.notice = {QStringLiteral("%1 can't be opened: %2.").arg(fromFileName(titleOf(path)), words),
                       QMessageBox::Warning};
    return none;
}

using TextReader = PictureOfText (*)(std::string_view text, const Progress &progress);

OpenedPicture openPictureText(const std::string &path, TextReader read, const Progress &progress) {
    const FileContents file = readFile(path, kLargestImageText);
    std::string text = file.ok() ? pictureTextFromFile(file.bytes) : std::string();
    if (text.empty())
        return {};
    PictureOfText picture = read(text, progress);
    if (!picture.reason.empty())
        return refused(path, picture.reason);
    OpenedPicture opened;
    opened.dots = std::move(picture.surface);
    opened.text = std::move(text);
    return opened;
}

} // namespace

OpenedPicture openPcPicture(const std::string &path, const Progress &) {
    LoadedPicture picture = loadPicture(path);
    if (!picture.ok())
        return refused(path, picture.reason);
    OpenedPicture opened;
    opened.image = std::move(picture.image);
    return opened;
}

OpenedPicture openGrob(const std::string &path, const Progress &progress) {
    OpenedPicture opened = openPictureText(path, VerGrob, progress);
    if (const auto header = readGrobHeader(opened.text)) {
        opened.caption = QString::fromStdString(header->caption);
        if (header->tooWide())
            opened.notice = {QString::fromUtf8(kGrobTooWide.data()), QMessageBox::Information};
    }
    return opened;
}

OpenedPicture openZoltImage(const std::string &path, const Progress &progress) {
    return openPictureText(path, VerVelda, progress);
}

void sayNotice(QWidget *owner, const Notice &notice) {
    if (!notice.words.isEmpty())
        showMessage(owner, notice.words, notice.icon);
}

void showStretched(SurfaceView &surface, const QImage &picture, int width, int height, const QRectF &target) {
    shared::LarguraFigura = static_cast<std::int16_t>(width);
    shared::AlturaFigura = static_cast<std::int16_t>(height);
    surface.showPicture(width, height, [picture, width, height, target](int scale) {
        return stretchedPicture(picture, width, height, target, scale);
    });
}

QLabel *newNothingShows() {
    auto *label = new QLabel(QStringLiteral("No dot of this picture is black: nothing would show."));
    label->setObjectName(QStringLiteral("NothingShows"));
    label->setWordWrap(true);
    label->hide();
    return label;
}

} // namespace zolt
