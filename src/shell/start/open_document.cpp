#include "shell/start/open_document.h"

#include "core/file.h"
#include "core/file_stamp.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/pane.h"
#include "shell/base/file_kinds.h"
#include "shell/base/recent_files.h"
#include "shell/base/shared_values.h"
#include "shell/frame/mdi_frm.h"
#include "shell/start/document_windows.h"

namespace zolt {

namespace {

std::string waitingFile;

/// 0 for an ending that tells nothing, while no document is open.
int editionFor(const std::string &path) {
    const FileKind kind = kindOfFile(path);
    if (isDocument(kind))
        return kind == FileKind::TextDocument ? kTextual : kGraphical;
    return documentInUse() ? shared::EdiçãoActiva : 0;
}

/// Makes room for a document of an edition; false if what is there has to stay.
bool makeRoom(int edition) {
    DocumentFrm *document = documentWindow();
    if (!document)
        return true;
    return document->mayBeReplaced() && (shared::EdiçãoActiva == edition || closeUnasked(*document));
}

DocumentFrm &windowFor(int edition) {
    DocumentFrm *document = documentWindow();
    if (!document)
        return openEdition(edition);
    if (document->isMinimized())
        document->showNormal();
    return *document;
}

} // namespace

const std::string &fileToOpen() {
    return waitingFile;
}

void askForEditionOf(const std::string &path) {
    waitingFile = path;
    loaded<MDIFrm>()->MostrarMensagemFrm();
}

std::string openDocument(const std::string &path) {
    FileContents file = readFile(path);
    if (!file.ok())
        return file.reason;
    const int edition = editionFor(path);
    if (edition == 0) {
        askForEditionOf(path);
        return {};
    }
    if (std::string reason = editionOf(edition).refusal(file.bytes); !reason.empty())
        return reason;
    if (!makeRoom(edition))
        return {};
    // The document in use may just have been saved into this very file.
    file = readFile(path);
    if (!file.ok())
        return file.reason;
    DocumentFrm &window = windowFor(edition);
    std::string reason = window.showFile(path, file.bytes, DocumentFrm::ActivePane);
    takeFocus(window.activePane());
    return reason;
}

void sayNotOpened(const std::string &path, const std::string &reason) {
    showMessage(
        loaded<MDIFrm>(),
        QStringLiteral("The file %1 can't be opened: %2.").arg(fromFileName(path), fromFileName(reason)),
        QMessageBox::Warning);
}

void openRecentFile(const std::string &path) {
    const std::string reason = openDocument(path);
    if (reason.empty())
        return;
    if (!stampOf(path).exists)
        forgetFile(path);
    sayNotOpened(path, reason);
}

} // namespace zolt
