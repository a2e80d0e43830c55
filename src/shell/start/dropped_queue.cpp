#include "shell/start/dropped_queue.h"

#include "core/path.h"
#include "platform/desktop.h"
#include "shell/base/document_in_use.h"
#include "shell/base/file_kinds.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/base/windows.h"
#include "shell/frame/mdi_frm.h"
#include "shell/pictures/insert_frm.h"
#include "shell/start/document_windows.h"
#include "shell/start/open_document.h"
#include "shell/symbols/symbol_frm.h"

#include <QApplication>
#include <utility>

namespace zolt {

namespace {

QString titleToShow(const std::string &path) {
    return fromFileName(titleOf(path));
}

InsertFrm *standingInsertWindow() {
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *insert = qobject_cast<InsertFrm *>(window); insert && insert->isVisible())
            return insert;
    return nullptr;
}

} // namespace

void DroppedQueue::take(const DroppedFiles &files) {
    if (files.others > 0)
        m_notTaken << QStringLiteral("What was dropped is no file of this computer");
    for (const std::string &path : files.paths) {
        const FileKind kind = kindOfFile(path);
        if (isDocument(kind))
            m_documents.push_back(path);
        else if (kind != FileKind::Unknown)
            m_others.push_back(path);
        else
            m_notTaken << QStringLiteral("%1 is of no type that can be opened here").arg(titleToShow(path));
    }
    if (std::exchange(m_busy, true))
        return;
    // More may come while a question stands or a picture is read.
    do {
        openDocuments();
        showNext();
    } while (!m_documents.empty());
    m_busy = false;
}

void DroppedQueue::openDocuments() {
    while (!m_documents.empty()) {
        const std::string path = std::exchange(m_documents.front(), {});
        m_documents.pop_front();
        const std::string reason = openDocument(path);
        if (reason.empty())
            continue;
        if (documentInUse())
            m_notTaken << QStringLiteral("%1 wasn't opened: %2").arg(titleToShow(path), fromFileName(reason));
        else
            sayNotOpened(path, reason);
    }
}

void DroppedQueue::showNext() {
    // A document that goes takes along what was to be put into it.
    if (!documentInUse())
        m_others.clear();
    if (InsertFrm *standing = standingInsertWindow(); standing && !m_others.empty()) {
        m_notTaken << QStringLiteral("%1 waits until the window that inserts is closed")
                          .arg(titleToShow(m_others.front()));
        waitFor(*standing);
    } else if (!m_others.empty()) {
        const std::string path = std::exchange(m_others.front(), {});
        m_others.pop_front();
        show(path);
    }
    say();
}

void DroppedQueue::show(const std::string &path) {
    const FileKind kind = kindOfFile(path);
    if (kind == FileKind::SymbolList)
        showSymbols(path);
    else
        waitFor(loaded<MDIFrm>()->insertPicture(kind, path));
}

void DroppedQueue::showSymbols(const std::string &path) {
    if (shared::EdiçãoActiva != kTextual) {
        m_notTaken << QStringLiteral("%1: symbols are for the textual edition").arg(titleToShow(path));
        return showNext();
    }
    loaded<MDIFrm>()->MostrarSymbolFrm();
    SymbolFrm &window = *loaded<SymbolFrm>();
    window.showPage(SymbolFrm::ListPage);
    if (!window.openFile(path))
        m_notTaken << QStringLiteral("%1 wasn't opened: it holds no symbols").arg(titleToShow(path));
    waitFor(window);
}

void DroppedQueue::waitFor(ToolFrm &window) {
    connect(
        &window, &QObject::destroyed, this,
        [this] {
            sayInStatusBar({});
            take({});
        },
        Qt::QueuedConnection);
}

void DroppedQueue::say() {
    if (!m_notTaken.isEmpty())
        sayInStatusBar(std::exchange(m_notTaken, {}).join(QStringLiteral("; ")));
}

} // namespace zolt
