#include "shell/pictures/edit_text_insert_image_frm.h"

#include "images/image_text.h"
#include "platform/pictures.h"
#include "platform/surface_view.h"
#include "shell/widgets/size_boxes.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace zolt {

EditTextInsertImageFrm::EditTextInsertImageFrm(QWidget *owner)
    : TextInsertFrm(kInsertPcPicture, &Settings::DfDirIPC, owner),
      m_view(new SurfaceView(QStringLiteral("Picture5"), QStringLiteral("VScroll2"))),
      m_viewFrame(new QGroupBox(QStringLiteral("Preview"))),
      m_size(new SizeBoxes),
      m_nothingShows(newNothingShows()) {
    m_viewFrame->setObjectName(QStringLiteral("Frame3"));
    (new QVBoxLayout(m_viewFrame))->addWidget(m_view);
    m_viewFrame->hide();
    m_grid->addWidget(m_viewFrame, 1, 0);
    m_grid->addWidget(m_size, 2, 0, Qt::AlignLeft);
    m_grid->addWidget(m_nothingShows, 3, 0);
    connect(m_size, &SizeBoxes::sizeChosen, this, &EditTextInsertImageFrm::RefreshPicture);

    addButton("Command5", QStringLiteral("&Open"), [this] { openPicture(); });
    addButton("Command1", QStringLiteral("Preview"), [this] { preview(); });
    addInsertButtons(CanStop);
    RefreshPicture();
}

void EditTextInsertImageFrm::pictureChanged() {
    m_view->clear();
    m_nothingShows->setVisible(!m_picture.isEmpty() && !hasBlack(m_picture.image));
    RefreshPicture();
}

void EditTextInsertImageFrm::RefreshPicture() {
    const int width = m_size->widthInDots();
    const int height = m_size->heightInDots();
    if (width > 0 && height > 0)
        showStretched(*m_surface, m_picture.image, width, height, pictureTarget(width, height));
}

DotSurface EditTextInsertImageFrm::dots() const {
    const QSize size = m_surface->sizeInDots();
    return dotsOfPicture(m_picture.image, size.width(), size.height());
}

void EditTextInsertImageFrm::preview() {
    m_viewFrame->show();
    if (const auto text = imageText())
        m_view->showDots(VerVelda(*text, progress()).surface, m_surface->sizeInDots());
    m_bar->reset();
    RefreshPicture();
}

} // namespace zolt
