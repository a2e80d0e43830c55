// Times of the text pane in long documents: until one is shown, and until a
// typed key has been painted and the status bar's questions are answered; with all
// that the pane can show beside the characters, and without. Then, in the windows, keys
// in very long lines, and Find next.
// An argument is what the names of the documents wanted hold.
// Runs on any Qt platform; without a display: QT_QPA_PLATFORM=offscreen.

#include "core/file.h"
#include "platform/pane_look.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/start/start_up.h"
#include "shell/tools/edit_text_find_frm.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kDocumentBytes = 10'000'000;

std::string documentOfLines(std::size_t columns) {
    static constexpr std::string_view kWords = "Um texto de linhas e palavras, (x+1)/2 = 50% ... fim; ";
    std::string line;
    while (line.size() < columns)
        line += kWords[line.size() % kWords.size()];
    line += "\r\n";
    std::string text;
    text.reserve(kDocumentBytes + line.size());
    while (text.size() < kDocumentBytes)
        text += line;
    return text;
}

std::string documentOf(const std::string &line) {
    std::string text;
    text.reserve(kDocumentBytes + line.size());
    while (text.size() < kDocumentBytes)
        text += line;
    return text;
}

const std::string kStyled = "Some \x0B"
                            "Bbold\x0B"
                            "B, \x0BVinverse\x0BV and \x0BUopen words\r\n"
                            "\x9E"
                            "F99F00\x9E"
                            "0000F1\x9E"
                            "123456\x9E"
                            "ABCDEF\r\n";
const std::string kCodes = "\x0B"
                           "B\x0BV\x0BU\x0BI\x0B"
                           "E\x0BV\x0BU\x0BI\x0B"
                           "E\x0B/\x0B|\x0B|\x0B/\x0BU\x0BU\x0BU\r\n";

std::string longLine(std::size_t length) {
    std::string line;
    while (line.size() < length)
        line.append(kStyled, 0, kStyled.find('\r'));
    return line.substr(0, length) + "\r\n";
}

double milliseconds(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

qsizetype g_answers = 0; // so that no question is left out
std::string g_wanted;    // in the names of the documents that are measured

double pageTime(zolt::TextPane &pane) {
    QElapsedTimer timer;
    timer.start();
    pane.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    pane.viewport()->repaint();
    return milliseconds(timer);
}

double keyTime(zolt::TextPane &pane, const QString &typed) {
    QElapsedTimer timer;
    timer.start();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, typed);
    QApplication::sendEvent(&pane, &press);
    g_answers += pane.lineOfOffset(pane.selEnd()) + pane.lineStartOfCaret() + pane.length();
    pane.viewport()->repaint(); // all of the view, more than a key asks for
    return milliseconds(timer);
}

void measure(const std::string &name, const std::string &text, bool wraps,
             const zolt::PaneShows &shows = {}) {
    if (name.find(g_wanted) == std::string::npos)
        return;
    zolt::TextPane pane(wraps);
    pane.resize(800, 600);
    pane.setShows(shows);
    pane.setPaneFont(QFont(QStringLiteral("Liberation Mono"), 10));
    QElapsedTimer timer;
    timer.start();
    pane.setText(text);
    const double set = milliseconds(timer);
    pane.show();
    while (!pane.windowHandle()->isExposed())
        QApplication::processEvents();
    pane.viewport()->repaint();
    const double shown = milliseconds(timer);
    timer.restart();
    const int lines = pane.displayLineCount();
    const double counted = milliseconds(timer);
    std::printf("%s%-22s %-7s set %6.0f ms, shown %6.0f ms, %d lines counted %6.1f ms\n",
                shows.styles ? "with looks: " : "", name.c_str(), wraps ? "wraps" : "doesn't", set, shown,
                lines, counted);

    const struct {
        const char *name;
        qsizetype offset;
    } places[] = {{"start", 0}, {"middle", pane.length() / 2}, {"end", pane.length()}};
    for (const auto &place : places) {
        timer.restart();
        pane.setSelStart(place.offset);
        pane.viewport()->repaint();
        const double jump = milliseconds(timer);
        std::vector<double> times;
        for (int i = 0; i < 30; ++i)
            times.push_back(keyTime(pane, i % 2 ? QStringLiteral("B") : QString(QChar(0xE00B))));
        const double first = times.front();
        std::sort(times.begin(), times.end());
        std::printf("    key at the %-7s jump %7.2f ms, first %7.2f ms, median %6.2f ms, worst %7.2f ms\n",
                    place.name, jump, first, times[times.size() / 2], times.back());
    }
    std::vector<double> pages;
    pane.setSelStart(pane.length() / 2);
    for (int i = 0; i < 30; ++i)
        pages.push_back(pageTime(pane));
    std::sort(pages.begin(), pages.end());
    std::printf("    a page in the middle: median %6.2f ms, worst %7.2f ms\n", pages[pages.size() / 2],
                pages.back());
    timer.restart();
    pane.resize(700, 600);
    QApplication::processEvents(); // the view's own resize comes by an event
    pane.viewport()->repaint();
    const double resized = milliseconds(timer);
    timer.restart();
    g_answers += pane.lineOfOffset(pane.length());
    std::printf("    resize %6.1f ms, the last line's number after it %6.1f ms\n", resized,
                milliseconds(timer));
    timer.restart();
    std::string read = pane.Text();
    std::printf("    Text %6.1f ms (%zu bytes)\n", milliseconds(timer), read.size());
    std::replace(read.begin(), read.end(), 'e', 'E');
    timer.restart();
    pane.replaceText(read);
    const double replaced = milliseconds(timer);
    timer.restart();
    pane.undo();
    std::printf("    replaceText of all %6.1f ms, its undo %6.1f ms\n", replaced, milliseconds(timer));
    std::fflush(stdout);
}

