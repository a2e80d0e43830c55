#include "platform/common_dialog.h"
#include "shell/dialog_frm.h"
#include "support/program.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace zolt {
namespace {

using namespace testing_support;

class TextWindow : public ProgramTest {
protected:
    TextWindow() : m_window(startTextEdition()) {}

    TextPane &pane() { return m_window.activePane(); }
    void type(const char *keys) { QTest::keyClicks(&pane(), QString::fromUtf8(keys)); }
    QLabel &panel(int number) {
        return *control<QLabel>(&m_window, qPrintable(QStringLiteral("Panel%1").arg(number)));
    }
    void saveAs(const std::string &name) {
        answerFileDialog(path(name));
        call(&m_window, "FicheiroGuardarComo");
    }
    QPoint placeOf(qsizetype offset) {
        pane().setSelStart(offset);
        return pane().cursorRect().center();
    }
    /// Drops as another program does, which keeps what it gives.
    void drop(const QMimeData &mime, QPoint place) {
        QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(pane().viewport(), &enter);
        QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(pane().viewport(), &drop);
    }
    bool windowIsGone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return loaded<EditTextFrm>() == nullptr;
    }

    EditTextFrm &m_window;
};

TEST_F(TextWindow, SavesWhatIsTypedAndOpensItAgain) {
    type("Hi");
    QTest::keyClick(&pane(), Qt::Key_Return);
    type("there");
    saveAs("hi.zlt");
    EXPECT_EQ(fileBytes("hi.zlt"), "Hi\r\nthere\r\n");
    EXPECT_EQ(m_window.caption(), QStringLiteral("hi.zlt"));
    EXPECT_EQ(shared::GuardarCancelado, 0);
    EXPECT_EQ(shared::settings.DefltDir, path(""));

    writeBytes("other.zlt", std::string("\0\v\x9E\xA0\r\n\r\n", 8));
    answerFileDialog(path("other.zlt"));
    call(&m_window, "FicheiroAbrir");
    EXPECT_EQ(pane().Text(), std::string("\0\v\x9E\xA0\r\n", 6));
    call(&m_window, "FicheiroGuardar");
    EXPECT_EQ(fileBytes("other.zlt"), std::string("\0\v\x9E\xA0\r\n\r\n", 8));
}

TEST_F(TextWindow, ACancelledSaveChangesNothing) {
    type("text");
    answerFileDialog({});
    call(&m_window, "FicheiroGuardarComo");
    EXPECT_EQ(shared::GuardarCancelado, 1);
    EXPECT_EQ(m_window.caption(), QStringLiteral("Document1"));
    EXPECT_TRUE(commonDialog(DialogFrm::Document).FileName.empty());
}

TEST_F(TextWindow, AFailedSaveIsSilentAndLeavesTheDocumentUnsaved) {
    type("text");
    saveAs("saved.zlt");
    type(" and more");
    QFile::remove(QString::fromStdString(path("saved.zlt")));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("saved.zlt")));
    call(&m_window, "FicheiroGuardar");
    Answer question(QMessageBox::Cancel);
    m_window.close();
    EXPECT_TRUE(question.came());
    EXPECT_EQ(loaded<EditTextFrm>(), &m_window);
}

TEST_F(TextWindow, AsksBeforeAChangedDocumentGoes) {
    type("text");
    {
        Answer cancel(QMessageBox::Cancel);
        m_window.close();
        EXPECT_EQ(cancel.text(), QStringLiteral("Save changes to Document1?"));
    }
    EXPECT_EQ(loaded<EditTextFrm>(), &m_window);
    EXPECT_EQ(pane().Text(), "text");

    // Yes is Save As, also for a document with a name; a cancel there keeps the window.
    saveAs("named.zlt");
    type("!");
    {
        Answer yes(QMessageBox::Yes);
        answerFileDialog({});
        m_window.close();
    }
    EXPECT_EQ(loaded<EditTextFrm>(), &m_window);
    Answer yes(QMessageBox::Yes);
    answerFileDialog(path("other.zlt"));
    m_window.close();
    EXPECT_TRUE(windowIsGone());
    EXPECT_EQ(fileBytes("other.zlt"), "text!\r\n");
}

TEST_F(TextWindow, ClosesWithoutAQuestionWhenNothingIsLost) {
    type("text");
    saveAs("named.zlt");
    type("x");
    QTest::keyClick(&pane(), Qt::Key_Backspace);
    m_window.close();
    EXPECT_TRUE(windowIsGone());
    EXPECT_TRUE(loaded<MDIFrm>()->toolbar(1)->isVisible());
    EXPECT_FALSE(loaded<MDIFrm>()->toolbar(2)->isVisible());
}

TEST_F(TextWindow, AnEmptiedDocumentNeverAsks) {
    type("text");
    saveAs("named.zlt");
    call(&m_window, "EditarSeleccionarTudo");
    QTest::keyClick(&pane(), Qt::Key_Delete);
    m_window.close();
    EXPECT_TRUE(windowIsGone());
}

TEST_F(TextWindow, ADocumentJustOpenedCountsAsChanged) {
    writeBytes("doc.zlt", "abc\r\n");
    answerFileDialog(path("doc.zlt"));
    call(&m_window, "FicheiroAbrir");
    Answer no(QMessageBox::No);
    m_window.close();
    EXPECT_EQ(no.text(), QStringLiteral("Save changes to doc.zlt?"));
    EXPECT_TRUE(windowIsGone());
}

