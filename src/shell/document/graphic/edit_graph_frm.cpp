#include "shell/document/graphic/edit_graph_frm.h"

#include "core/document.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/colours.h"
#include "platform/rich_text_box.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm_tables.h"
#include "shell/document/graphic/edit_graph_fullscreen_frm.h"
#include "shell/frame/mdi_frm.h"

namespace zolt {

namespace {

std::string refusalOf(std::string_view bytes) {
    return isRtf(bytes) || mayBePlainText(bytes) ? std::string()
                                                 : "it is neither rich text (RTF) nor plain text";
}

/// The look of plain text, as the settings have it.
CharFormat plainLook() {
    CharFormat format;
    format.halfPoints = static_cast<std::uint16_t>(shared::settings.TFntSize * 2);
    format.colour = colourFromSetting(shared::settings.TFntColr);
    return format;
}

} // namespace

const Edition &EditGraphFrm::edition() {
    static const Edition graphical{
        .number = 2,
        .icon = "edition-graphic",
        .standardToolbar = 4,
        .formatToolbar = 5,
        .menus = graphMenuTable,
        .popUp = graphPopUpTable,
        .filter = "All files (*.*)|*.*|",
        .filterIndex = 2,
        .newPane = [](bool wraps, QWidget *parent) -> Pane * { return new RichTextBox(wraps, parent); },
        .refusal = refusalOf,
    };
    return graphical;
}

EditGraphFrm::EditGraphFrm(QWidget *frame) : DocumentFrm(edition(), frame) {
    gatherStyleButtons();
    for (const int number : {1, 2})
        for (const auto event : {&PaneEvents::Change, &PaneEvents::selectionMoved, &PaneEvents::keyDown})
            connect(&pane(number).events(), event, this, &EditGraphFrm::showStyleAtCaret);
    DocumentFrm::begin();
    showStyleAtCaret();
}

RichTextBox &EditGraphFrm::richPane(int number) const {
    return static_cast<RichTextBox &>(pane(number));
}

RichTextBox &EditGraphFrm::activeRichPane() const {
    return static_cast<RichTextBox &>(activePane());
}

void EditGraphFrm::begin(const RichText &text, const QString &caption) {
    activeRichPane().setRichText(text);
    setCaption(caption);
    documentArrives();
}

void EditGraphFrm::insertText(std::string_view bytes) {
    activePane().setSelText(bytes);
    takeFocus(activePane());
}

void EditGraphFrm::fontChosen() {
    shared::TamanhoDaLetra = shared::settings.TFntSize;
    EscolherTamanhoDaLetra();
}

std::string EditGraphFrm::fileOf(std::string stored) const {
    return stored;
}

void EditGraphFrm::takeFileBytes(std::string_view bytes, Panes panes) {
    if (isRtf(bytes))
        activeRichPane().setRichText(richTextFromRtf(bytes), openingProgress());
    else
        fill(activeRichPane(), documentFromFile(bytes));
    if (panes == ActivePane)
        return;
    if (activePane().length() > 0)
        static_cast<RichTextBox &>(hiddenPane()).setRichTextLater(activeRichPane().richText());
    else
        copyDocument(activePane(), hiddenPane());
}

std::string EditGraphFrm::stored() const {
    return activeRichPane().TextRTF();
}

RichText EditGraphFrm::printout(bool selection) const {
    return selection ? activeRichPane().selRichText() : activeRichPane().richText();
}

std::function<std::string()> EditGraphFrm::storedLater(const Pane &pane) const {
    return [text = static_cast<const RichTextBox &>(pane).richText()] { return rtfFromRichText(text); };
}

void EditGraphFrm::fill(RichTextBox &pane, std::string_view plain) {
    pane.setRichText(richTextFromPlainText(plain.empty() ? " " : plain, plainLook()));
    // Emptied, a pane keeps the look that its text had.
    if (plain.empty())
        pane.setText({});
}

void EditGraphFrm::clear() {
    for (const int number : {1, 2})
        fill(richPane(number), {});
}

void EditGraphFrm::copyDocument(const Pane &from, Pane &to) {
    auto &target = static_cast<RichTextBox &>(to);
    if (from.length() > 0)
        target.setRichText(static_cast<const RichTextBox &>(from).richText());
    else
        fill(target, {});
}

void EditGraphFrm::foldHiddenPane() {
    auto &hidden = static_cast<RichTextBox &>(hiddenPane());
    if (hidden.length() > 0)
        hidden.setRichTextLater(hidden.richText(), hidden.SelStart(), hidden.SelLength());
}

FullscreenFrm &EditGraphFrm::loadFullscreen() {
    return load<EditGraphFullscreenFrm>(&frame());
}

} // namespace zolt
