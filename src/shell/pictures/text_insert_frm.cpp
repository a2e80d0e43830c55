#include "shell/pictures/text_insert_frm.h"

#include "images/image_text.h"
#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/base/document_in_use.h"
#include "shell/base/shared_values.h"

#include <QProgressBar>
#include <QPushButton>
#include <cstdint>

namespace zolt {

namespace {

void setCommandsEnabled(bool enabled) {
    if (DocumentInUse *document = documentInUse())
        document->setCommandsEnabled(enabled);
}

} // namespace

void TextInsertFrm::beginning() {
    setCommandsEnabled(false);
}

void TextInsertFrm::closing() {
    InsertFrm::closing();
    setCommandsEnabled(true);
}

void TextInsertFrm::addInsertButtons(Stopping stopping) {
    addButton("Command2", QStringLiteral("&Insert"), [this] { insert(); })->setDefault(true);
    if (stopping == CanStop)
        addButton("Command4", QStringLiteral("&Stop"), [this] { stop(); });
    addButton("Command3", QStringLiteral("Close"), [this] { close(); });
}

void TextInsertFrm::RefreshPicture() {
    m_surface->showDots(m_picture.dots);
}

std::optional<std::string> TextInsertFrm::imageText() {
    if (m_picture.isEmpty())
        return std::string();
    const DotSurface surface = dots();
    shared::LarguraFigura = static_cast<std::int16_t>(surface.width());
    shared::AlturaFigura = static_cast<std::int16_t>(surface.height());
    shared::PararLeitura = 0;
    m_text->setText(LerFigura(surface, progress()));
    m_bar->reset();
    if (shared::PararLeitura)
        return std::nullopt;
    return m_text->Text();
}

void TextInsertFrm::insert() {
    const auto text = imageText();
    Pane *pane = activePane();
    if (text && pane)
        pane->setSelText(*text);
}

void TextInsertFrm::stop() {
    shared::PararLeitura = 1;
}

} // namespace zolt
