#include "shell/pictures/edit_text_insert_image_frm.h"

#include "images/image_text.h"
#include "platform/pictures.h"
#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/pictures/picture_filters.h"
#include "shell/pictures/picture_sources.h"
#include "shell/widgets/size_boxes.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace zolt {

namespace {

constexpr InsertFrm::Form kForm{"Insert BMP GIF JPG ...", "Insert image - ", DialogFrm::InsertPicture,
                                &Settings::DfDirIPC, kPictureFilter};

} // namespace

EditTextInsertImageFrm::EditTextInsertImageFrm(QWidget *owner)
    : InsertFrm(kForm, owner),
      Picture1(new SurfaceView(QStringLiteral("Picture1"), QStringLiteral("VScroll1"))),
      Picture5(new SurfaceView(QStringLiteral("Picture5"), QStringLiteral("VScroll2"))),
      Frame3(new QGroupBox(QStringLiteral("Preview"))),
      m_size(new SizeBoxes),
      m_nothingShows(newNothingShows()) {
    auto *image = new QGroupBox(QStringLiteral("Original image"));
    image->setObjectName(QStringLiteral("Frame2"));
    (new QVBoxLayout(image))->addWidget(Picture1);
    Frame3->setObjectName(QStringLiteral("Frame3"));
    (new QVBoxLayout(Frame3))->addWidget(Picture5);
    Frame3->hide();
    m_grid->addWidget(image, 0, 0);
    m_grid->addWidget(Frame3, 1, 0);
    m_grid->addWidget(m_size, 2, 0, Qt::AlignLeft);
    m_grid->addWidget(m_nothingShows, 3, 0);
    connect(m_size, &SizeBoxes::sizeChosen, this, &EditTextInsertImageFrm::RefreshPicture);

    connect(addButton("Command5", QStringLiteral("&Open")), &QPushButton::clicked, this,
            &EditTextInsertImageFrm::Command5_Click);
    connect(addButton("Command1", QStringLiteral("Preview")), &QPushButton::clicked, this,
            &EditTextInsertImageFrm::Command1_Click);
    QPushButton *insert = addButton("Command2", QStringLiteral("&Insert"));
    insert->setDefault(true);
    connect(insert, &QPushButton::clicked, this, &InsertFrm::Command2_Click);
    connect(addButton("Command4", QStringLiteral("&Stop")), &QPushButton::clicked, this,
            &InsertFrm::Command4_Click);
    connect(addButton("Command3", QStringLiteral("Close")), &QPushButton::clicked, this,
            &InsertFrm::Command3_Click);
    RefreshPicture();
}

void EditTextInsertImageFrm::clearPicture() {
    m_picture = {};
    m_nothingShows->hide();
    Picture1->clear();
    Picture5->clear();
    RefreshPicture();
}

bool EditTextInsertImageFrm::openFile(const std::string &path) {
    const LoadedPicture picture = loadPicture(path);
    if (!picture.ok()) {
        sayRefused(this, path, picture.reason);
        return false;
    }
    m_picture = picture.image;
    m_nothingShows->setVisible(!hasBlack(m_picture));
    RefreshPicture();
    return true;
}

void EditTextInsertImageFrm::RefreshPicture() {
    const int width = m_size->widthInDots();
    const int height = m_size->heightInDots();
    if (width == 0 || height == 0)
        return;
    shared::LarguraFigura = static_cast<std::int16_t>(width);
    shared::AlturaFigura = static_cast<std::int16_t>(height);
    Picture1->showPicture(width, height, [picture = m_picture, width, height](int scale) {
        return stretchedPicture(picture, width, height, pictureTarget(width, height), scale);
    });
}

DotSurface EditTextInsertImageFrm::dots() const {
    const QSize size = Picture1->sizeInDots();
    return dotsOfPicture(m_picture, size.width(), size.height());
}

std::optional<std::string> EditTextInsertImageFrm::imageText() {
    return m_picture.isNull() ? std::string() : readSurface(dots());
}

void EditTextInsertImageFrm::Command1_Click() {
    Frame3->show();
    if (const auto text = imageText())
        Picture5->showDots(VerVelda(*text, progress()).surface, Picture1->sizeInDots());
    ProgressBar1->reset();
    RefreshPicture();
}

void EditTextInsertImageFrm::Command5_Click() {
    shared::PararLeitura = 0;
    AbrirImagem();
}

} // namespace zolt
