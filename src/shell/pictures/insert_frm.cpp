#include "shell/pictures/insert_frm.h"

#include "core/file.h"
#include "images/dot_surface.h"
#include "images/image_text.h"
#include "platform/desktop.h"
#include "platform/text_pane.h"
#include "shell/base/document_in_use.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"

#include <QEvent>
#include <QGridLayout>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace zolt {

InsertFrm::InsertFrm(const Form &form, QWidget *owner)
    : ToolFrm(QString::fromUtf8(form.caption), BesideTheFrame, owner),
      m_grid(new QGridLayout),
      Text1(new TextPane(true, this)),
      ProgressBar1(new QProgressBar),
      m_form(form),
      m_buttons(new QVBoxLayout) {
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->hide();
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setMaximumHeight(10);

    auto *row = new QHBoxLayout;
    row->addLayout(m_grid);
    row->addLayout(m_buttons);
    m_buttons->addStretch();
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(ProgressBar1);
    column->setSizeConstraint(QLayout::SetFixedSize);
    if (DocumentInUse *document = documentInUse())
        document->window().installEventFilter(this);
}

QPushButton *InsertFrm::addButton(const char *name, const QString &caption) {
    auto *button = new QPushButton(caption);
    button->setObjectName(QString::fromUtf8(name));
    button->setAutoDefault(false);
    m_buttons->insertWidget(m_buttons->count() - 1, button);
    return button;
}

void InsertFrm::begin() {
    setEditionEnabled(false);
    shared::PararLeitura = 0;
    AbrirImagem();
}

void InsertFrm::setEditionEnabled(bool enabled) {
    if (DocumentInUse *document = documentInUse())
        document->setCommandsEnabled(enabled);
}

void InsertFrm::AbrirImagem() {
    CommonDialog &dialog = commonDialog(m_form.dialog);
    dialog.DialogTitle = QStringLiteral("Open");
    dialog.Filter = QString::fromUtf8(m_form.filter);
    dialog.FilterIndex = 1;
    dialog.Flags = kFileMustExist;
    dialog.InitDir = shared::settings.*m_form.folder;
    if (dialog.ShowOpen(this) != kDialogDone)
        return;
    setWindowTitle(QString::fromUtf8(m_form.caption));
    Text1->setText({});
    clearPicture();
    if (!openFile(dialog.FileName))
        return;
    shared::settings.*m_form.folder = folderOf(dialog.FileName);
    setWindowTitle(QString::fromUtf8(m_form.openedCaption) + fromFileName(dialog.FileTitle()));
}

Progress InsertFrm::progress() const {
    return readingProgress(ProgressBar1);
}

std::optional<std::string> InsertFrm::readSurface(const DotSurface &surface) {
    shared::LarguraFigura = static_cast<std::int16_t>(surface.width());
    shared::AlturaFigura = static_cast<std::int16_t>(surface.height());
    shared::PararLeitura = 0;
    Text1->setText(LerFigura(surface, progress()));
    ProgressBar1->reset();
    if (shared::PararLeitura)
        return std::nullopt;
    return Text1->Text();
}

void InsertFrm::Command2_Click() {
    const auto text = imageText();
    Pane *pane = activePane();
    if (text && pane)
        pane->setSelText(*text);
}

void InsertFrm::Command3_Click() {
    shared::PararLeitura = 1;
    close();
}

void InsertFrm::Command4_Click() {
    shared::PararLeitura = 1;
}

void InsertFrm::closing() {
    shared::PararLeitura = 1;
    setEditionEnabled(true);
}

bool InsertFrm::eventFilter(QObject *watched, QEvent *event) {
    // The document's window goes or is minimised: so does this one. Minimising the frame is no going.
    if (event->type() == QEvent::Hide && !event->spontaneous() && isVisible())
        close();
    return ToolFrm::eventFilter(watched, event);
}

} // namespace zolt
