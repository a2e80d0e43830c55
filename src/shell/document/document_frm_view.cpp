// The windows that stand beside a document, or before it.

#include "shell/base/shared_values.h"
#include "shell/document/document_frm.h"
#include "shell/document/fullscreen_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/symbols/symbol_frm.h"
#include "shell/tools/caracter_table_frm.h"
#include "shell/tools/caracter_toolbar_frm.h"
#include "shell/tools/edit_text_find_frm.h"

#include <QScreen>

namespace zolt {

void DocumentFrm::VerBarradecaracteres() {
    if (auto *bar = loaded<CaracterToolbarFrm>(); bar && bar->isVisible())
        bar->move(bar->screen()->geometry().right() + 1 - bar->width(), pixels(1000));
    if (shared::settings.CharTool == 0)
        shared::settings.CharTool = 3;
    m_frame->applyCharTool();
}

void DocumentFrm::VerTabeladecaracteres() {
    m_frame->MostrarCaracterTableFrm();
}

void DocumentFrm::MnuVerEcrainteiro() {
    FullscreenFrm &window = loadFullscreen();
    connect(&window, &FullscreenFrm::left, this, &DocumentFrm::updateStatus, Qt::UniqueConnection);
    window.enter();
}

void DocumentFrm::recordCompanions() {
    Settings &settings = shared::settings;
    const auto *bar = loaded<CaracterToolbarFrm>();
    if (!bar || !bar->isVisible())
        settings.CharTool = 0;
    if (!m_frame->topPanel()->isHidden())
        settings.CharTool = 3;
    else if (!m_frame->rightPanel()->isHidden())
        settings.CharTool = 4;

    const auto *table = loaded<CaracterTableFrm>();
    settings.ChrTbExi = table && table->isVisible() ? 1 : 0;
    if (settings.ChrTbExi == 1) {
        settings.ChrTbPoX = twipsSetting(table->x());
        settings.ChrTbPoY = twipsSetting(table->y());
    }
}

void DocumentFrm::closeCompanions() {
    m_frame->topPanel()->hide();
    m_frame->rightPanel()->hide();
    unload<CaracterTableFrm>();
    unload<CaracterToolbarFrm>();
    unload<EditTextFindFrm>();
    unload<SymbolFrm>();
}

} // namespace zolt
