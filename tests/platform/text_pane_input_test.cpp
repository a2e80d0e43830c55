#include "platform/byte_line.h"
#include "platform/text_pane.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>
#include <random>

using zolt::ByteLine;
using zolt::PaneEvents;
using zolt::TextPane;

namespace {

/// A shown pane with the focus.
struct ShownPane {
    explicit ShownPane(std::string_view text = "", bool wraps = false) : pane(wraps) {
        pane.resize(400, 300);
        pane.setText(text);
        pane.show();
        pane.setFocus();
        QApplication::setActiveWindow(&pane);
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&pane, code, modifiers);
    }
    void type(const QString &text) {
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, &pane, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }

    TextPane pane;
};

TEST(TextPaneKeys, TypedCharactersBecomeTheirBytes) {
    const struct {
        const char *typed;
        const char *bytes;
    } cases[] = {
        {"aZ~", "aZ~"},         {"éŒ", "\xE9OE"},   {"α→√", "\x8C\x8D\x83"}, {"\u00A0\u00AD", "\xA0\xAD"},
        {"\u0416\u4E00", "??"}, {"\u0081", "\x81"}, {"“μ…”", "\"\xB5...\""},
    };
    for (const auto &c : cases) {
        ShownPane shown;
        shown.type(QString::fromUtf8(c.typed));
        EXPECT_EQ(shown.pane.Text(), c.bytes) << c.bytes;
    }
    ShownPane shown;
    QTest::sendKeyEvent(QTest::Click, &shown.pane, Qt::Key_unknown, QStringLiteral("\U0001F600"),
                        Qt::NoModifier);
    EXPECT_EQ(shown.pane.Text(), "?") << "a character outside the basic plane is one";
}

TEST(TextPaneKeys, EditingKeysWriteCrLfAndByteNine) {
    ShownPane shown("ab");
    shown.key(Qt::Key_Right);
    shown.key(Qt::Key_Return);
    shown.key(Qt::Key_Enter, Qt::KeypadModifier);
    shown.key(Qt::Key_Return, Qt::ShiftModifier);
    shown.key(Qt::Key_Tab);
    EXPECT_EQ(shown.pane.Text(), "a\r\n\r\n\r\n\tb");
    EXPECT_EQ(shown.pane.SelStart(), 8);
    shown.key(Qt::Key_Backspace);
    shown.key(Qt::Key_Backspace);
    EXPECT_EQ(shown.pane.Text(), "a\r\n\r\nb");
    shown.key(Qt::Key_Up);
    shown.key(Qt::Key_Delete);
    EXPECT_EQ(shown.pane.Text(), "a\r\nb");
}

TEST(TextPaneKeys, AltWithANumberOnTheKeypadTypesItsByte) {
    ShownPane shown;
    const auto typeNumber = [&](const char *digits) {
        // Qt Test would let Alt go after each digit.
        for (; *digits; ++digits) {
            QKeyEvent digit(QEvent::KeyPress, *digits, Qt::AltModifier | Qt::KeypadModifier,
                            QString(QLatin1Char(*digits)));
            QApplication::sendEvent(&shown.pane, &digit);
        }
        QTest::keyRelease(&shown.pane, Qt::Key_Alt);
    };
    for (const char *digits : {"0140", "91", "140", "0", "0256", "", "0255"})
        typeNumber(digits);
    EXPECT_EQ(shown.pane.Text(), std::string("\x8C[\x8C\0\xFF", 5));
    shown.key(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(shown.pane.length(), 5) << "Alt with a letter is for menus";
}

TEST(TextPaneKeys, TheWindowsShortcutsReachTheWindow) {
    QMainWindow window;
    auto *pane = new TextPane(true);
    window.setCentralWidget(pane);
    pane->setText("text");
    int reached = 0;
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_A, Qt::Key_G, Qt::Key_P}) {
        auto *action = new QAction(&window);
        action->setShortcut(QKeySequence(Qt::CTRL | key));
        QObject::connect(action, &QAction::triggered, [&] { ++reached; });
        window.addAction(action);
    }
    window.show();
    QApplication::setActiveWindow(&window);
    pane->setFocus();
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_A, Qt::Key_G, Qt::Key_P})
        QTest::keyClick(pane, key, Qt::ControlModifier);
    EXPECT_EQ(reached, 4);
    EXPECT_EQ(pane->Text(), "text");
    EXPECT_EQ(pane->SelLength(), 0);

    qDeleteAll(window.actions());
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_K, Qt::Key_U, Qt::Key_J})
        QTest::keyClick(pane, key, Qt::ControlModifier);
    EXPECT_EQ(pane->Text(), "text");
    EXPECT_EQ(pane->SelLength(), 0) << "no key selects all, also where no menu takes it";
}

