#include "shell/edit_text_insert_grob_frm.h"

#include "core/document.h"
#include "core/file.h"
#include "images/grob.h"
#include "platform/message_box.h"
#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/picture_filters.h"
#include "shell/shared_values.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace zolt {

namespace {

constexpr InsertFrm::Form kForm{"Insert HP Grob", "Insert GROB - ", DialogFrm::InsertGrob,
                                &Settings::DfDirIGr, kGrobFilter};

} // namespace

EditTextInsertGrobFrm::EditTextInsertGrobFrm(QWidget *owner)
    : InsertFrm(kForm, owner),
      Frame1(new QGroupBox(QStringLiteral("Pré-visualização "))),
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

bool EditTextInsertGrobFrm::openFile(const std::string &path) {
    const FileContents file = readFile(path, kLargestImageText);
    if (!file.ok())
        return false;
    const std::string text = documentFromFile(file.bytes);
    Text1->setText(text);
    const auto header = readGrobHeader(text);
    if (header) {
        Frame1->setTitle(QString::fromStdString(header->caption()));
        if (header->tooWide())
            showMessage(this, QString::fromUtf8(kGrobTooWide.data()), QMessageBox::Information);
    }
    PictureOfText picture = VerGrob(text, progress());
    ProgressBar1->reset();
    if (!picture.reason.empty())
        showMessage(this, QString::fromStdString(picture.reason), QMessageBox::Warning);
    m_dots = std::move(picture.surface);
    Picture1->showDots(m_dots);
    return true;
}

std::optional<std::string> EditTextInsertGrobFrm::imageText() {
    return m_dots.isEmpty() ? std::string() : readSurface(m_dots);
}

} // namespace zolt