/// Until all that follows from `act` is painted: of so many times the median and the worst.
void report(const std::string &what, int times, const std::function<void()> &act) {
    std::vector<double> all;
    for (int i = 0; i < times; ++i) {
        QElapsedTimer timer;
        timer.start();
        act();
        QCoreApplication::processEvents();
        all.push_back(milliseconds(timer));
    }
    std::sort(all.begin(), all.end());
    std::printf("    %-34s median %7.2f ms, worst %7.2f ms\n", what.c_str(), all[all.size() / 2], all.back());
    std::fflush(stdout);
}

/// The program with a document in its window, until it goes.
class Program {
public:
    explicit Program(const std::string &text) {
        const std::string file = m_home.path().toStdString() + "/long.zlt";
        zolt::writeFile(file, text);
        zolt::startProgram(file);
        QCoreApplication::processEvents();
    }
    ~Program() {
        zolt::shared::SemPerguntaDeSaída = 1;
        zolt::loaded<zolt::MDIFrm>()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

private:
    QTemporaryDir m_home;
};

void measureKeys(const std::string &name, const std::string &text) {
    if (name.find(g_wanted) == std::string::npos)
        return;
    const Program program(text);
    auto &window = *zolt::loaded<zolt::EditTextFrm>();
    for (const bool wraps : {true, false}) {
        if (wraps != (zolt::shared::settings.TxtWWrap == 1))
            window.EditarTranslinearpalavras();
        zolt::TextPane &pane = window.activeTextPane();
        pane.setShows({true, true, true});
        for (const char *place : {"start", "middle", "end"}) {
            std::printf("%s, %s, at its %s\n", name.c_str(), wraps ? "wraps" : "doesn't wrap", place);
            const qsizetype length = pane.length() - (text.ends_with('\n') ? 2 : 0);
            const std::string_view where = place;
            pane.setSelStart(where == "start" ? 0 : where == "middle" ? length / 2 + 100 : length);
            QCoreApplication::processEvents();
            const auto press = [&](Qt::Key key, const char *called) {
                report(called, 7, [&] { QTest::keyClick(&pane, key); });
            };
            press(Qt::Key_A, "A");
            press(Qt::Key_Backspace, "Backspace");
            for (const auto &[key, called] :
                 {std::pair{Qt::Key_Left, "Left"}, std::pair{Qt::Key_Right, "Right"},
                  std::pair{Qt::Key_Up, "Up"}, std::pair{Qt::Key_Down, "Down"},
                  std::pair{Qt::Key_PageUp, "Page Up"}, std::pair{Qt::Key_PageDown, "Page Down"},
                  std::pair{Qt::Key_Home, "Home"}, std::pair{Qt::Key_End, "End"}})
                press(key, called);
        }
    }
}

void measureFind(const std::string &name, const std::string &text) {
    if (name.find(g_wanted) == std::string::npos)
        return;
    const Program program(text);
    auto &window = *zolt::loaded<zolt::EditTextFrm>();
    window.EditarLocalizarESubstituir();
    auto &find = *zolt::loaded<zolt::EditTextFindFrm>();
    auto *box = find.findChild<QLineEdit *>(QStringLiteral("Text1"));
    std::printf("%s\n", name.c_str());
    box->setText(QStringLiteral("E"));
    QCoreApplication::processEvents();
    report("Find next, a near hit", 21, [&] { QTest::keyClick(box, Qt::Key_Return); });
    const auto toTheEnd = [&](const QString &wanted) {
        box->setText(wanted);
        report("Find next, to the end: " + wanted.toStdString(), 7, [&] {
            zolt::shared::PosiçãoCursor = 0;
            window.activePane().setSelStart(0);
            QTimer answer;
            QObject::connect(&answer, &QTimer::timeout, &answer, [] {
                if (auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                    question->accept();
            });
            answer.start(0);
            QTest::keyClick(box, Qt::Key_Return);
        });
    };
    toTheEnd(QStringLiteral("not there"));
    find.findChild<QAbstractButton *>(QStringLiteral("Check1"))->click();
    toTheEnd(QStringLiteral("Not there"));
}

} // namespace

int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *folder : {"ZOLT_HOME", "XDG_STATE_HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    zolt::prepareApplication();
    const QApplication application(argc, argv);
    g_wanted = argc > 1 ? argv[1] : "";
    for (const bool wraps : {false, true}) {
        measure("10 MB, 33 columns", documentOfLines(33), wraps);
        measure("10 MB, 300 columns", documentOfLines(300), wraps);
        measure("one line of 1 MB", std::string(1'000'000, 'x'), wraps);
        for (const zolt::PaneShows &shows : {zolt::PaneShows{}, zolt::PaneShows{true, true, true}}) {
            measure("10 MB, 33 columns", documentOfLines(33), wraps, shows);
            measure("10 MB of styles, cells", documentOf(kStyled), wraps, shows);
            measure("10 MB of codes", documentOf(kCodes), wraps, shows);
            for (const std::size_t length : {2'000, 19'000})
                measure("lines of " + std::to_string(length), documentOf(longLine(length)), wraps, shows);
        }
    }
    measureKeys("keys in one line of 1 MB", longLine(1'000'000));
    measureKeys("keys in lines of 19000", documentOf(longLine(19'000)));
    measureKeys("keys in lines of 33", documentOfLines(33));
    measureFind("finding in 10 MB of lines", documentOfLines(33));
    measureFind("finding in one line of 1 MB", longLine(1'000'000));
}
