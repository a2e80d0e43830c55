#include "shell/base/active_pane.h"

#include "platform/text_pane.h"
#include "shell/base/windows.h"
#include "shell/document/text/edit_text_frm.h"

namespace zolt {

TextPane *activePane() {
    EditTextFrm *document = loaded<EditTextFrm>();
    return document ? &document->activePane() : nullptr;
}

void takeFocus(TextPane &pane) {
    pane.window()->activateWindow();
    pane.setFocus();
}

void insertIntoActivePane(std::string_view bytes) {
    if (TextPane *pane = activePane()) {
        pane->setSelText(bytes);
        takeFocus(*pane);
    }
}

} // namespace zolt
