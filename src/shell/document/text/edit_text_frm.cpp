#include "shell/document/text/edit_text_frm.h"

#include "core/document.h"
#include "hp48/fold.h"
#include "platform/held_text.h"
#include "platform/pane_look.h"
#include "platform/text_pane.h"
#include "shell/base/more_settings.h"
#include "shell/document/text/edit_text_frm_tables.h"
#include "shell/document/text/edit_text_fullscreen_frm.h"
#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/symbols/symbol_frm.h"

#include <QAction>
#include <QLabel>

namespace zolt {

namespace {

/// A thing that the panes show or don't, by its item in the menu.
struct Show {
    const char *item;
    bool ExtraSettings::*setting;
    bool PaneShows::*inPane;
};

constexpr Show kShows[] = {
    {"MnuVerShowStyles", &ExtraSettings::showsStyles, &PaneShows::styles},
    {"MnuVerShowPictures", &ExtraSettings::showsPictures, &PaneShows::pictures},
    {"MnuVerShowColumnLimit", &ExtraSettings::showsColumnLimit, &PaneShows::limit},
};

} // namespace

const Edition &EditTextFrm::edition() {
    static const Edition text{
        .number = 1,
        .icon = "edition-text",
        .standardToolbar = 2,
        .formatToolbar = 3,
        .menus = textMenuTable,
        .popUp = textPopUpTable,
        .filter = "All files (*.*)|*.*|ZOLT Text Format (*.zlt)|*.zlt|",
        .filterIndex = 1,
        .newPane = [](bool wraps, QWidget *parent) -> Pane * { return new TextPane(wraps, parent); },
        .refusal = [](std::string_view) { return std::string(); },
    };
    return text;
}

EditTextFrm::EditTextFrm(QWidget *frame)
    : DocumentFrm(edition(), frame), PanelColumns(addPanelBehindCaret("PanelColumns")) {
    PanelColumns->setToolTip(QStringLiteral("Columns up to the caret / in the line, without codes and "
                                            "picture cells"));
    menuItem("MnuVerVisibleColumns")->setChecked(extraSettings().showsColumns);
    PanelColumns->setVisible(extraSettings().showsColumns);
    DocumentFrm::begin();
    readShows();
}

void EditTextFrm::begin(const std::string &text, const QString &caption) {
    activeTextPane().setText(text);
    setCaption(caption);
    documentArrives();
}

void EditTextFrm::EnviarParaEdiçãoGráfica() {
    frame().send(Road::TextToGraphical);
}

TextPane &EditTextFrm::textPane(int number) const {
    return static_cast<TextPane &>(pane(number));
}

TextPane &EditTextFrm::activeTextPane() const {
    return static_cast<TextPane &>(activePane());
}

void EditTextFrm::insertText(std::string_view bytes) {
    for (const int number : {1, 2})
        pane(number).setSelText(bytes);
}

void EditTextFrm::fontChosen() {
    applyPaneFont();
}

std::string EditTextFrm::fileOf(std::string stored) const {
    return fileFromDocument(stored);
}

void EditTextFrm::takeFileBytes(std::string_view bytes, Panes panes) {
    std::string document = documentFromFile(bytes);
    activeTextPane().setText(document, openingProgress());
    if (panes == BothPanes)
        static_cast<TextPane &>(hiddenPane()).setTextLater(std::move(document));
}

std::string EditTextFrm::stored() const {
    return activePane().Text();
}

std::function<std::string()> EditTextFrm::storedLater(const Pane &pane) const {
    return [held = static_cast<const TextPane &>(pane).held()] { return bytesOfHeldText(held); };
}

void EditTextFrm::clear() {
    activeTextPane().setText({});
}

void EditTextFrm::copyDocument(const Pane &from, Pane &to) {
    static_cast<TextPane &>(to).setText(from.Text());
}

void EditTextFrm::foldHiddenPane() {
    auto &hidden = static_cast<TextPane &>(hiddenPane());
    hidden.setTextLater(hidden.Text(), hidden.SelStart(), hidden.SelLength());
}

void EditTextFrm::updateStatus() {
    DocumentFrm::updateStatus();
    if (PanelColumns->isHidden())
        return;
    const auto [front, behind] = activeTextPane().caretLine();
    PanelColumns->setText(
        QStringLiteral("%1/%2").arg(visibleColumns(front)).arg(visibleColumns(front + behind)));
}

void EditTextFrm::MnuVerVisibleColumns() {
    const bool shows = menuItem("MnuVerVisibleColumns")->isChecked();
    PanelColumns->setVisible(shows);
    changeExtraSettings([shows](ExtraSettings &settings) { settings.showsColumns = shows; });
    updateStatus();
}

FullscreenFrm &EditTextFrm::loadFullscreen() {
    return load<EditTextFullscreenFrm>(&frame());
}

void EditTextFrm::readShows() {
    for (const Show &show : kShows)
        menuItem(show.item)->setChecked(extraSettings().*show.setting);
    applyShows();
}

void EditTextFrm::keepShows() {
    changeExtraSettings([this](ExtraSettings &settings) {
        for (const Show &show : kShows)
            settings.*show.setting = menuItem(show.item)->isChecked();
    });
    applyShows();
}

void EditTextFrm::applyShows() {
    PaneShows shows;
    for (const Show &show : kShows)
        shows.*show.inPane = menuItem(show.item)->isChecked();
    for (const int number : {1, 2})
        textPane(number).setShows(shows);
}

void EditTextFrm::MnuVerShowStyles() {
    keepShows();
}
void EditTextFrm::MnuVerShowPictures() {
    keepShows();
}
void EditTextFrm::MnuVerShowColumnLimit() {
    keepShows();
}

void EditTextFrm::TesteDeIntegridade() {
    load<EditTextGuardarHPFrm>(&frame()).testDocument(activeTextPane());
}

void EditTextFrm::MnuInserirListadesímbolos() {
    frame().MostrarSymbolFrm();
    loaded<SymbolFrm>()->showPage(SymbolFrm::ListPage);
}

void EditTextFrm::MnuInserirCriarnovosímbolo() {
    frame().MostrarSymbolFrm();
    loaded<SymbolFrm>()->showPage(SymbolFrm::EditionPage);
}

} // namespace zolt
