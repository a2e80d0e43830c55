#include "platform/byte_line.h"
#include "platform/rich_text_box.h"
#include "platform/shown.h"
#include "platform/text_pane.h"
#include "support/texts.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>
#include <tuple>
#include <vector>

namespace zolt {
namespace {

using test::Shown;
using test::withMarks;

/// What both text controls do alike.
template <class Control> class Panes : public testing::Test {};
using BothPanes = testing::Types<TextPane, RichTextBox>;
TYPED_TEST_SUITE(Panes, BothPanes);

TYPED_TEST(Panes, TypedCharactersBecomeTheirBytes) {
    const struct {
        const char *typed;
        const char *bytes;
    } cases[] = {
        {"aZ~", "aZ~"},         {"éŒ", "\xE9OE"},   {"α→√", "\x8C\x8D\x83"}, {"\u00A0\u00AD", "\xA0\xAD"},
        {"\u0416\u4E00", "??"}, {"\u0081", "\x81"}, {"“μ…”", "\"\xB5...\""},
    };
    for (const auto &c : cases) {
        Shown<TypeParam> shown;
        shown.type(QString::fromUtf8(c.typed));
        EXPECT_EQ(shown.box.Text(), c.bytes) << c.bytes;
    }
    Shown<TypeParam> shown;
    QTest::sendKeyEvent(QTest::Click, &shown.box, Qt::Key_unknown, QStringLiteral("\U0001F600"),
                        Qt::NoModifier);
    EXPECT_EQ(shown.box.Text(), "?") << "a character outside the basic plane is one";
}

TYPED_TEST(Panes, EditingKeysWriteCrLfAndByteNine) {
    Shown<TypeParam> shown("ab");
    shown.key(Qt::Key_Right);
    shown.key(Qt::Key_Return);
    shown.key(Qt::Key_Enter, Qt::KeypadModifier);
    shown.key(Qt::Key_Return, Qt::ShiftModifier);
    shown.key(Qt::Key_Tab);
    EXPECT_EQ(shown.box.Text(), "a\r\n\r\n\r\n\tb");
    EXPECT_EQ(shown.box.SelStart(), 8);
    shown.key(Qt::Key_Backspace);
    shown.key(Qt::Key_Backspace);
    EXPECT_EQ(shown.box.Text(), "a\r\n\r\nb");
    shown.key(Qt::Key_Up);
    shown.key(Qt::Key_Delete);
    EXPECT_EQ(shown.box.Text(), "a\r\nb");
}

TYPED_TEST(Panes, AltWithANumberOnTheKeypadTypesItsByte) {
    Shown<TypeParam> shown;
    const auto typeNumber = [&](const char *digits) {
        // Qt Test would let Alt go after each digit.
        for (; *digits; ++digits) {
            QKeyEvent digit(QEvent::KeyPress, *digits, Qt::AltModifier | Qt::KeypadModifier,
                            QString(QLatin1Char(*digits)));
            QApplication::sendEvent(&shown.box, &digit);
        }
        QTest::keyRelease(&shown.box, Qt::Key_Alt);
    };
    for (const char *digits : {"0140", "91", "140", "0", "0256", "", "0255"})
        typeNumber(digits);
    EXPECT_EQ(shown.box.Text(), std::string("\x8C[\x8C\0\xFF", 5));
    shown.key(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(shown.box.length(), 5) << "Alt with a letter is for menus";
}

TYPED_TEST(Panes, TheWindowsShortcutsReachTheWindow) {
    QMainWindow window;
    auto *pane = new TypeParam(true);
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

TYPED_TEST(Panes, UndoAndRedoWalkTheWholeHistoryWithTheSelections) {
    Shown<TypeParam> shown("one two\r\nthree");
    TypeParam &pane = shown.box;
    using State = std::tuple<std::string, qsizetype, qsizetype>;
    const auto state = [&] { return State{pane.Text(), pane.SelStart(), pane.SelLength()}; };

    std::vector<State> before;
    std::vector<State> after;
    const auto step = [&](const auto &change) {
        before.push_back(state());
        change();
        after.push_back(state());
    };
    shown.select(4, 3);
    step([&] { shown.type(QStringLiteral("zwei")); }); // over a selection, then grows
    pane.setSelStart(2);
    step([&] { shown.key(Qt::Key_Return); });
    shown.select(0, 6);
    step([&] { shown.key(Qt::Key_X, Qt::ControlModifier); });
    pane.setSelStart(pane.length());
    step([&] { shown.key(Qt::Key_V, Qt::ControlModifier); });
    shown.select(1, 3);
    step([&] { pane.setSelText(withMarks("@Bxy@B")); });
    shown.select(0, pane.length());
    step([&] { pane.setSelText("whole"); });
    pane.setSelStart(2);
    step([&] { shown.type(QStringLiteral("end")); });
    pane.setSelStart(0);

    for (std::size_t i = before.size(); i-- > 0;) {
        shown.key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(state(), before[i]) << i;
    }
    for (std::size_t i = 0; i < after.size(); ++i) {
        i % 2 ? shown.key(Qt::Key_Y, Qt::ControlModifier)
              : shown.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(state(), after[i]) << i;
    }
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    shown.type(QStringLiteral("!")); // a change where the history was cut
    const State changed = state();
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(state(), before[5]);
    shown.key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(state(), changed);
}

TEST(TextPaneClipboard, CarriesExactBytesForThePaneAndCalculatorCharactersForOthers) {
    const std::string bytes("\x0B"
                            "B\x8C\0\xA0\r\n\x9E"
                            "00ff00\x83\r\t",
                            18);
    Shown<TextPane> shown(bytes);
    shown.box.setSelStart(0);
    shown.box.setSelLength(shown.box.length());
    shown.key(Qt::Key_C, Qt::ControlModifier);
    const QString text = QApplication::clipboard()->text();
    EXPECT_TRUE(text.startsWith(QString::fromStdString(withMarks("@Bα")))) << text.toStdString();
    EXPECT_EQ(text.count(u'\n'), 1);
    EXPECT_TRUE(text.contains(u'\u221A'));

    Shown<TextPane> other("<>", true);
    other.box.setSelStart(1);
    other.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(other.box.Text(), "<" + bytes + ">");
    EXPECT_EQ(other.box.SelStart(), 1 + static_cast<qsizetype>(bytes.size()));
    other.box.setSelStart(1);
    other.box.setSelLength(3);
    other.key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(other.box.Text(), "<" + bytes.substr(3) + ">");
}

TYPED_TEST(Panes, AreReadByStretches) {
    std::string lines;
    for (int i = 0; i < 600; ++i)
        lines += i % 3 ? "\r\n" : "a\rb\n";
    const std::string line = std::string(900, 'a') + '\xE9' + std::string(900, '\x0B');
    for (const std::string &text : {std::string(), lines, line, lines + line + lines}) {
        Shown<TypeParam> shown(text);
        EXPECT_EQ(shown.box.Text(), text);
        for (const std::size_t length : {1, 2, 3, 5000}) {
            const Pane::Reader read = shown.box.reader();
            for (std::size_t i = 0; i <= text.size(); ++i)
                ASSERT_EQ(read(i, length), text.substr(i, length)) << i << ' ' << length;
        }
        shown.box.setSelStart(5);
        shown.box.setSelLength(20);
        EXPECT_EQ(shown.box.SelText(),
                  text.empty() ? text : text.substr(shown.box.SelStart(), shown.box.SelLength()));
    }
}

TYPED_TEST(Panes, TextFromOutsideBecomesBytes) {
    const struct {
        const char *pasted;
        std::string bytes;
    } cases[] = {
        {"a\nb\rc\r\nd", "a\r\nb\r\nc\r\nd"},      {"\n\r\n\n", "\r\n\r\n\r\n"},
        {"x\u2028y\u2029z", "x\r\ny\r\nz"},        {"α\tμβ😀Ж", "\x8C\t\xB5\xDF??"},
        {"“it’s” – 5″…", "\"it's\" - 5\"..."},     {"e\u0301o\u0302 q\u0304", "\xE9\xF4 q"},
        {"ž99F0A1, že", withMarks("#99F0A1, ze")},
    };
    for (const auto &c : cases) {
        QApplication::clipboard()->setText(QString::fromUtf8(c.pasted));
        Shown<TypeParam> shown;
        shown.key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(shown.box.Text(), c.bytes);
    }
}

TYPED_TEST(Panes, DroppedTextBecomesBytesWhereItFalls) {
    Shown<TypeParam> shown("ab");
    QMimeData text;
    text.setText(QStringLiteral("α\n"));
    EXPECT_TRUE(shown.drop(text, 1));
    EXPECT_EQ(shown.box.Text(), "a\x8C\r\nb");
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown.box.Text(), "ab");
    EXPECT_EQ(shown.box.SelStart(), 0);
}

TYPED_TEST(Panes, FilesAreNoTextButLinksAre) {
    Shown<TypeParam> shown;
    ByteLine line;
    const auto offer = [&](const char *url) {
        auto *mime = new QMimeData; // the clipboard owns it
        mime->setUrls({QUrl(QString::fromLatin1(url))});
        mime->setText(QString::fromLatin1(url));
        QApplication::clipboard()->setMimeData(mime);
        const bool taken = test::dropOn(shown.box.viewport(), *mime, {5, 5});
        EXPECT_EQ(test::dropOn(&line, *mime, {5, 5}), taken);
        for (QWidget *widget : std::initializer_list<QWidget *>{&shown.box, &line})
            QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
        return taken;
    };
    EXPECT_FALSE(offer("file:///home/name/picture.png"));
    EXPECT_EQ(shown.box.Text() + line.Text(), "");
    EXPECT_TRUE(offer("https://a.b/"));
    EXPECT_EQ(shown.box.Text(), "https://a.b/https://a.b/");
    EXPECT_EQ(line.Text(), "https://a.b/https://a.b/");
}

TYPED_TEST(Panes, DriveThePaneByName) {
    TypeParam pane(true);
    pane.setProperty("Text", QByteArray("one\r\ntwo"));
    pane.setProperty("SelStart", 5);
    pane.setProperty("SelLength", 3);
    EXPECT_EQ(pane.property("SelText").toByteArray(), "two");
    pane.setProperty("SelText", QByteArray("\0x", 2));
    EXPECT_EQ(pane.property("Text").toByteArray(), QByteArray("one\r\n\0x", 7));
    EXPECT_EQ(pane.property("SelStart").toInt(), 7);
}

TYPED_TEST(Panes, TheCommandTogglesTheLastChange) {
    TypeParam pane(true);
    pane.setText("one two");
    pane.setSelStart(0);
    pane.setSelLength(3);
    pane.setSelText("1");
    pane.setSelStart(2);
    pane.setSelLength(3);
    pane.setSelText("2");
    for (int round = 0; round < 2; ++round) {
        pane.undoToggle();
        EXPECT_EQ(pane.Text(), "1 two");
        EXPECT_EQ(pane.SelText(), "two");
        pane.setSelStart(0); // moving the caret is no change
        pane.undoToggle();
        EXPECT_EQ(pane.Text(), "1 2");
        EXPECT_EQ(pane.SelStart(), 3);
    }
    pane.undoToggle();
    pane.setSelText("x"); // a change ends the toggling
    pane.undoToggle();
    EXPECT_EQ(pane.Text(), "1 two");
    // A step by the keys counts like one by the command.
    pane.undo();
    EXPECT_EQ(pane.Text(), "one two");
    pane.undo();
    EXPECT_EQ(pane.Text(), "one two") << "there is no more";
    pane.undoToggle();
    EXPECT_EQ(pane.Text(), "1 two");
    pane.undoToggle();
    EXPECT_EQ(pane.Text(), "one two");
    pane.redo();
    pane.redo();
    EXPECT_EQ(pane.Text(), "1 x");
    pane.undoToggle();
    EXPECT_EQ(pane.Text(), "1 two");

    pane.setText("new");
    pane.undoToggle();
    EXPECT_EQ(pane.Text(), "new") << "a new text begins a new history";
}

TYPED_TEST(Panes, InsertionsByTheProgramAreStepsOfTheirOwn) {
    TypeParam pane(false);
    for (const char *character : {"\x8C", "\x8D", "\x8E"})
        pane.setSelText(character); // as a bar of characters does
    QTest::keyClicks(&pane, QStringLiteral("typed"));
    for (const char *expected : {"\x8C\x8D\x8E", "\x8C\x8D", "\x8C", ""}) {
        pane.undo();
        EXPECT_EQ(pane.Text(), expected);
    }
}

TYPED_TEST(Panes, KeepTheTextAtTheTopOfTheViewThroughAResize) {
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "a paragraph of some words that is wrapped into several lines " + std::to_string(i) + "\r\n";
    Shown<TypeParam> shown(text);
    TypeParam &pane = shown.box;
    pane.verticalScrollBar()->setValue(pane.verticalScrollBar()->maximum() / 2);
    test::settle();
    const int top = pane.cursorForPosition({0, 2}).blockNumber();
    EXPECT_GT(top, 100);
    for (const int width : {200, 500, 400}) {
        pane.resize(width, 300);
        test::settle();
        EXPECT_EQ(pane.cursorForPosition({0, 2}).blockNumber(), top) << width;
    }
}

TYPED_TEST(Panes, ScrollToTheirLongestLineWithoutWrap) {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "short\r\n";
    Shown<TypeParam> shown(text + std::string(5000, 'x'), false);
    TypeParam &pane = shown.box;
    const QScrollBar &bar = *pane.horizontalScrollBar();
    test::settle();
    EXPECT_GT(bar.maximum(), 5000 * 4) << "also while it hasn't been shown";
    pane.setSelStart(pane.length());
    EXPECT_TRUE(pane.viewport()->rect().contains(pane.cursorRect()));
    shown.select(static_cast<qsizetype>(text.size()) + 1, 5000);
    pane.setSelText("");
    test::settle();
    // The plain one remembers the longest line that it had.
    EXPECT_EQ(bar.maximum() == 0, (std::is_same_v<TypeParam, RichTextBox>));
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

    const std::string bytes = test::everyByte();
    const std::string all(bytes.rbegin(), bytes.rend()); // so that no line end comes about
    line.setText(all);
    EXPECT_EQ(line.Text(), all);
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(line.Text(), "");
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u'α'));
    Shown<TextPane> shown;
    shown.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown.box.Text(), all);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&line, &menu);
    for (QAction *action : line.findChild<QMenu *>()->actions())
        if (action->text().startsWith(QStringLiteral("&Paste")))
            action->trigger();
    EXPECT_EQ(line.Text(), all);
}

