#include "shell/tools/edit_text_find_frm.h"
#include "support/program.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace zolt {
namespace {

using namespace test;

class FindWindow : public EditionTest {
protected:
    explicit FindWindow(int edition = 1) : EditionTest(edition) { open(); }

    void open() {
        call(m_document, "EditarLocalizarESubstituir");
        m_find = loaded<EditTextFindFrm>();
    }
    void fill(const QString &find, const QString &replacement = {}) {
        control<QLineEdit>(m_find, "Text1")->setText(find);
        control<QLineEdit>(m_find, "Text2")->setText(replacement);
    }
    void matchCase() { control<QCheckBox>(m_find, "Check1")->click(); }
    /// Presses a button and says whether the finishing message came.
    bool pressAndFinish(const char *button) {
        Answer ok(QMessageBox::Ok);
        press(m_find, button);
        EXPECT_TRUE(!ok.came() || ok.text() == QStringLiteral("ZOLT finished searching the document"));
        return ok.came();
    }

    static std::string longText(int lines) {
        std::string text;
        for (int i = 0; i < lines; ++i)
            text.append(48, 'a').append("\r\n");
        return text;
    }
    /// Arranges that `act` runs in the middle of a search.
    void onceTheCaretIsBehind(qsizetype place, std::function<void()> act) {
        auto *watch = new QTimer(m_document);
        watch->start(0);
        QObject::connect(watch, &QTimer::timeout, watch, [this, watch, place, act = std::move(act)] {
            if (pane().SelStart() <= place)
                return;
            watch->stop();
            act();
        });
    }

