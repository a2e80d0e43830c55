#include "shell/pictures/insert_frm.h"

#include "core/file.h"
#include "platform/desktop.h"
#include "platform/dropped_files.h"
#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/base/document_in_use.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/pictures/picture_filters.h"
#include "shell/widgets/command_button.h"

#include <QDropEvent>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QVBoxLayout>
#include <utility>

namespace zolt {

const InsertSource kInsertPcPicture{
    .kind = FileKind::PcPicture,
    .open = openPcPicture,
    .filter = kPictureFilter,
    .dialog = DialogFrm::InsertPicture,
    .title = "Insert BMP GIF JPG ...",
    .openedTitle = "Insert image - ",
    .frame = "Frame2",
    .frameCaption = "Original image",
};
const InsertSource kInsertGrob{
    .kind = FileKind::Grob,
    .open = openGrob,
    .filter = kGrobFilter,
    .dialog = DialogFrm::InsertGrob,
    .title = "Insert HP Grob",
    .openedTitle = "Insert GROB - ",
    .frame = "Frame1",
    .frameCaption = "Pré-visualização ",
};
const InsertSource kInsertZoltImage{
    .kind = FileKind::ZoltImage,
    .open = openZoltImage,
    .filter = kZoltImageFilter,
    .dialog = DialogFrm::InsertZoltImage,
    .title = "Insert ZOLT image",
    .openedTitle = "Insert ZOLT image - ",
    .frame = "Frame1",
    .frameCaption = "Pré-visualização ",
};

InsertFrm::InsertFrm(const InsertSource &source, std::string Settings::*folder, QWidget *owner)
    : ToolFrm(QString::fromUtf8(source.title), BesideTheFrame, owner),
      m_grid(new QGridLayout),
      m_surface(new SurfaceView(QStringLiteral("Picture1"), QStringLiteral("VScroll1"))),
      m_bar(new QProgressBar),
      m_text(new TextPane(true, this)),
      m_source(source),
      m_folder(folder),
      m_frame(new QGroupBox(QString::fromUtf8(source.frameCaption))),
      m_buttons(new QVBoxLayout) {
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->hide();
    m_bar->setObjectName(QStringLiteral("ProgressBar1"));
    m_bar->setTextVisible(false);
    m_bar->setMaximumHeight(10);
    m_frame->setObjectName(QString::fromUtf8(source.frame));
    (new QVBoxLayout(m_frame))->addWidget(m_surface);
    m_grid->addWidget(m_frame, 0, 0);

    auto *row = new QHBoxLayout;
    row->addLayout(m_grid);
    row->addLayout(m_buttons);
    m_buttons->addStretch();
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(m_bar);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setAcceptDrops(true);
    if (DocumentInUse *document = documentInUse())
        document->window().installEventFilter(this);
}

QPushButton *InsertFrm::addButton(const char *name, const QString &caption,
                                  const std::function<void()> &act) {
    QPushButton *button = newButton(this, name, caption, act);
    button->setAutoDefault(false);
    m_buttons->insertWidget(m_buttons->count() - 1, button);
    return button;
}

void InsertFrm::begin(const std::string &path) {
    beginning();
    shared::PararLeitura = 0;
    path.empty() ? AbrirImagem() : openFile(path);
}

void InsertFrm::openPicture() {
    shared::PararLeitura = 0;
    AbrirImagem();
}

void InsertFrm::AbrirImagem() {
    CommonDialog &dialog = commonDialog(m_source.dialog);
    dialog.DialogTitle = QStringLiteral("Open");
    dialog.Filter = QString::fromUtf8(m_source.filter);
    dialog.FilterIndex = 1;
    dialog.Flags = kFileMustExist;
    dialog.InitDir = shared::settings.*m_folder;
    if (dialog.ShowOpen(this) == kDialogDone)
        openFile(dialog.FileName);
}

void InsertFrm::openFile(const std::string &path) {
    commonDialog(m_source.dialog).FileName = path;
    setWindowTitle(QString::fromUtf8(m_source.title));
    take({});
    m_opening = true;
    OpenedPicture opened = m_source.open(path, progress());
    m_opening = false;
    m_bar->reset();
    take(std::move(opened));
    if (m_picture.isEmpty())
        return;
    shared::settings.*m_folder = folderOf(path);
    setWindowTitle(QString::fromUtf8(m_source.openedTitle) + fromFileName(titleOf(path)));
}

void InsertFrm::take(OpenedPicture picture) {
    m_picture = std::move(picture);
    m_surface->clear();
    m_text->setText(m_picture.text);
    m_frame->setTitle(m_picture.caption.isEmpty() ? QString::fromUtf8(m_source.frameCaption)
                                                  : m_picture.caption);
    sayNotice(this, m_picture.notice);
    pictureChanged();
}

Progress InsertFrm::progress() const {
    return readingProgress(m_bar);
}

void InsertFrm::closing() {
    shared::PararLeitura = 1;
}

void InsertFrm::dragEnterEvent(QDragEnterEvent *event) {
    const DroppedFiles files = filesOf(*event->mimeData());
    if (!m_opening && files.others == 0 && files.paths.size() == 1 &&
        kindOfFile(files.paths.front()) == m_source.kind)
        takeAsCopy(*event);
}

void InsertFrm::dropEvent(QDropEvent *event) {
    takeAsCopy(*event);
    // The program that was dragged from waits for the end of this.
    QMetaObject::invokeMethod(
        this,
        [this, path = filesOf(*event->mimeData()).paths.front()] {
            shared::PararLeitura = 0;
            openFile(path);
        },
        Qt::QueuedConnection);
}

bool InsertFrm::eventFilter(QObject *watched, QEvent *event) {
    // The document's window goes or is minimised: so does this one. Minimising the frame is no going.
    if (event->type() == QEvent::Hide && !event->spontaneous() && isVisible())
        close();
    return ToolFrm::eventFilter(watched, event);
}

} // namespace zolt