TYPED_TEST(Panes, CommittedTextBecomesBytes) {
    Shown<TypeParam> shown("ab");
    shown.box.setSelStart(1);
    QSignalSpy changes(&shown.box.events(), &PaneEvents::Change);
    QInputMethodEvent preedit(QStringLiteral("´"), {});
    QApplication::sendEvent(&shown.box, &preedit);
    EXPECT_EQ(shown.box.Text(), "ab") << "what is being composed is not yet text";
    EXPECT_EQ(changes.count(), 0);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("éα\n日"));
    QApplication::sendEvent(&shown.box, &commit);
    EXPECT_EQ(shown.box.Text(), "a\xE9\x8C\r\n?b");
}

TYPED_TEST(Panes, EventsAreReportedAfterThePaneActed) {
    Shown<TypeParam> shown("abc abc abc");
    TypeParam &pane = shown.box;
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

TYPED_TEST(Panes, TakeNoInputButFromTheProgramWhenLocked) {
    Shown<TypeParam> shown("abc\r\nd");
    TypeParam &pane = shown.box;
    pane.setReadOnly(true);
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_Right);
    EXPECT_EQ(pane.SelStart(), 6);
    EXPECT_TRUE(pane.textInteractionFlags() & Qt::TextSelectableByKeyboard) << "the caret is drawn";
    QApplication::clipboard()->setText(QStringLiteral("clip"));
    shown.type(QStringLiteral("x"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Delete, Qt::Key_Backspace})
        shown.key(key);
    EXPECT_EQ(pane.SelStart(), 6);
    shown.select(0, 3);
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
} // namespace zolt