TEST_F(TextWindow, NoAtTheExitEndsTheProgramWithOneQuestion) {
    type("text");
    bool ended = false;
    QObject::connect(loaded<MDIFrm>(), &MDIFrm::ended, [&] { ended = true; });
    Answer no(QMessageBox::No);
    call(&m_window, "AbandonarPrograma");
    EXPECT_TRUE(no.came());
    EXPECT_TRUE(ended);
}

TEST_F(TextWindow, NewEmptiesThePaneAfterItsQuestion) {
    type("text");
    {
        Answer cancel(QMessageBox::Cancel);
        call(&m_window, "FicheiroNovo");
    }
    EXPECT_EQ(pane().Text(), "text");
    saveAs("named.zlt");
    Answer ok(QMessageBox::Ok);
    call(&m_window, "FicheiroNovo");
    EXPECT_EQ(pane().Text(), "");
    EXPECT_EQ(m_window.caption(), QStringLiteral("Document1"));
    EXPECT_EQ(shared::TextoGuardado, "text");
}

TEST_F(TextWindow, TheWrapSwitchKeepsTextAndSelection) {
    type("one two three");
    pane().setSelStart(4);
    pane().setSelLength(3);
    TextPane &before = pane();
    call(&m_window, "EditarTranslinearpalavras");
    EXPECT_NE(&pane(), &before);
    EXPECT_FALSE(before.isVisible());
    EXPECT_EQ(pane().Text(), "one two three");
    EXPECT_EQ(pane().SelText(), "two");
    EXPECT_EQ(shared::settings.TxtWWrap, 2);
    EXPECT_FALSE(m_window.menuItem("MnuEditarTranslinearpalavras")->isChecked());
    call(&m_window, "EditarTranslinearpalavras");
    EXPECT_EQ(pane().SelText(), "two");
}

TEST_F(TextWindow, TheStatusBarFollowsTheCaret) {
    call(&m_window, "EditarTranslinearpalavras");
    type("123456789012345678901234567890123");
    EXPECT_EQ(panel(2).text(), QStringLiteral("(1, 33)"));
    EXPECT_EQ(panel(2).frameShadow(), QFrame::Sunken);
    type("4");
    EXPECT_EQ(panel(2).text(), QStringLiteral("(1, 34)"));
    EXPECT_EQ(panel(2).frameShadow(), QFrame::Raised);
    QTest::keyClick(&pane(), Qt::Key_Return);
    EXPECT_EQ(panel(2).text(), QStringLiteral("(2, 0)"));
    EXPECT_EQ(panel(3).text(), QStringLiteral("36"));
}

TEST_F(TextWindow, DroppedTextMayStandInFrontOfOther) {
    for (const bool wraps : {true, false}) {
        if (!wraps)
            call(&m_window, "EditarTranslinearpalavras");
        pane().setText("ab");
        QMimeData mime;
        mime.setText(QStringLiteral("Hello"));
        drop(mime, placeOf(1));
        EXPECT_EQ(pane().Text(), "aHellob");
        EXPECT_EQ(panel(2).text(), QStringLiteral("(1, 6)"));
        EXPECT_EQ(panel(3).text(), QStringLiteral("7"));
    }
}

/// The offscreen platform has no drags; ctest runs this on one that has.
TEST_F(TextWindow, DraggingASelectionMovesItInOneStep) {
    if (QGuiApplication::platformName() == QStringLiteral("offscreen"))
        GTEST_SKIP() << "no drags here";
    const std::string before = "Hello\r\nab";
    pane().setText(before);
    const QPoint place = placeOf(8);
    const QPoint from = placeOf(2);
    pane().setSelStart(0);
    pane().setSelLength(5);
    QWindow *native = pane().window()->windowHandle();
    const auto inWindow = [&](QPoint p) { return pane().viewport()->mapTo(pane().window(), p); };
    QTest::mousePress(native, Qt::LeftButton, {}, inWindow(from));
    QTimer::singleShot(50, [&] {
        QTest::mouseMove(native, inWindow(place));
        QTest::mouseRelease(native, Qt::LeftButton, {}, inWindow(place));
    });
    QTest::mouseMove(native, inWindow(from + QPoint(30, 20)));
    QCoreApplication::processEvents();
    EXPECT_TRUE(waitFor([&] { return pane().Text() != before; }));
    EXPECT_EQ(pane().Text(), "\r\naHellob");
    EXPECT_EQ(panel(2).text(), QStringLiteral("(2, 6)"));
    QTest::keyClick(&pane(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pane().Text(), before);
    EXPECT_EQ(pane().SelText(), "Hello");
}

TEST_F(TextWindow, UndoAndRedoButtonsRunOneCommand) {
    type("a");
    call(&m_window, "EditarAnularintrodução");
    EXPECT_EQ(pane().Text(), "");
    call(&m_window, "EditarAnularintrodução");
    EXPECT_EQ(pane().Text(), "a");
    // The keys' undo is the same one.
    QTest::keyClick(&pane(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pane().Text(), "");
    auto *redo = loaded<MDIFrm>()->findChild<QAction *>(QStringLiteral("Refazer Introdução"));
    ASSERT_NE(redo, nullptr);
    redo->trigger();
    EXPECT_EQ(pane().Text(), "a");
    redo->trigger();
    EXPECT_EQ(pane().Text(), "");
    QTest::keyClick(&pane(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(pane().Text(), "a");
}

} // namespace
} // namespace zolt