TEST(TextPaneKeys, UndoAndRedoWalkTheWholeHistoryWithTheSelections) {
    ShownPane shown("one two\r\nthree");
    TextPane &pane = shown.pane;
    struct State {
        std::string text;
        qsizetype start, length;
        bool operator==(const State &) const = default;
    };
    const auto state = [&] { return State{pane.Text(), pane.SelStart(), pane.SelLength()}; };

    std::vector<State> before;
    std::vector<State> after;
    const auto step = [&](const auto &change) {
        before.push_back(state());
        change();
        after.push_back(state());
    };
    pane.setSelStart(4);
    pane.setSelLength(3);
    step([&] { shown.type(QStringLiteral("zwei")); }); // over a selection, then grows
    pane.setSelStart(2);
    step([&] { shown.key(Qt::Key_Return); });
    pane.setSelStart(0);
    pane.setSelLength(6);
    step([&] { shown.key(Qt::Key_X, Qt::ControlModifier); });
    pane.setSelStart(pane.length());
    step([&] { shown.key(Qt::Key_V, Qt::ControlModifier); });
    pane.setSelStart(1);
    pane.setSelLength(3);
    step([&] {
        pane.setSelText("\x0B"
                        "Bxy\x0B"
                        "B");
    });
    pane.setSelStart(3);
    step([&] { pane.replaceText("whole"); });
    pane.setSelStart(2);
    step([&] { shown.type(QStringLiteral("end")); });
    pane.setSelStart(0);

    for (std::size_t i = before.size(); i-- > 0;) {
        shown.key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(state() == before[i]) << i << pane.Text() << pane.SelStart() << " " << pane.SelLength();
    }
    for (std::size_t i = 0; i < after.size(); ++i) {
        i % 2 ? shown.key(Qt::Key_Y, Qt::ControlModifier)
              : shown.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(state() == after[i]) << i << pane.Text() << pane.SelStart() << " " << pane.SelLength();
    }
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    shown.type(QStringLiteral("!")); // a change where the history was cut
    const State changed = state();
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(state() == before[5]);
    shown.key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(state() == changed);
}

TEST(TextPaneClipboard, CarriesExactBytesForThePaneAndCalculatorCharactersForOthers) {
    const std::string bytes("\x0B"
                            "B\x8C\0\xA0\r\n\x9E"
                            "00ff00\x83\r\t",
                            18);
    ShownPane shown(bytes);
    shown.pane.setSelStart(0);
    shown.pane.setSelLength(shown.pane.length());
    shown.key(Qt::Key_C, Qt::ControlModifier);
    const QString text = QApplication::clipboard()->text();
    EXPECT_TRUE(text.startsWith(QStringLiteral("\x0B"
                                               "Bα")))
        << text.toStdString();
    EXPECT_EQ(text.count(u'\n'), 1);
    EXPECT_TRUE(text.contains(u'\u221A'));

    ShownPane other("<>", true);
    other.pane.setSelStart(1);
    other.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(other.pane.Text(), "<" + bytes + ">");
    EXPECT_EQ(other.pane.SelStart(), 1 + static_cast<qsizetype>(bytes.size()));
    other.pane.setSelStart(1);
    other.pane.setSelLength(3);
    other.key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(other.pane.Text(), "<" + bytes.substr(3) + ">");
}

