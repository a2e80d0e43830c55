#include "shell/document/graphic/edit_graph_fullscreen_frm.h"

#include "platform/rich_text_box.h"
#include "shell/base/windows.h"

namespace zolt {

namespace {

Pane *newPane(bool wraps, QWidget *parent) {
    return new RichTextBox(wraps, parent);
}

/// What is typed next looks alike in both.
void copyTypedLook(const RichTextBox &from, RichTextBox &to) {
    to.setSelFontName(from.SelFontName());
    to.setSelFontSize(from.SelFontSize());
    to.setSelColor(from.SelColor());
}

} // namespace

EditGraphFullscreenFrm::EditGraphFullscreenFrm(QWidget *owner) : FullscreenFrm(newPane, owner) {}

void EditGraphFullscreenFrm::take(const Pane &document, Pane &pane) {
    const auto &from = static_cast<const RichTextBox &>(document);
    auto &to = static_cast<RichTextBox &>(pane);
    to.setPalette(from.palette());
    to.setRichText(from.richText());
    if (from.length() == 0)
        copyTypedLook(from, to);
}

void EditGraphFullscreenFrm::giveBack(const Pane &pane, Pane &document) {
    static_cast<RichTextBox &>(document).replaceRichText(static_cast<const RichTextBox &>(pane).richText());
}

FullscreenLeaveFrm &EditGraphFullscreenFrm::loadLeaveWindow() {
    return load<EditGraphFullscreenLeaveFrm>(this);
}

} // namespace zolt
