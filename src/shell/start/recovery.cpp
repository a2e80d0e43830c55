#include "shell/start/recovery.h"

#include "core/new_file.h"
#include "graphic/rtf_reader.h"
#include "platform/common_dialog.h"
#include "platform/pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/document_keeper.h"
#include "shell/base/shared_values.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/graphic/edit_graph_fullscreen_frm.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/document/text/edit_text_fullscreen_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/start/document_windows.h"
#include "shell/tools/recover_frm.h"

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace zolt {

namespace {

/// Signals come to the event loop through a pipe.
std::array<int, 2> signalPipe{-1, -1};

void passSignalOn(int signal) {
    const char number = static_cast<char>(signal);
    // A second one doesn't wait.
    std::signal(signal, SIG_DFL);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &number, 1);
}

void keepAtOnce() {
    // Their text goes back to the document.
    unload<EditTextFullscreenFrm>();
    unload<EditGraphFullscreenFrm>();
    if (DocumentKeeper *keeper = documentKeeper())
        keeper->keepNow();
}

void endBySignal() {
    char number = 0;
    if (::read(signalPipe[0], &number, 1) != 1)
        return;
    keepAtOnce();
    std::raise(number);
}

/// Closes the window of the other edition, if there is one; false if it stays.
bool makeRoomFor(int edition) {
    DocumentInUse *document = documentInUse();
    return !document || shared::EdiçãoActiva == edition || document->window().close();
}

} // namespace

bool offerWhatACrashLeft() {
    std::vector<KeptDocuments::Entry> entries = documentKeeper()->leftByCrashes();
    if (entries.empty())
        return false;
    MDIFrm &frame = *loaded<MDIFrm>();
    frame.showKept(RecoverFrm::LeftByCrash, std::move(entries));
    // Then the start goes on as it would have.
    QObject::connect(
        loaded<RecoverFrm>(), &RecoverFrm::left, &frame,
        [&frame] {
            if (!documentInUse())
                frame.MostrarQuestionFrm();
        },
        Qt::QueuedConnection);
    return true;
}

void giveBack(const KeptDocuments::Entry &entry) {
    const KeptDocument &document = entry.document;
    if (!makeRoomFor(document.edition))
        return;
    DocumentFrm &window = openEdition(document.edition);
    window.keepThrownAway();
    const QString caption = QString::fromStdString(document.caption);
    if (document.edition == kGraphical)
        static_cast<EditGraphFrm &>(window).begin(richTextFromRtf(document.bytes), caption);
    else
        static_cast<EditTextFrm &>(window).begin(document.bytes, caption);
    commonDialog(DialogFrm::Document).FileName = document.path;
    window.followFileSince(document.time);
    window.activePane().setSelStart(document.caret);
    // It is kept for this program before it goes for all.
    if (documentKeeper()->keepNow())
        documentKeeper()->remove(entry);
}

void keepDocumentAtSessionEnd() {
    if (signalPipe[0] >= 0 || ::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, qApp,
                     [](QSessionManager &) { keepAtOnce(); });
    auto *notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, endBySignal);
    onEndingSignals(passSignalOn);
}

} // namespace zolt