TEST(TextPaneClipboard, TextFromOutsideBecomesBytes) {
    const struct {
        const char *pasted;
        const char *bytes;
    } cases[] = {
        {"a\nb\rc\r\nd", "a\r\nb\r\nc\r\nd"},
        {"\n\r\n\n", "\r\n\r\n\r\n"},
        {"x\u2028y\u2029z", "x\r\ny\r\nz"},
        {"α\tμβ😀Ж", "\x8C\t\xB5\xDF??"},
        {"“it’s” – 5″…", "\"it's\" - 5\"..."},
        {"e\u0301o\u0302 q\u0304", "\xE9\xF4 q"},
        {"ž99F0A1, že", "\x9E"
                        "99F0A1, ze"},
    };
    for (const auto &c : cases) {
        QApplication::clipboard()->setText(QString::fromUtf8(c.pasted));
        ShownPane shown;
        shown.key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(shown.pane.Text(), c.bytes);
    }
}

/// Whether a widget takes what another program lets fall on it.
bool dropOn(QWidget *widget, const QMimeData &mime, QPoint place) {
    QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &drop);
    return enter.isAccepted() && drop.isAccepted();
}

TEST(TextPaneDrop, DroppedTextBecomesBytesWhereItFalls) {
    ShownPane shown("ab");
    QMimeData text;
    text.setText(QStringLiteral("α\n"));
    shown.pane.setSelStart(1);
    const QPoint place = shown.pane.cursorRect().center();
    shown.pane.setSelStart(0);
    EXPECT_TRUE(dropOn(shown.pane.viewport(), text, place));
    EXPECT_EQ(shown.pane.Text(), "a\x8C\r\nb");
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown.pane.Text(), "ab");
    EXPECT_EQ(shown.pane.SelStart(), 0);
}

TEST(TextPaneDrop, FilesAreNoTextButLinksAre) {
    ShownPane shown;
    ByteLine line;
    const auto offer = [&](const char *url) {
        auto *mime = new QMimeData; // the clipboard owns it
        mime->setUrls({QUrl(QString::fromLatin1(url))});
        mime->setText(QString::fromLatin1(url));
        QApplication::clipboard()->setMimeData(mime);
        const bool taken = dropOn(shown.pane.viewport(), *mime, {5, 5});
        EXPECT_EQ(dropOn(&line, *mime, {5, 5}), taken);
        for (QWidget *widget : std::initializer_list<QWidget *>{&shown.pane, &line})
            QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
        return taken;
    };
    EXPECT_FALSE(offer("file:///home/name/picture.png"));
    EXPECT_EQ(shown.pane.Text() + line.Text(), "");
    EXPECT_TRUE(offer("https://a.b/"));
    EXPECT_EQ(shown.pane.Text(), "https://a.b/https://a.b/");
    EXPECT_EQ(line.Text(), "https://a.b/https://a.b/");
}

TEST(ByteLine, TakesTextAsAPaneDoesAndBytesAsTheyAre) {
    ByteLine line;
    QTest::sendKeyEvent(QTest::Click, &line, Qt::Key_unknown, QStringLiteral("Œ"), Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Click, &line, Qt::Key_unknown, QStringLiteral("…"), Qt::NoModifier);
    QTest::keyClicks(&line, QStringLiteral("x"));
    EXPECT_EQ(line.Text(), "OE...x") << "the caret goes on behind what grew";
    QApplication::clipboard()->setText(QStringLiteral("“α”\nμ"));
    line.clear();
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line.Text(), "\"\x8C\" \xB5");

    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(255 - code); // so that no line end comes about
    line.setText(all);
    EXPECT_EQ(line.Text(), all);
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(line.Text(), "");
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u'α'));
    ShownPane shown;
    shown.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown.pane.Text(), all);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&line, &menu);
    for (QAction *action : line.findChild<QMenu *>()->actions())
        if (action->text().startsWith(QStringLiteral("&Paste")))
            action->trigger();
    EXPECT_EQ(line.Text(), all);
}

