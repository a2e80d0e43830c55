#include "shell/start/document_windows.h"

#include "platform/common_dialog.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

namespace zolt {

namespace {

template <class Window> DocumentFrm &showDocumentWindow() {
    MDIFrm &frame = *loaded<MDIFrm>();
    const bool fresh = !loaded<Window>();
    Window &window = load<Window>(&frame);
    if (fresh)
        frame.adopt(&window);
    frame.show();
    window.showMaximized();
    takeFocus(window.activePane());
    return window;
}

} // namespace

const Edition &editionOf(int edition) {
    return edition == kGraphical ? EditGraphFrm::edition() : EditTextFrm::edition();
}

DocumentFrm *documentWindow() {
    DocumentInUse *document = documentInUse();
    return document ? qobject_cast<DocumentFrm *>(&document->window()) : nullptr;
}

bool closeUnasked(DocumentFrm &window) {
    window.keepThrownAway();
    shared::SemPerguntaDeSaída = 1;
    const bool closed = window.close();
    shared::SemPerguntaDeSaída = 0;
    if (closed)
        commonDialog(DialogFrm::Document).FileName.clear();
    return closed;
}

DocumentFrm &openEdition(int edition) {
    return edition == kGraphical ? showDocumentWindow<EditGraphFrm>() : showDocumentWindow<EditTextFrm>();
}

} // namespace zolt
