// What a user waits for: a long document opened in the window of each edition, the
// preview of one and the commands of the other; printing.
// Run it with QT_QPA_PLATFORM=offscreen.

#include "core/file.h"
#include "graphic/rtf_writer.h"
#include "platform/printer.h"
#include "platform/rich_text_box.h"
#include "rich_document.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/preview/live_preview.h"
#include "shell/start/start_up.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

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

void end() {
    shared::SemPerguntaDeSaída = 1;
    loaded<MDIFrm>()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Keys a tenth of a second apart with the live preview on, so that it compiles between
/// them: a key until it is painted; the longest that the windows were busy at one go, which
/// is what a key may wait; and how long the screen is behind.
void reportLivePreview(Pane &pane) {
    MDIFrm &frame = *loaded<MDIFrm>();
    frame.MnuVerLivePreview();
    const auto *preview = frame.findChild<LivePreview *>();
    pane.setSelStart(pane.length() / 2);
    const auto wait = [&](const std::function<bool()> &isOver) {
        double longest = 0;
        while (!isOver()) {
            QElapsedTimer turn;
            turn.start();
            QCoreApplication::processEvents();
            longest = std::max(longest, static_cast<double>(turn.nsecsElapsed()) / 1e6);
        }
        return longest;
    };
    // The pane is narrower now and lays its text out anew.
    wait([&] { return preview->isUpToDate(); });
    double key = 0;
    double busy = 0;
    for (int i = 0; i < 30; ++i) {
        QElapsedTimer clock;
        clock.start();
        QTest::keyClick(&pane.control(), Qt::Key_A);
        QCoreApplication::processEvents();
        key = std::max(key, static_cast<double>(clock.nsecsElapsed()) / 1e6);
        busy = std::max(busy, wait([&] { return clock.elapsed() > 100; }));
    }
    QElapsedTimer clock;
    clock.start();
    QTest::keyClick(&pane.control(), Qt::Key_A);
    busy = std::max(busy, wait([&] { return preview->isUpToDate(); }));
    std::printf("live preview: a key at worst %-19.1f %5.1f ms may it wait, shown after %lld ms\n", key, busy,
                static_cast<long long>(clock.elapsed()));
    frame.MnuVerLivePreview();
}

void measureTextEdition(const std::string &file, std::size_t megabytes) {
    const std::string size = std::to_string(megabytes) + " MB";
    writeFile(file, documentOf(megabytes * 1000000));
    report("start with a document of " + size, [&] { startProgram(file); });
    report("its text taken to be kept against a crash",
           [] { loaded<EditTextFrm>()->snapshotOf(loaded<EditTextFrm>()->activePane()); });
    reportLivePreview(loaded<EditTextFrm>()->activePane());
    report("its preview on the calculator's display",
           [] { loaded<EditTextFrm>()->MnuVerPrévisualizartudoEstiloHP48(); });
    loaded<EditTextPreviewFrm>()->close();
    end();
}

/// A key until it is painted, of 40 the median and the worst.
void reportKeys(RichTextBox &pane, const char *where, qsizetype offset) {
    pane.setSelStart(offset);
    QCoreApplication::processEvents();
    std::vector<double> times;
    for (int i = 0; i < 40; ++i) {
        QElapsedTimer clock;
        clock.start();
        QTest::keyClick(&pane, Qt::Key_A);
        QCoreApplication::processEvents();
        times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    std::printf("a key %-38s %7.1f ms, %.1f at worst\n", where, times[times.size() / 2], times.back());
}

void measureGraphicalEdition(const std::string &file, int pictures) {
    writeFile(file, rtfFromRichText(richDocument(pictures)));
    report("start with 1 MB and " + std::to_string(pictures) + " pictures", [&] { startProgram(file); });
    EditGraphFrm &window = *loaded<EditGraphFrm>();
    RichTextBox &pane = window.activeRichPane();
    reportKeys(pane, "at its start", 0);
    reportKeys(pane, "in its middle", pane.length() / 2);
    reportKeys(pane, "at its end", pane.length());
    reportLivePreview(pane);
    report("taken to be kept against a crash", [&] { window.snapshotOf(pane); });
    report("text size", [&] {
        shared::TamanhoDaLetra = 12;
        window.EscolherTamanhoDaLetra();
    });
    report("scheme HP48", [&] { window.MnuFormatarHp48(); });
    report("scheme Default", [&] { window.MnuFormatarPadrão(); });
    report("undo", [&] { window.EditarAnularintrodução(); });
    window.EditarSeleccionarTudo();
    if (pictures == 0)
        report("capitals in all of it", [&] { window.MnuFormatarMaiusculasminusculasMai(); });
    window.EditarSeleccionarTudo();
    shared::FonteDeEstilo = "ZOLT";
    report("style Normal in all of it", [&] { window.AplicarEstilosDeLetra(); });
    report("save", [&] { window.FicheiroGuardar(); });
    report("word wrap off", [&] { window.EditarTranslinearpalavras(); });
    report("word wrap on", [&] { window.EditarTranslinearpalavras(); });
    end();
}

/// Pages of 58 lines in the standard margins of A4, into memory; each tenth line holds a
/// picture if asked.
void measurePrinting(int pages, bool pictures) {
    RichTextBuilder builder;
    for (int line = 0; line < pages * 58; ++line) {
        if (line > 0)
            builder.endParagraph();
        builder.append("the quick brown fox jumps over the lazy dog", {});
        if (pictures && line % 10 == 0)
            builder.append(drawnPicture(), {});
    }
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    report("print " + std::to_string(pages) + (pictures ? " pages and pictures" : " pages"), [&] {
        QPdfWriter writer(&pdf);
        writer.setPageSize(QPageSize(QPageSize::A4));
        PrintRTF(builder.text(), {1728, 1440, 1728, 1440}, writer);
    });
    std::printf("%-44s %7.1f MB\n", "  its PDF", static_cast<double>(pdf.size()) / 1e6);
}

} // namespace

int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *folder : {"ZOLT_HOME", "XDG_STATE_HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    prepareApplication();
    const QApplication application(argc, argv);
    for (const std::size_t megabytes : {1, 10})
        measureTextEdition(home.path().toStdString() + "/long.zlt", megabytes);
    for (const int pictures : {500, 0})
        measureGraphicalEdition(home.path().toStdString() + "/long.zlg", pictures);
    for (const int pages : {100, 1000, 10'000})
        measurePrinting(pages, false);
    measurePrinting(1000, true);
    return 0;
}
