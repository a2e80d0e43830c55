// The commands that change how the graphical document looks, and its letters' case.

#include "core/codes.h"
#include "graphic/style_fonts.h"
#include "platform/colours.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/rich_text_box.h"
#include "shell/base/shared_values.h"
#include "shell/document/document_tables.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/frame/mdi_frm.h"

#include <QAction>
#include <QToolBar>

namespace zolt {

namespace {

/// In front of a picture in RTF; the case commands look for it.
constexpr std::string_view kPicture = "pict";
constexpr char kNotForPictures[] = "This format is not suitable for graphical objects.\r\n"
                                   "Please select text only";

} // namespace

std::string_view EditGraphFrm::refusal(const std::string &font) const {
    const RichTextBox &pane = activeRichPane();
    const std::string selection = pane.SelText();
    const qsizetype start = pane.SelStart();
    // The character behind the selection counts too: two runs don't touch.
    const bool isPlain = pane.hasFont(kPlainFont, start, pane.SelLength() + 1);
    return styleFontRefusal(selection, static_cast<std::size_t>(pane.selEnd() - pane.paragraphStart(start)),
                            isPlain, font,
                            &pane == &richPane(1) ? kWrappedPaneStyleMessages : kStyleMessages);
}

void EditGraphFrm::AplicarEstilosDeLetra() {
    RichTextBox &pane = activeRichPane();
    const std::string &font = shared::FonteDeEstilo;
    if (font.empty())
        return;
    const bool isChecked = pane.hasSelection() && font != kPlainFont;
    const std::string_view reason = isChecked ? refusal(font) : std::string_view();
    if (reason.empty())
        pane.setSelFontName(font);
    else
        showMessage(this, fromWindows(reason));
    showStyleAtCaret();
}

void EditGraphFrm::gatherStyleButtons() {
    const QToolBar &bar = *frame().toolbar(edition().formatToolbar);
    for (const StyleButton &button : styleButtons())
        m_styleButtons.emplace_back(button.font, bar.findChild<QAction *>(QString::fromUtf8(button.key)));
}

void EditGraphFrm::showStyleAtCaret() {
    const std::string name = activeRichPane().SelFontName();
    for (const auto &[font, button] : m_styleButtons)
        button->setChecked(font == name);
}

void EditGraphFrm::EscolherTamanhoDaLetra() {
    if (shared::TamanhoDaLetra <= 0) // nobody has chosen one
        return;
    shared::settings.TFntSize = shared::TamanhoDaLetra;
    activeRichPane().setFontSize(shared::TamanhoDaLetra);
    frame().showFont(QString::fromStdString(shared::settings.TFntName), shared::TamanhoDaLetra);
    updateStatus();
}

void EditGraphFrm::changeCase(CaseCommand command) {
    RichTextBox &pane = activeRichPane();
    if (!pane.hasSelection())
        return;
    if (pane.SelRTF().find(kPicture) != std::string::npos)
        showMessage(this, QString::fromUtf8(kNotForPictures));
    else
        pane.setSelRichText(zolt::changeCase(pane.selRichText(), command));
}

void EditGraphFrm::applySettings() {
    applyPaneColours();
    for (const int number : {1, 2})
        fill(richPane(number), " ");
}

void EditGraphFrm::applyPaneColours() {
    const QColor background = qtColour(colourFromSetting(shared::settings.TFntBckC), QPalette::Base);
    for (const int number : {1, 2})
        richPane(number).setBackColour(background);
}

void EditGraphFrm::applyTextColour() {
    activeRichPane().setTextColour(colourFromSetting(shared::settings.TFntColr));
}

void EditGraphFrm::applyDefaultScheme() {
    Settings &settings = shared::settings;
    settings.TFntName = kPlainFont;
    settings.TFntSize = 10;
    for (std::string Settings::*flag :
         {&Settings::TFntBold, &Settings::TFntItal, &Settings::TFntUndl, &Settings::TFntStrT})
        settings.*flag = flagText(false);
    frame().showFont(QString::fromStdString(settings.TFntName), settings.TFntSize);
    applyPaneColours();
    // The pane without wrap follows the desktop until the next start.
    richPane(2).setBackColour(qtColour(kSystemWindow, QPalette::Base));
    // The styles' fonts are the document's, not the pane's.
    activeRichPane().setPlainLook(settings.TFntSize, colourFromSetting(settings.TFntColr));
    updateStatus();
}

} // namespace zolt
