#include "shell/pictures/graph_insert_frm.h"

#include "platform/pictures.h"
#include "platform/rich_text_box.h"
#include "platform/surface_view.h"
#include "shell/base/document_in_use.h"

#include <QPushButton>

namespace zolt {

namespace {

/// The calculator's screen, in dots.
constexpr int kWidth = 131;
constexpr int kHeight = 64;
/// Where a source is drawn on it; along the right and the lower edge it stays white.
constexpr QRectF kTarget(0, 0, 130, 62);

} // namespace

GraphInsertFrm::GraphInsertFrm(const InsertSource &source, std::string Settings::*folder, QWidget *owner)
    : InsertFrm(source, folder, owner) {
    addButton("Command1", QStringLiteral("&Insert"), [this] {
        insert();
        close();
    })->setDefault(true);
    addButton("Command2", QStringLiteral("Insert &several"), [this] { insert(); });
    addButton("Command3", QStringLiteral("OK"), [this] { close(); });
    RefreshPicture();
}

void GraphInsertFrm::RefreshPicture() {
    const QImage &picture = m_picture.image.isNull() ? imageOfSurface(m_picture.dots, 1) : m_picture.image;
    showStretched(*m_surface, picture, kWidth, kHeight, kTarget);
}

void GraphInsertFrm::insert() {
    if (auto *pane = dynamic_cast<RichTextBox *>(activePane())) {
        pane->pastePicture(m_surface->picture());
        takeFocus(*pane);
    }
}

} // namespace zolt