TEST(TextPaneInputMethod, CommittedTextBecomesBytes) {
    ShownPane shown("ab");
    shown.pane.setSelStart(1);
    QSignalSpy changes(&shown.pane.events(), &PaneEvents::Change);
    QInputMethodEvent preedit(QStringLiteral("´"), {});
    QApplication::sendEvent(&shown.pane, &preedit);
    EXPECT_EQ(shown.pane.Text(), "ab") << "what is being composed is not yet text";
    EXPECT_EQ(changes.count(), 0);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("éα\n日"));
    QApplication::sendEvent(&shown.pane, &commit);
    EXPECT_EQ(shown.pane.Text(), "a\xE9\x8C\r\n?b");
}

TEST(TextPaneReports, EventsAreReportedAfterThePaneActed) {
    ShownPane shown("abc abc abc");
    TextPane &pane = shown.pane;
    QStringList log;
    const auto note = [&](const QString &what) { log << what + QString::number(pane.SelStart()); };
    QObject::connect(&pane.events(), &PaneEvents::keyDown, [&] { note(QStringLiteral("down")); });
    QObject::connect(&pane.events(), &PaneEvents::keyUp, [&] { note(QStringLiteral("up")); });
    QObject::connect(&pane.events(), &PaneEvents::Change, [&] { note(QStringLiteral("change")); });
    QObject::connect(&pane.events(), &PaneEvents::mouseDown,
                     [&](Qt::MouseButton b) { note(QStringLiteral("press%1@").arg(int(b))); });
    QObject::connect(&pane.events(), &PaneEvents::mouseUp,
                     [&](Qt::MouseButton b) { note(QStringLiteral("release%1@").arg(int(b))); });
    QObject::connect(&pane.events(), &PaneEvents::click, [&] { note(QStringLiteral("click")); });

    shown.key(Qt::Key_Right);
    shown.type(QStringLiteral("x"));
    EXPECT_EQ(log.join(u' ').toStdString(), "down1 up1 change2 down2 up2");

    log.clear();
    const QPoint lineEnd(350, pane.cursorRect().center().y());
    QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, lineEnd);
    EXPECT_EQ(log.join(u' ').toStdString(), "press1@12 release1@12 click12");

    log.clear();
    QTest::mouseClick(pane.viewport(), Qt::RightButton, {}, lineEnd);
    EXPECT_EQ(log.join(u' ').toStdString(), "press2@12 release2@12");
    QContextMenuEvent menu(QContextMenuEvent::Mouse, lineEnd, lineEnd);
    QApplication::sendEvent(pane.viewport(), &menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(TextPaneReadOnly, TakesNoInputButFromTheProgram) {
    ShownPane shown("abc\r\nd");
    TextPane &pane = shown.pane;
    pane.setReadOnly(true);
    QApplication::clipboard()->setText(QStringLiteral("clip"));
    shown.type(QStringLiteral("x"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Delete, Qt::Key_Backspace})
        shown.key(key);
    pane.setSelStart(0);
    pane.setSelLength(3);
    for (const Qt::Key key : {Qt::Key_V, Qt::Key_Z})
        shown.key(key, Qt::ControlModifier);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("y"));
    QApplication::sendEvent(&pane, &commit);
    EXPECT_EQ(pane.Text(), "abc\r\nd");
    shown.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("abc"));
    pane.setSelText("program");
    EXPECT_EQ(pane.Text(), "program\r\nd");
}

} // namespace
