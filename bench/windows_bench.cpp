// What a user waits for: a long document opened in the window, and its preview.
// Run it with QT_QPA_PLATFORM=offscreen.

#include "core/file.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/start/start_up.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>
#include <string>

namespace {

using namespace zolt;

/// Ordinary text: lines of 31 characters, a bold word in every fourth.
std::string documentOf(std::size_t bytes) {
    std::string text;
    while (text.size() < bytes)
        text += text.size() % 4 ? "the quick brown fox jumps over\r\n"
                                : "a \vBbold\vB word and some more of it\r\n";
    return text;
}

void report(const std::string &what, const std::function<void()> &work) {
    QElapsedTimer clock;
    clock.start();
    work();
    QCoreApplication::processEvents();
    std::printf("%-44s %7lld ms\n", what.c_str(), static_cast<long long>(clock.elapsed()));
}

} // namespace

int main(int argc, char **argv) {
    const QTemporaryDir home;
    qputenv("ZOLT_HOME", home.path().toLocal8Bit());
    prepareApplication();
    const QApplication application(argc, argv);
    for (const std::size_t megabytes : {1, 10}) {
        const std::string size = std::to_string(megabytes) + " MB";
        const std::string file = home.path().toStdString() + "/long.zlt";
        writeFile(file, documentOf(megabytes * 1000000));
        report("start with a document of " + size, [&] { startProgram(file); });
        report("its preview on the calculator's display",
               [] { loaded<EditTextFrm>()->MnuVerPrévisualizartudoEstiloHP48(); });
        loaded<EditTextPreviewFrm>()->close();
        shared::SemPerguntaDeSaída = 1;
        loaded<MDIFrm>()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return 0;
}
