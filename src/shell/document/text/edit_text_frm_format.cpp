// The commands that change the document's letters and pictures, and the panes'
// font and colours.

#include "core/optimise.h"
#include "core/styles.h"
#include "platform/colours.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

#include <cmath>

namespace zolt {

void EditTextFrm::AplicarEstilosDeLetra() {
    TextPane &pane = activePane();
    if (shared::EstiloDeLetra.empty())
        return;
    const SelectionEdit edit =
        applyStyle(pane.Text(), static_cast<std::size_t>(pane.SelStart()),
                   static_cast<std::size_t>(pane.SelLength()), shared::EstiloDeLetra.front());
    if (edit.outcome == SelectionEdit::Refused)
        showMessage(this, fromWindows(edit.message));
    if (edit.outcome == SelectionEdit::Replaced)
        pane.setSelText(edit.replacement);
}

void EditTextFrm::LimparEstilosDeLetra() {
    TextPane &pane = activePane();
    if (const SelectionEdit edit = removeStyles(pane.SelText()); edit.outcome == SelectionEdit::Replaced)
        pane.setSelText(edit.replacement);
}

void EditTextFrm::changeCase(CaseCommand command) {
    TextPane &pane = activePane();
    if (pane.SelLength() > 0)
        pane.setSelText(zolt::changeCase(pane.SelText(), command));
}

void EditTextFrm::MnuFormatarMaiusculasminusculasMai() {
    changeCase(CaseCommand::Capitals);
}
void EditTextFrm::MnuFormatarMaiusculasminusculasMin() {
    changeCase(CaseCommand::SmallLetters);
}
void EditTextFrm::MnuFormatarMaiusculasminusculasInverter() {
    changeCase(CaseCommand::Invert);
}
void EditTextFrm::MnuFormatarMaiusculasminusculasRetAcent() {
    changeCase(CaseCommand::RemoveAccents);
}

void EditTextFrm::MnuInserirLinhahorizontal() {
    activePane().setSelText(horizontalLine());
}

bool EditTextFrm::chooseColour(std::string Settings::*setting, const QColor &shown) {
    CommonDialog &dialog = commonDialog(DialogFrm::ColourAndFont);
    dialog.Color = colourValue(shown);
    if (dialog.ShowColor(this) != kDialogDone)
        return false;
    shared::settings.*setting = settingFromColour(dialog.Color);
    return true;
}

void EditTextFrm::EscolherCorBackground() {
    const Colour background = colourFromSetting(shared::settings.TFntBckC);
    if (chooseColour(&Settings::TFntBckC, qtColour(background, QPalette::Base)))
        applyPaneColours();
}

void EditTextFrm::EscolherCorForeground() {
    const Colour text = colourFromSetting(shared::settings.TFntColr);
    const Colour background = colourFromSetting(shared::settings.TFntBckC);
    if (!chooseColour(&Settings::TFntColr, textColourOn(text, background)))
        return;
    // The pane without wrap may have the desktop's background.
    const QColor chosen = qtColour(colourFromSetting(shared::settings.TFntColr), QPalette::Text);
    for (TextPane *pane : m_panes)
        pane->setColours(chosen, pane->palette().color(QPalette::Base));
}

void EditTextFrm::EscolherFonte() {
    CommonDialog &dialog = commonDialog(DialogFrm::ColourAndFont);
    dialog.Font = fontOfSettings();
    if (dialog.ShowFont(this) == kDialogDone)
        chooseFont(dialog.Font);
}

void EditTextFrm::chooseFont(const QFont &font) {
    Settings &settings = shared::settings;
    settings.TFntName = font.family().toStdString();
    settings.TFntSize = static_cast<std::int16_t>(std::lround(font.pointSizeF()));
    settings.TFntBold = flagText(font.bold());
    settings.TFntItal = flagText(font.italic());
    settings.TFntUndl = flagText(font.underline());
    settings.TFntStrT = flagText(font.strikeOut());
    applyPaneFont();
    m_frame->showFont(font.family(), settings.TFntSize);
}

void EditTextFrm::chooseColours(Colour text, Colour background) {
    shared::settings.TFntColr = settingFromColour(text);
    shared::settings.TFntBckC = settingFromColour(background);
    applyPaneColours();
}

void EditTextFrm::MnuFormatarPadrão() {
    chooseFont(QFont(QStringLiteral("ZOLT"), 10));
    chooseColours(kSystemWindowText, 0xFFFFFF);
    // The pane without wrap follows the desktop until the next start.
    pane(2).setColours(textColourOn(kSystemWindowText, kSystemWindow),
                       qtColour(kSystemWindow, QPalette::Base));
}

/// Light green on black.
void EditTextFrm::MnuFormatarAltocontraste() {
    chooseColours(0x80FF80, 0);
}
/// Black on the calculator's grey-green.
void EditTextFrm::MnuFormatarHp48() {
    chooseColours(0, 0x3C603D);
}

void EditTextFrm::OptimizarImagens() {
    TextPane &pane = activePane();
    pane.replaceText(optimiseImages(pane.Text(), Optimisation{shared::TipoDeOptimização}));
    showMessage(this, QStringLiteral("Optimization finished"));
}

void EditTextFrm::OptimizarImagensSelecção() {
    TextPane &pane = activePane();
    if (pane.SelLength() > 0)
        pane.setSelText(optimiseImages(pane.SelText(), Optimisation{shared::TipoDeOptimização}));
    showMessage(this, QStringLiteral("Optimization finished"));
}

} // namespace zolt
