#include "shell/document/graphic/edit_graph_fullscreen_frm.h"

#include "platform/rich_text_box.h"
#include "shell/base/windows.h"

namespace zolt {

namespace {

Pane *newPane(bool wraps, QWidget *parent) {
    return new RichTextBox(wraps, parent);
}

} // namespace

EditGraphFullscreenFrm::EditGraphFullscreenFrm(QWidget *owner) : FullscreenFrm(newPane, owner) {}

void EditGraphFullscreenFrm::take(const Pane &document, Pane &pane) {
    const auto &from = static_cast<const RichTextBox &>(document);
    auto &to = static_cast<RichTextBox &>(pane);
    to.setPalette(from.palette());
    to.setRichText(from.richText());
}

void EditGraphFullscreenFrm::giveBack(const Pane &pane, Pane &document) {
    static_cast<RichTextBox &>(document).replaceRichText(static_cast<const RichTextBox &>(pane).richText());
}

void EditGraphFullscreenFrm::copyTypedLook(const Pane &from, Pane &to) {
    const auto &source = static_cast<const RichTextBox &>(from);
    auto &target = static_cast<RichTextBox &>(to);
    target.setSelFontName(source.SelFontName());
    target.setSelFontSize(source.SelFontSize());
    target.setSelColor(source.SelColor());
}

FullscreenLeaveFrm &EditGraphFullscreenFrm::loadLeaveWindow() {
    return load<EditGraphFullscreenLeaveFrm>(this);
}

} // namespace zolt
