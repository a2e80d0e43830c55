#include "shell/pictures/edit_text_insert_velda_frm.h"

#include "images/image_text.h"
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

constexpr InsertFrm::Form kForm{"Insert ZOLT image", "Insert ZOLT image - ", DialogFrm::InsertZoltImage,
                                &Settings::DfDirIHa, kZoltImageFilter};

} // namespace

EditTextInsertVeldaFrm::EditTextInsertVeldaFrm(QWidget *owner)
    : InsertFrm(kForm, owner),
      Picture1(new SurfaceView(QStringLiteral("Picture1"), QStringLiteral("VScroll1"))) {
    auto *frame = new QGroupBox(QStringLiteral("Pré-visualização "));
    frame->setObjectName(QStringLiteral("Frame1"));
    (new QVBoxLayout(frame))->addWidget(Picture1);
    m_grid->addWidget(frame, 0, 0);
    QPushButton *insert = addButton("Command2", QStringLiteral("&Insert"));
    insert->setDefault(true);
    connect(insert, &QPushButton::clicked, this, &InsertFrm::Command2_Click);
    connect(addButton("Command3", QStringLiteral("Close")), &QPushButton::clicked, this,
            &InsertFrm::Command3_Click);
}

void EditTextInsertVeldaFrm::clearPicture() {
    Picture1->clear();
}

bool EditTextInsertVeldaFrm::openFile(const std::string &path) {
    const std::string text = readPictureText(path);
    if (text.empty())
        return false;
    PictureOfText picture = VerVelda(text, progress());
    ProgressBar1->reset();
    if (!picture.reason.empty()) {
        sayRefused(this, path, picture.reason);
        return false;
    }
    Text1->setText(text);
    Picture1->showDots(std::move(picture.surface));
    return true;
}

std::optional<std::string> EditTextInsertVeldaFrm::imageText() {
    return Text1->Text();
}

} // namespace zolt
