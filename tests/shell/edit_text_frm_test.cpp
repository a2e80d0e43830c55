#include "platform/common_dialog.h"
#include "shell/base/dialog_frm.h"
#include "support/program.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace zolt {
namespace {

using namespace testing_support;

/// While it lives, no file of this process can grow beyond a few bytes.
class FullDisk {
public:
    FullDisk() : m_before(limit()), m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        const rlimit few{3, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &few);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    static rlimit limit() {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        return limit;
    }
    rlimit m_before;
    void (*m_handler)(int);
};

class TextWindow : public ProgramTest {
protected:
    TextWindow() : m_window(startTextEdition()) {}

    TextPane &pane() { return m_window.activeTextPane(); }
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
    void open(const std::string &name) {
        answerFileDialog(path(name));
        call(&m_window, "FicheiroAbrir");
    }
    bool isEnabled(const char *menuItem, const char *popUpItem, const char *tool) {
        const bool enabled = m_window.menuItem(menuItem)->isEnabled();
        EXPECT_EQ(m_window.popUp()->findChild<QAction *>(QString::fromUtf8(popUpItem))->isEnabled(), enabled);
        EXPECT_EQ(loaded<MDIFrm>()->toolbar(2)->findChild<QAction *>(QString::fromUtf8(tool))->isEnabled(),
                  enabled);
        return enabled;
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

TEST_F(TextWindow, AFailedSaveIsSaidBelowAndLeavesTheDocumentUnsaved) {
    type("text");
    saveAs("saved.zlt");
    type(" and more");
    {
        const FullDisk full;
        call(&m_window, "FicheiroGuardar");
    }
    EXPECT_EQ(panel(1).text(), QStringLiteral("saved.zlt wasn't saved: File too large"));
    EXPECT_EQ(fileBytes("saved.zlt"), "text\r\n");
    type("!");
    EXPECT_EQ(panel(1).text(), QString());

    QFile::remove(QString::fromStdString(path("saved.zlt")));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("saved.zlt")));
    call(&m_window, "FicheiroGuardar");
    EXPECT_EQ(panel(1).text(), QStringLiteral("saved.zlt wasn't saved: Is a directory"));
    {
        Answer question(QMessageBox::Cancel);
        m_window.close();
        EXPECT_TRUE(question.came());
    }
    saveAs("elsewhere.zlt");
    EXPECT_EQ(panel(1).text(), QString());
    EXPECT_EQ(fileBytes("elsewhere.zlt"), "text and more!\r\n");
}

TEST_F(TextWindow, AFailedOpenIsSaidBelowAndKeepsTheName) {
    type("text");
    saveAs("mine.zlt");
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    open("pipe");
    EXPECT_EQ(panel(1).text(), QStringLiteral("pipe wasn't opened: Not a regular file"));
    EXPECT_EQ(pane().Text(), "text");
    type("!");
    call(&m_window, "FicheiroGuardar");
    EXPECT_EQ(fileBytes("mine.zlt"), "text!\r\n");
}

TEST_F(TextWindow, SaysWhenOpeningReplacesUnsavedChanges) {
    writeBytes("a.zlt", "a\r\n");
    writeBytes("b.zlt", "b\r\n");
    open("a.zlt");
    open("b.zlt");
    EXPECT_EQ(panel(1).text(), QString()); // nobody had changed a.zlt
    type("new");
    open("a.zlt");
    EXPECT_EQ(panel(1).text(), QStringLiteral("b.zlt was replaced: its changes weren't saved."));
    type("new");
    call(&m_window, "FicheiroGuardar");
    open("b.zlt");
    EXPECT_EQ(panel(1).text(), QString());
}

TEST_F(TextWindow, AStarInTheTitleSaysThatClosingWouldAsk) {
    const auto starred = [] { return loaded<MDIFrm>()->windowTitle().startsWith(u'*'); };
    EXPECT_FALSE(starred());
    type("ab");
    EXPECT_TRUE(starred());
    saveAs("saved.zlt");
    EXPECT_FALSE(starred());
    // The same length with other characters is found out once the keys rest.
    QTest::keyClick(&pane(), Qt::Key_Backspace);
    type("c");
    EXPECT_TRUE(waitFor(starred));
    QTest::keyClick(&pane(), Qt::Key_Backspace);
    type("b");
    EXPECT_TRUE(waitFor([&] { return !starred(); }));
    open("saved.zlt");
    EXPECT_TRUE(starred());
    m_window.textPane(1).setText("");
    EXPECT_FALSE(starred());
}

TEST_F(TextWindow, ShowsAFilesNameAsItIs) {
    const QString name = QStringLiteral("a&b[*]<i>.zlt");
    type("x");
    saveAs(name.toStdString());
    EXPECT_EQ(m_window.caption(), name);
    MDIFrm &frame = *loaded<MDIFrm>();
    EXPECT_TRUE(
        waitFor([&] { return frame.windowHandle()->title() == QStringLiteral("ZOLT - [%1]").arg(name); }));
    auto *menu = m_window.menuItem("MnuJanelaCascata")->parent();
    emit qobject_cast<QMenu *>(menu)->aboutToShow();
    EXPECT_EQ(qobject_cast<QMenu *>(menu)->actions().last()->text(), QStringLiteral("a&&b[*]<i>.zlt"));
    type("y");
    Answer cancel(QMessageBox::Cancel);
    m_window.close();
    EXPECT_EQ(cancel.text(), QStringLiteral("Save changes to %1?").arg(name));
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

TEST_F(TextWindow, GreysOutWhatCannotAct) {
    const auto undo = [this] {
        return isEnabled("MnuEditarAnularintrodução", "MnuPopUpAnularintroducao", "Anular Introdução");
    };
    const auto cut = [this] { return isEnabled("MnuEditarCortar", "MnuPopUpCortar", "Cortar"); };
    const auto copy = [this] { return isEnabled("MnuEditarCopiar", "MnuPopUpCopiar", "Copiar"); };
    const auto paste = [this] { return isEnabled("MnuEditarColar", "MnuPopUpColar", "Colar"); };
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    EXPECT_FALSE(undo() || cut() || copy() || paste());
    EXPECT_FALSE(m_window.menuItem("MnuEditarSeleccionartudo")->isEnabled());
    type("ab");
    EXPECT_TRUE(undo());
    EXPECT_FALSE(cut() || copy());
    call(&m_window, "EditarSeleccionarTudo");
    EXPECT_TRUE(cut() && copy());
    clipboard->setText(QStringLiteral("c"));
    EXPECT_TRUE(paste());
    call(&m_window, "EditarTranslinearpalavras"); // takes the selection along, not the history
    EXPECT_TRUE(cut() && copy() && paste());
    EXPECT_FALSE(undo());
}

TEST_F(TextWindow, TheWordWrapButtonStaysDownWhileLinesWrap) {
    auto *button = control<QToolButton>(loaded<MDIFrm>(), "Translinear palavras");
    for (const bool wraps : {false, true}) {
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(button->isChecked(), wraps);
        EXPECT_EQ(shared::settings.TxtWWrap, wraps ? 1 : 2);
    }
}

TEST_F(TextWindow, TheLockKeysShowAtOnce) {
    // A key tells the state before it; a lock that is on ends with the key's release.
    const struct {
        QEvent::Type type;
        int key;
        quint32 modifiers;
        bool num;
        bool caps;
    } events[] = {
        {QEvent::KeyPress, Qt::Key_A, 0x12, true, true},
        {QEvent::KeyPress, Qt::Key_A, 0, false, false},
        {QEvent::KeyPress, Qt::Key_CapsLock, 0, false, true},
        {QEvent::KeyRelease, Qt::Key_CapsLock, 2, false, true},
        {QEvent::KeyPress, Qt::Key_NumLock, 2, true, true},
        {QEvent::KeyRelease, Qt::Key_NumLock, 0x12, true, true},
        {QEvent::KeyPress, Qt::Key_CapsLock, 0x12, true, true},
        {QEvent::KeyRelease, Qt::Key_CapsLock, 0x12, true, false},
    };
    for (const auto &event : events) {
        QKeyEvent key(event.type, event.key, {}, 0, 0, event.modifiers);
        QApplication::sendEvent(&pane(), &key);
        EXPECT_EQ(panel(4).isEnabled(), event.num) << event.key;
        EXPECT_EQ(panel(5).isEnabled(), event.caps) << event.key;
    }
}

TEST_F(TextWindow, TheToolbarsListsGiveTheKeyboardBack) {
    for (const char *name : {"Combo1", "Combo2"}) {
        auto *list = control<QComboBox>(loaded<MDIFrm>(), name);
        list->setFocus();
        ASSERT_TRUE(list->hasFocus());
        QTest::keyClick(list, Qt::Key_Escape);
        EXPECT_TRUE(pane().hasFocus()) << name;
        for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
            QTest::mouseClick(list, Qt::LeftButton);
            ASSERT_TRUE(waitFor([&] { return list->view()->isVisible(); }));
            QTest::keyClick(list->view(), key);
            EXPECT_TRUE(waitFor([&] { return pane().hasFocus(); })) << name;
        }
    }
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
