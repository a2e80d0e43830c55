// What the commands of a window with the rich text control cost: a document of 1 MB in
// two fonts with 500 pictures, shown in a window. A key is counted until it is painted.

#include "platform/rich_text_box.h"
#include "rich_document.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace zolt;

namespace {

double milliseconds(const std::function<void()> &work) {
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void report(const char *what, const std::function<void()> &work) {
    std::printf("  %-36s %8.1f ms\n", what, milliseconds(work));
    std::fflush(stdout);
}

void settle() {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 3000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

void keys(RichTextBox &box, const char *where, qsizetype offset) {
    box.setSelStart(offset);
    QApplication::processEvents();
    std::vector<double> times;
    for (int i = 0; i < 40; ++i)
        times.push_back(milliseconds([&] {
            QTest::keyClick(&box, Qt::Key_A);
            box.viewport()->repaint();
        }));
    std::sort(times.begin(), times.end());
    std::printf("  key %-32s %8.1f ms, %.1f at worst\n", where, times[times.size() / 2], times.back());
}

void measure(bool wraps) {
    std::printf("control that %s\n", wraps ? "wraps" : "doesn't wrap");
    const RichText text = richDocument();
    RichTextBox box(wraps);
    box.resize(900, 600);
    box.show();
    QApplication::processEvents();
    report("set and show", [&] {
        box.setRichText(text);
        box.viewport()->repaint();
    });
    settle();
    keys(box, "at the start", 0);
    keys(box, "in the middle", box.length() / 2);
    keys(box, "at the end", box.length());
    report("line of the end", [&] { box.lineOfOffset(box.length()); });
    report("Text", [&] { box.Text(); });
    report("richText", [&] { box.richText(); });
    std::string rtf;
    report("TextRTF", [&] { rtf = box.TextRTF(); });
    const auto all = [&](const char *what, const std::function<void()> &change) {
        box.setSelStart(0);
        box.setSelLength(box.length());
        report(what, [&] {
            change();
            box.viewport()->repaint();
        });
    };
    all("size of all", [&] { box.setSelFontSize(12); });
    all("colour of all", [&] { box.setSelColor(0x80FF80); });
    all("font of all", [&] { box.setSelFontName("ZOLT"); });
    report("undo", [&] { box.undo(); });
    report("resize", [&] {
        box.resize(700, 600);
        QApplication::processEvents();
        box.viewport()->repaint();
    });
    report("set RTF", [&] { box.setTextRTF(rtf); });
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    measure(false);
    measure(true);
}
