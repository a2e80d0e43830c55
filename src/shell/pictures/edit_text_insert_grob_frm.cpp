#include "shell/pictures/edit_text_insert_grob_frm.h"

#include "images/grob.h"
#include "platform/message_box.h"
#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/pictures/picture_filters.h"
#include "shell/pictures/picture_sources.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace zolt {

namespace {

constexpr InsertFrm::Form kForm{"Insert HP Grob", "Insert GROB - ", DialogFrm::InsertGrob,
                                &Settings::DfDirIGr, kGrobFilter};
constexpr char kFrameCaption[] = "Pré-visualização ";

} // namespace

EditTextInsertGrobFrm::EditTextInsertGrobFrm(QWidget *owner)
    : InsertFrm(kForm, owner),
      Frame1(new QGroupBox(QString::fromUtf8(kFrameCaption))),
      Picture1(new SurfaceView(QStringLiteral("Picture1"), QStringLiteral("VScroll1"))) {
    Frame1->setObjectName(QStringLiteral("Frame1"));
    (new QVBoxLayout(Frame1))->addWidget(Picture1);
    m_grid->addWidget(Frame1, 0, 0);
    QPushButton *insert = addButton("Command2", QStringLiteral("&Insert"));
    insert->setDefault(true);
    connect(insert, &QPushButton::clicked, this, &InsertFrm::Command2_Click);
    connect(addButton("Command4", QStringLiteral("&Stop")), &QPushButton::clicked, this,
            &InsertFrm::Command4_Click);
    connect(addButton("Command3", QStringLiteral("Close")), &QPushButton::clicked, this,
            &InsertFrm::Command3_Click);
}

void EditTextInsertGrobFrm::clearPicture() {
    m_dots = {};
    Picture1->clear();
    Frame1->setTitle(QString::fromUtf8(kFrameCaption));
}

bool EditTextInsertGrobFrm::openFile(const std::string &path) {
    const std::string text = readPictureText(path);
    if (text.empty())
        return false;
    PictureOfText picture = VerGrob(text, progress());
    ProgressBar1->reset();
    if (!picture.reason.empty()) {
        sayRefused(this, path, picture.reason);
        return false;
    }
    Text1->setText(text);
    const GrobHeader header = *readGrobHeader(text);
    Frame1->setTitle(QString::fromStdString(header.caption));
    if (header.tooWide())
        showMessage(this, QString::fromUtf8(kGrobTooWide.data()), QMessageBox::Information);
    m_dots = std::move(picture.surface);
    Picture1->showDots(m_dots);
    return true;
}

std::optional<std::string> EditTextInsertGrobFrm::imageText() {
    return m_dots.isEmpty() ? std::string() : readSurface(m_dots);
}

} // namespace zolt
