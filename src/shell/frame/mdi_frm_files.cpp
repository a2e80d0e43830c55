// The ways of files into the frame beside its dialogs: dropped on it, or from the list of
// recent ones.

#include "core/file.h"
#include "platform/desktop.h"
#include "shell/base/document_in_use.h"
#include "shell/base/more_settings.h"
#include "shell/base/shared_values.h"
#include "shell/frame/mdi_frm.h"
#include "shell/pictures/edit_graph_insert_grob_frm.h"
#include "shell/pictures/edit_graph_insert_image_frm.h"
#include "shell/pictures/edit_graph_insert_velda_frm.h"
#include "shell/pictures/edit_text_insert_grob_frm.h"
#include "shell/pictures/edit_text_insert_image_frm.h"
#include "shell/pictures/edit_text_insert_velda_frm.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <algorithm>

namespace zolt {

namespace {

/// A recent file as the menu shows it, behind the number that is its key.
QString recentItem(std::size_t number, const std::string &path) {
    QString title = fromFileName(titleOf(path));
    title.replace(u'&', QStringLiteral("&&")).replace(u'\t', u' ');
    const QString key = number < 10 ? QStringLiteral("&%1").arg(number) : QStringLiteral("1&0");
    return QStringLiteral("%1 %2").arg(key, title);
}

void fillWithRecentFiles(MDIFrm *frame, QMenu *menu) {
    // Another program that runs may have opened some.
    loadExtraSettings();
    menu->clear();
    std::size_t number = 0;
    for (const std::string &path : extraSettings().recentFiles) {
        QAction *item = menu->addAction(recentItem(++number, path), frame,
                                        [frame, path] { emit frame->recentFileChosen(path); });
        // A file's name may look like HTML.
        item->setToolTip(QStringLiteral("<p>%1</p>").arg(fromFileName(path).toHtmlEscaped()));
    }
    if (number == 0)
        menu->addAction(QStringLiteral("(None)"))->setEnabled(false);
}

} // namespace

void MDIFrm::listRecentFiles(const QList<QMenu *> &menus) {
    for (QMenu *fileMenu : menus)
        if (auto *menu = fileMenu->findChild<QMenu *>(QStringLiteral("MnuFicheiroRecentFiles"))) {
            menu->setToolTipsVisible(true);
            connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillWithRecentFiles(this, menu); });
        }
}

InsertFrm &MDIFrm::insertPicture(FileKind kind, const std::string &path) {
    const bool textual = shared::EdiçãoActiva == 1;
    if (kind == FileKind::Grob)
        return textual ? static_cast<InsertFrm &>(showInsertFrm<EditTextInsertGrobFrm>(path))
                       : showInsertFrm<EditGraphInsertGrobFrm>(path);
    if (kind == FileKind::ZoltImage)
        return textual ? static_cast<InsertFrm &>(showInsertFrm<EditTextInsertVeldaFrm>(path))
                       : showInsertFrm<EditGraphInsertVeldaFrm>(path);
    return textual ? static_cast<InsertFrm &>(showInsertFrm<EditTextInsertImageFrm>(path))
                   : showInsertFrm<EditGraphInsertImageFrm>(path);
}

void MDIFrm::dragEnterEvent(QDragEnterEvent *event) {
    const DroppedFiles files = filesOf(*event->mimeData());
    const bool brings = std::any_of(files.paths.begin(), files.paths.end(),
                                    [](const std::string &path) { return isDocument(kindOfFile(path)); });
    // Without a document there is no place to say why a file isn't taken.
    const bool takes = documentInUse() ? event->mimeData()->hasUrls() : brings;
    if (takes && isEnabled() && !QApplication::activeModalWidget())
        takeAsCopy(*event);
}

void MDIFrm::dropEvent(QDropEvent *event) {
    takeAsCopy(*event);
    activateWindow();
    // The program that was dragged from waits for the end of this, a question must not.
    QMetaObject::invokeMethod(
        this, [this, files = filesOf(*event->mimeData())] { emit filesDropped(files); },
        Qt::QueuedConnection);
}

} // namespace zolt