    EditTextFindFrm *m_find = nullptr;
};

class Finding : public FindWindow, public testing::WithParamInterface<int> {
protected:
    Finding() : FindWindow(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(In, Finding, testing::Values(1, 2));

TEST_P(Finding, FindsBehindTheCaretUpToTheEnd) {
    put("abc Abc\r\nabc");
    fill(QStringLiteral("aBC"));
    for (const qsizetype place : {0, 4, 9}) {
        EXPECT_FALSE(pressAndFinish("Command1"));
        EXPECT_EQ(pane().SelStart(), place);
        EXPECT_EQ(pane().SelLength(), 3);
        EXPECT_EQ(shared::PosiçãoCursor, place + 3);
    }
    EXPECT_TRUE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelText(), "abc"); // the text ended there: nothing was walked over

    shared::PosiçãoCursor = 0;
    matchCase();
    fill(QStringLiteral("Abc"));
    press(m_find, "Command1");
    EXPECT_EQ(pane().SelStart(), 4);
    EXPECT_TRUE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelStart(), 12);
    EXPECT_EQ(shared::PosiçãoCursor, 7);
}

TEST_P(Finding, FindsTheCalculatorsCharacters) {
    put("a\x8D\x0B\x9F");
    fill(QStringLiteral("\u2192")); // the arrow of code 141
    press(m_find, "Command1");
    EXPECT_EQ(pane().SelText(), "\x8D");
    fill(QString(QChar(0xE00B)));
    press(m_find, "Command1");
    EXPECT_EQ(pane().SelText(), "\x0B");
}

TEST_P(Finding, ReplacesWhatIsSelectedAndMovesOn) {
    put("one One one one");
    fill(QStringLiteral("one"), QStringLiteral("three"));
    press(m_find, "Command1");
    press(m_find, "Command3");
    EXPECT_EQ(pane().Text(), "three One one one");
    // The next search starts the replacement's length behind what was found.
    EXPECT_EQ(pane().SelStart(), 10);
    EXPECT_TRUE(pressAndFinish("Command3"));
    EXPECT_EQ(pane().Text(), "three One three one");

    // In another case it is found but stays.
    put("One one");
    shared::PosiçãoCursor = 0;
    fill(QStringLiteral("one"), QStringLiteral("x"));
    press(m_find, "Command1");
    press(m_find, "Command3");
    EXPECT_EQ(pane().Text(), "One one");
    EXPECT_EQ(pane().SelText(), "one");

    // Nothing was found yet: nothing to replace.
    put("xone");
    shared::PosiçãoCursor = 1;
    press(m_find, "Command3");
    EXPECT_EQ(pane().Text(), "xone");
}

TEST_P(Finding, ReplacesAllInOneStepOfUndo) {
    const struct {
        const char *text;
        const char *find;
        const char *replacement;
        const char *after;
        bool message;
    } cases[] = {
        {"aba.", "a", "aa", "aabaa.", true},
        {"aAa", "a", "aa", "aaaaaa", false},
        {"xyz", "w", "v", "xyz", true},
        {"aaa", "a", "", "aaa", false},
    };
    for (const auto &test : cases) {
        put(test.text, 1, 1);
        const std::string selected = pane().SelText();
        fill(QString::fromUtf8(test.find), QString::fromUtf8(test.replacement));
        EXPECT_EQ(pressAndFinish("Command5"), test.message) << test.text;
        EXPECT_EQ(pane().Text(), test.after);
        if (pane().Text() != test.text) {
            pane().undo();
            EXPECT_EQ(pane().Text(), test.text);
            EXPECT_EQ(pane().SelText(), selected);
        }
    }
}

TEST_F(FindWindow, StopEndsAReplaceInTheMiddleAndKeepsWhatIsDone) {
    put(longText(60'000));
    fill(QStringLiteral("a"), QStringLiteral("x"));
    onceTheCaretIsBehind(100'000, [this] { press(m_find, "Command4"); });
    EXPECT_FALSE(pressAndFinish("Command5"));
    const std::string text = pane().Text();
    const std::size_t done = text.rfind('x') + 1;
    EXPECT_GT(done, 60'000u);
    EXPECT_LT(done, text.size());
    EXPECT_GE(text.find('a'), done);
    EXPECT_EQ(shared::PosiçãoCursor, static_cast<std::int32_t>(done));
    pane().undo();
    EXPECT_EQ(pane().Text(), longText(60'000));
}

TEST_F(FindWindow, AStoppedSearchSelectsThePlaceThatItReached) {
    put(longText(200'000));
    fill(QStringLiteral("not there"));
    QTimer::singleShot(0, m_find, [this] { press(m_find, "Command4"); });
    EXPECT_FALSE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelLength(), 9);
    EXPECT_EQ(shared::PosiçãoCursor, pane().selEnd());
}

TEST_F(FindWindow, ClosingWindowsDuringASearchEndsIt) {
    put(longText(60'000));
    fill(QStringLiteral("a"), QStringLiteral("b"));
    onceTheCaretIsBehind(100'000, [this] { m_find->close(); });
    EXPECT_FALSE(pressAndFinish("Command5"));
    EXPECT_NE(pane().Text().find('a'), std::string::npos);

    open();
    fill(QStringLiteral("b"), QStringLiteral("a"));
    shared::SemPerguntaDeSaída = 1;
    onceTheCaretIsBehind(0, [this] { m_document->close(); });
    EXPECT_FALSE(pressAndFinish("Command5"));
    deleteClosed();
    EXPECT_EQ(loaded<EditTextFrm>(), nullptr);
    EXPECT_EQ(loaded<EditTextFindFrm>(), nullptr);
}

TEST_F(FindWindow, WhatIsTypedDuringAReplaceIsNotLost) {
    put(longText(60'000));
    fill(QStringLiteral("a"), QStringLiteral("b"));
    onceTheCaretIsBehind(100'000, [this] { pane().setSelText("typed"); });
    EXPECT_FALSE(pressAndFinish("Command5"));
    EXPECT_NE(pane().Text().find("typed"), std::string::npos);
}

TEST_P(Finding, TheSearchBeginsWhereTheUserPutTheCaret) {
    put("ab ab ab");
    fill(QStringLiteral("ab"));
    pane().setSelStart(7);
    QTest::mouseClick(pane().control().viewport(), Qt::LeftButton, {}, QPoint(390, 8));
    EXPECT_TRUE(pressAndFinish("Command1"));

    QTest::keyClick(&pane().control(), Qt::Key_Home);
    QTest::keyClick(&pane().control(), Qt::Key_Right);
    EXPECT_FALSE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelStart(), 3);
    // A key that leaves the caret where the search put it doesn't count.
    QTest::keyClick(&pane().control(), Qt::Key_Control);
    EXPECT_FALSE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelStart(), 6);
    QTest::keyClick(&pane().control(), Qt::Key_Home);
    QTest::keyClicks(&pane().control(), QStringLiteral("ab"));
    EXPECT_FALSE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelStart(), 2);

    writeBytes("other.zlt", "ab\r\n");
    answerFileDialog(path("other.zlt"));
    call(m_document, "FicheiroAbrir");
    EXPECT_FALSE(pressAndFinish("Command1"));
    EXPECT_EQ(pane().SelText(), "ab");
}

TEST_P(Finding, EnterSearchesOnAndNeverTypesIntoTheDocument) {
    put("ab ab ab");
    QTest::keyClicks(control<QLineEdit>(m_find, "Text1"), QStringLiteral("ab"));
    for (const qsizetype place : {0, 3, 6}) {
        ASSERT_TRUE(waitFor([this] { return m_find->isActiveWindow(); }));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::qWait(20); // another window would be the active one by now
        EXPECT_EQ(pane().SelStart(), place);
        EXPECT_EQ(loaded<MDIFrm>()->focusWidget(), &pane().control());
    }
    Answer ok(QMessageBox::Ok);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(ok.came());
    EXPECT_TRUE(waitFor([this] { return m_find->isActiveWindow(); }));
    EXPECT_EQ(pane().Text(), "ab ab ab");
    // The mouse hands the keyboard over.
    shared::PosiçãoCursor = 0;
    press(m_find, "Command1");
    EXPECT_TRUE(waitFor([this] { return pane().hasFocus(); }));
}

TEST_F(FindWindow, F3SearchesOnFromAnywhere) {
    put("Ab ab Ab ab");
    fill(QStringLiteral("Ab"));
    matchCase();
    ASSERT_TRUE(waitFor([this] { return m_find->isActiveWindow(); }));
    QTest::keyClick(control<QLineEdit>(m_find, "Text1"), Qt::Key_F3);
    EXPECT_EQ(pane().SelStart(), 0);
    EXPECT_TRUE(m_find->isActiveWindow());
    m_find->close();
    deleteClosed();

    ASSERT_TRUE(waitFor([this] { return pane().hasFocus(); }));
    QTest::keyClick(&pane().control(), Qt::Key_F3);
    EXPECT_EQ(pane().SelStart(), 6);
    EXPECT_TRUE(waitFor([this] { return pane().hasFocus(); }));
    m_find = loaded<EditTextFindFrm>();
    ASSERT_NE(m_find, nullptr);
    EXPECT_TRUE(m_find->isVisible());
    EXPECT_EQ(control<QLineEdit>(m_find, "Text1")->text(), QStringLiteral("Ab"));

    // With nothing to search for it asks.
    fill({});
    QTest::keyClick(&pane().control(), Qt::Key_F3);
    EXPECT_TRUE(waitFor([this] { return control<QLineEdit>(m_find, "Text1")->hasFocus(); }));
}

} // namespace
} // namespace zolt
