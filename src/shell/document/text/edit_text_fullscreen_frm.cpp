#include "shell/document/text/edit_text_fullscreen_frm.h"

#include "platform/fonts.h"
#include "platform/text_pane.h"
#include "shell/base/windows.h"

namespace zolt {

namespace {

Pane *newPane(bool wraps, QWidget *parent) {
    auto *pane = new TextPane(wraps, parent);
    pane->setPaneFont(zoltFont(QStringLiteral("ZOLT"), 9.75));
    return pane;
}

} // namespace

EditTextFullscreenFrm::EditTextFullscreenFrm(QWidget *owner) : FullscreenFrm(newPane, owner) {}

void EditTextFullscreenFrm::take(const Pane &document, Pane &pane) {
    pane.control().setPalette(document.control().palette());
    static_cast<TextPane &>(pane).setText(document.Text());
}

void EditTextFullscreenFrm::giveBack(const Pane &pane, Pane &document) {
    static_cast<TextPane &>(document).replaceText(pane.Text());
}

FullscreenLeaveFrm &EditTextFullscreenFrm::loadLeaveWindow() {
    return load<EditTextFullscreenLeaveFrm>(this);
}

} // namespace zolt
