// The commands that change the document's letters and pictures, and the panes'
// font and colours.

#include "core/optimise.h"
#include "core/styles.h"
#include "graphic/rich_text_builder.h"
#include "platform/colours.h"
#include "platform/desktop.h"
#include "platform/fonts.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

#include <cmath>

namespace zolt {

void EditTextFrm::AplicarEstilosDeLetra() {
    TextPane &pane = activeTextPane();
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
    TextPane &pane = activeTextPane();
    if (const SelectionEdit edit = removeStyles(pane.SelText()); edit.outcome == SelectionEdit::Replaced)
        pane.setSelText(edit.replacement);
}

void EditTextFrm::changeCase(CaseCommand command) {
    TextPane &pane = activeTextPane();
    if (pane.SelLength() > 0)
        pane.setSelText(zolt::changeCase(pane.SelText(), command));
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
    frame().showFont(font.family(), settings.TFntSize);
}

QFont EditTextFrm::fontOfSettings() {
    const Settings &settings = shared::settings;
    QFont font = zoltFont(QString::fromStdString(settings.TFntName), settings.TFntSize);
    font.setBold(isTrue(settings.TFntBold));
    font.setItalic(isTrue(settings.TFntItal));
    font.setUnderline(isTrue(settings.TFntUndl));
    font.setStrikeOut(isTrue(settings.TFntStrT));
    return font;
}

RichText EditTextFrm::inPaneLook(std::string_view plain) {
    const Settings &settings = shared::settings;
    CharFormat look;
    look.halfPoints = static_cast<std::uint16_t>(settings.TFntSize * 2);
    look.colour = colourFromSetting(settings.TFntColr);
    look.bold = isTrue(settings.TFntBold);
    look.italic = isTrue(settings.TFntItal);
    look.underline = isTrue(settings.TFntUndl);
    look.strikeThru = isTrue(settings.TFntStrT);
    RichText text = richTextFromPlainText(plain, look);
    text.fonts = {settings.TFntName};
    return text;
}

void EditTextFrm::applyPaneFont() {
    for (const int number : {1, 2})
        textPane(number).setPaneFont(fontOfSettings());
    updateStatus();
}

void EditTextFrm::applyPaneColours() {
    const Colour background = colourFromSetting(shared::settings.TFntBckC);
    for (const int number : {1, 2})
        textPane(number).setColours(shownTextColour(), qtColour(background, QPalette::Base));
}

void EditTextFrm::applySettings() {
    applyPaneFont();
    applyPaneColours();
}

void EditTextFrm::applyTextColour() {
    // The pane without wrap may have the desktop's background.
    const QColor chosen = qtColour(colourFromSetting(shared::settings.TFntColr), QPalette::Text);
    for (const int number : {1, 2})
        textPane(number).setColours(chosen, textPane(number).palette().color(QPalette::Base));
}

void EditTextFrm::applyDefaultScheme() {
    chooseFont(QFont(QStringLiteral("ZOLT"), 10));
    applyPaneColours();
    // The pane without wrap follows the desktop until the next start.
    textPane(2).setColours(textColourOn(kSystemWindowText, kSystemWindow),
                           qtColour(kSystemWindow, QPalette::Base));
}

void EditTextFrm::OptimizarImagens() {
    TextPane &pane = activeTextPane();
    pane.replaceText(optimiseImages(pane.Text(), Optimisation{shared::TipoDeOptimização}));
    showMessage(this, QStringLiteral("Optimization finished"));
}

void EditTextFrm::OptimizarImagensSelecção() {
    TextPane &pane = activeTextPane();
    if (pane.SelLength() > 0)
        pane.setSelText(optimiseImages(pane.SelText(), Optimisation{shared::TipoDeOptimização}));
    showMessage(this, QStringLiteral("Optimization finished"));
}

} // namespace zolt
