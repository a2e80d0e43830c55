#include "shell/base/document_in_use.h"

#include "platform/pane.h"

#include <QAbstractScrollArea>

namespace zolt {

namespace {

DocumentInUse *theDocument = nullptr;

} // namespace

DocumentInUseEvents &documentInUseEvents() {
    static DocumentInUseEvents events;
    return events;
}

DocumentInUse *documentInUse() {
    return theDocument;
}

void setDocumentInUse(DocumentInUse *document) {
    theDocument = document;
    // A new one says so itself once its panes stand.
    if (!document)
        emit documentInUseEvents().paneChanged();
}

Pane *activePane() {
    return theDocument ? &theDocument->activePane() : nullptr;
}

void takeFocus(Pane &pane) {
    pane.control().window()->activateWindow();
    pane.takeFocus();
}

void insertIntoActivePane(std::string_view bytes) {
    if (Pane *pane = activePane()) {
        pane->setSelText(bytes);
        takeFocus(*pane);
    }
}

} // namespace zolt
