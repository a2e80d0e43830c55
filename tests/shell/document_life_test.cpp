// The life of a document, from new to exit, in each edition.

#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/pane.h"
#include "support/full_disk.h"
#include "support/program.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>
#include <sys/stat.h>

namespace zolt {
namespace {

using namespace test;

/// What these tests need to know of an edition.
struct EditionCase {
    const char *name;
    int number;
    /// Of its standard toolbar.
    int toolbar;
    const char *extension;
    /// What its file dialogs offer; the first is the one that shows.
    QStringList fileTypes;
    /// A file that holds a text, and the text that a file holds.
    std::string (*fileOf)(std::string_view text);
    std::string (*textOf)(std::string_view file);

    friend void PrintTo(const EditionCase &edition, std::ostream *out) { *out << edition.name; }
};

EditionCase textualEdition() {
    return {.name = "Textual",
            .number = 1,
            .toolbar = 2,
            .extension = ".zlt",
            .fileTypes = {QStringLiteral("All files (*)"), QStringLiteral("ZOLT Text Format (*.zlt)")},
            .fileOf = [](std::string_view text) { return std::string(text) + "\r\n"; },
            .textOf =
                [](std::string_view file) {
                    return file.ends_with("\r\n") ? std::string(file.substr(0, file.size() - 2))
                                                  : "no line end at the end";
                }};
}

EditionCase graphicalEdition() {
    return {.name = "Graphical",
            .number = 2,
            .toolbar = 4,
            .extension = ".zlg",
            .fileTypes = {QStringLiteral("All files (*)")},
            .fileOf = [](std::string_view text) { return rtfFromRichText(richTextFromPlainText(text)); },
            .textOf = [](std::string_view file) { return plainText(richTextFromRtf(file)); }};
}

class DocumentLife : public ProgramTest, public testing::WithParamInterface<EditionCase> {
protected:
    DocumentLife() { begin(); }
    ~DocumentLife() override { leave(); }

    void begin() {
        m_window = &startEdition(GetParam().number);
        m_ended = false;
        QObject::connect(loaded<MDIFrm>(), &MDIFrm::ended, [this] { m_ended = true; });
    }

    Pane &pane() { return m_window->activePane(); }
    QWidget &control() { return pane().control(); }
    void type(const char *keys) { QTest::keyClicks(&control(), QString::fromUtf8(keys)); }
    void press(Qt::Key key) { QTest::keyClick(&control(), key); }
    /// Makes the document these characters and no others.
    void write(const char *keys) {
        call(m_window, "EditarSeleccionarTudo");
        type(keys);
    }
    QLabel &panel(int number) {
        return *test::control<QLabel>(m_window, qPrintable(QStringLiteral("Panel%1").arg(number)));
    }
    QAction *tool(const char *key) {
        return loaded<MDIFrm>()->toolbar(GetParam().toolbar)->findChild<QAction *>(QString::fromUtf8(key));
    }

    /// The name of a file of this edition.
    static std::string name(const char *stem) { return std::string(stem) + GetParam().extension; }
    static QString title(const char *stem) { return QString::fromStdString(name(stem)); }
    void put(const char *stem, const char *text) { writeBytes(name(stem), GetParam().fileOf(text)); }
    std::string savedText(const char *stem) { return GetParam().textOf(fileBytes(name(stem))); }
    void saveAs(const char *stem) {
        answerFileDialog(path(name(stem)));
        call(m_window, "FicheiroGuardarComo");
    }
    void save() { call(m_window, "FicheiroGuardar"); }
    void open(const char *stem) {
        answerFileDialog(path(name(stem)));
        call(m_window, "FicheiroAbrir");
    }
    void cancel(const char *operation) {
        answerFileDialog({});
        call(m_window, operation);
    }
    /// The question that closing brings; it is answered so.
    QString closed(QMessageBox::StandardButton button) {
        Answer answer(button);
        m_window->close();
        deleteClosed();
        return answer.text();
    }
    bool isEnabled(const char *menuItem, const char *popUpItem, const char *key) {
        const bool enabled = m_window->menuItem(menuItem)->isEnabled();
        EXPECT_EQ(m_window->popUp()->findChild<QAction *>(QString::fromUtf8(popUpItem))->isEnabled(),
                  enabled);
        EXPECT_EQ(tool(key)->isEnabled(), enabled);
        return enabled;
    }

    QPointer<DocumentFrm> m_window;
    bool m_ended = false;
};

TEST_P(DocumentLife, SavesWhatIsTypedAndOpensItAgain) {
    write("Hi");
    press(Qt::Key_Return);
    type("there");
    saveAs("hi");
    EXPECT_EQ(savedText("hi"), "Hi\r\nthere");
    EXPECT_EQ(m_window->caption(), title("hi"));
    EXPECT_EQ(shared::GuardarCancelado, 0);
    EXPECT_EQ(shared::settings.DefltDir, path(""));

    put("other", "more");
    open("other");
    EXPECT_EQ(pane().Text(), "more");
    EXPECT_EQ(m_window->caption(), title("other"));
    type("!");
    save();
    EXPECT_EQ(savedText("other"), "!more");
    EXPECT_EQ(savedText("hi"), "Hi\r\nthere");
}

TEST_P(DocumentLife, ItsFileDialogsOfferItsFiles) {
    QDir(m_folder.path()).mkdir(QStringLiteral("sub"));
    shared::settings.DefltDir = path("sub/");
    for (const auto &[operation, title] :
         {std::pair{"FicheiroAbrir", "Open"}, std::pair{"FicheiroGuardarComo", "Save As"}}) {
        whenModal("QFileDialog", [this, titled = title](QWidget *window) {
            auto *dialog = qobject_cast<QFileDialog *>(window);
            EXPECT_EQ(dialog->windowTitle(), QString::fromUtf8(titled));
            EXPECT_EQ(dialog->nameFilters(), GetParam().fileTypes);
            EXPECT_EQ(dialog->selectedNameFilter(), GetParam().fileTypes.first());
            EXPECT_EQ(dialog->directory().absolutePath().toStdString(), path("sub"));
            dialog->reject();
        });
        call(m_window, operation);
    }
}

TEST_P(DocumentLife, ACancelledDialogChangesNothing) {
    write("text");
    cancel("FicheiroGuardarComo");
    EXPECT_EQ(shared::GuardarCancelado, 1);
    cancel("FicheiroAbrir");
    EXPECT_EQ(m_window->caption(), QStringLiteral("Document1"));
    EXPECT_EQ(pane().Text(), "text");
    cancel("FicheiroGuardar"); // has no name yet, and asks
    EXPECT_EQ(shared::GuardarCancelado, 1);

    saveAs("mine");
    cancel("FicheiroGuardarComo");
    cancel("FicheiroAbrir");
    type("!");
    save();
    EXPECT_EQ(savedText("mine"), "text!");
    EXPECT_EQ(m_window->caption(), title("mine"));
}

TEST_P(DocumentLife, AFailedSaveIsSaidAndLeavesTheDocumentUnsaved) {
    write("text");
    saveAs("saved");
    type(" and more");
    {
        const FullDisk full;
        save();
    }
    EXPECT_EQ(statusMessage(), title("saved") + QStringLiteral(" wasn't saved: File too large"));
    EXPECT_EQ(savedText("saved"), "text");
    type("!");
    EXPECT_EQ(statusMessage(), QString());

    saveAs("missing/other");
    EXPECT_TRUE(statusMessage().startsWith(title("other") + QStringLiteral(" wasn't saved: ")));
    EXPECT_EQ(shared::GuardarCancelado, 1);
    EXPECT_EQ(m_window->caption(), title("saved"));
    EXPECT_EQ(shared::settings.DefltDir, path(""));
    EXPECT_EQ(closed(QMessageBox::Cancel), QStringLiteral("Save changes to %1?").arg(title("saved")));
    save();
    EXPECT_EQ(savedText("saved"), "text and more!");
    EXPECT_EQ(statusMessage(), QString());
    EXPECT_EQ(closed(QMessageBox::Cancel), QString());
    EXPECT_FALSE(m_window);
}

TEST_P(DocumentLife, AFailedOpenIsSaidAndKeepsDocumentAndName) {
    write("text");
    saveAs("mine");
    ASSERT_EQ(mkfifo(path(name("pipe")).c_str(), 0600), 0);
    open("pipe");
    EXPECT_EQ(statusMessage(), title("pipe") + QStringLiteral(" wasn't opened: Not a regular file"));
    EXPECT_EQ(m_window->caption(), title("mine"));
    EXPECT_EQ(pane().Text(), "text");
    type("!");
    save();
    EXPECT_EQ(savedText("mine"), "text!");
}

TEST_P(DocumentLife, SaysWhenOpeningReplacesUnsavedChanges) {
    put("a", "a");
    put("b", "b");
    open("a");
    open("b");
    EXPECT_EQ(statusMessage(), QString()); // nobody had changed a
    type("new");
    open("a");
    EXPECT_EQ(statusMessage(), title("b") + QStringLiteral(" was replaced: its changes weren't saved."));
    type("new");
    save();
    open("b");
    EXPECT_EQ(statusMessage(), QString());
    // Though nothing was typed: only saving counts.
    EXPECT_EQ(closed(QMessageBox::No), QStringLiteral("Save changes to %1?").arg(title("b")));
    EXPECT_FALSE(m_window);
}

TEST_P(DocumentLife, AStarInTheTitleSaysThatClosingWouldAsk) {
    const auto starred = [] { return loaded<MDIFrm>()->windowTitle().startsWith(u'*'); };
    write("ab");
    EXPECT_TRUE(waitFor(starred));
    saveAs("saved");
    EXPECT_FALSE(starred());
    // The same length with other characters is found out once the keys rest.
    press(Qt::Key_Backspace);
    type("c");
    EXPECT_TRUE(waitFor(starred));
    press(Qt::Key_Backspace);
    type("b");
    EXPECT_TRUE(waitFor([&] { return !starred(); }));
    open("saved"); // a document just opened counts as changed
    EXPECT_TRUE(starred());
    call(m_window, "EditarSeleccionarTudo");
    press(Qt::Key_Delete);
    EXPECT_FALSE(starred());
}

TEST_P(DocumentLife, ShowsAFilesNameAsItIs) {
    const char *stem = "a&b[*]<i>";
    write("x");
    saveAs(stem);
    EXPECT_EQ(m_window->caption(), title(stem));
    const MDIFrm &frame = *loaded<MDIFrm>();
    EXPECT_TRUE(waitFor(
        [&] { return frame.windowHandle()->title() == QStringLiteral("ZOLT - [%1]").arg(title(stem)); }));
    auto *menu = qobject_cast<QMenu *>(m_window->menuItem("MnuJanelaCascata")->parent());
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().last()->text(), title(stem).replace(u'&', QStringLiteral("&&")));
    type("y");
    EXPECT_EQ(closed(QMessageBox::Cancel), QStringLiteral("Save changes to %1?").arg(title(stem)));
}

/// The ways by which a document goes.
const std::pair<const char *, void (*)(DocumentFrm &)> kWaysOut[] = {
    {"the window's button", [](DocumentFrm &window) { window.close(); }},
    {"Close", [](DocumentFrm &window) { window.menuItem("MnuFicheiroFechar")->trigger(); }},
    {"Exit", [](DocumentFrm &window) { window.menuItem("MnuFicheiroSair")->trigger(); }},
    {"the frame's button", [](DocumentFrm &) { loaded<MDIFrm>()->close(); }},
};

TEST_P(DocumentLife, EveryWayOutCanBeRefused) {
    write("text");
    const struct {
        const char *why;
        QMessageBox::StandardButton button;
        std::string file;
    } refusals[] = {{"Cancel", QMessageBox::Cancel, ""},
                    {"Yes, and no name", QMessageBox::Yes, ""},
                    {"Yes, and no file", QMessageBox::Yes, path(name("missing/text"))}};
    for (const auto &[way, leaveBy] : kWaysOut) {
        for (const auto &refusal : refusals) {
            const testing::Message what = testing::Message() << way << ": " << refusal.why;
            Answer answer(refusal.button);
            if (refusal.button == QMessageBox::Yes)
                answerFileDialog(refusal.file);
            leaveBy(*m_window);
            deleteClosed();
            EXPECT_EQ(answer.text(), QStringLiteral("Save changes to Document1?")) << what;
            ASSERT_TRUE(m_window && loaded<MDIFrm>()) << what;
            EXPECT_TRUE(m_window->isVisible()) << what;
            EXPECT_EQ(pane().Text(), "text") << what;
            EXPECT_TRUE(loaded<MDIFrm>()->toolbar(GetParam().toolbar)->isVisible()) << what;
            EXPECT_FALSE(m_ended) << what;
        }
    }
}

TEST_P(DocumentLife, YesSavesUnderANameAndNoLetsTheChangesGo) {
    for (const auto button : {QMessageBox::Yes, QMessageBox::No}) {
        for (const auto &[way, leaveBy] : kWaysOut) {
            leave();
            for (const char *stem : {"named", "other"})
                QFile::remove(QString::fromStdString(path(name(stem))));
            begin();
            write("text");
            saveAs("named");
            type("!");
            Answer answer(button);
            if (button == QMessageBox::Yes) // also a document with a name is asked for one
                answerFileDialog(path(name("other")));
            leaveBy(*m_window);
            deleteClosed();
            EXPECT_TRUE(answer.came()) << way;
            EXPECT_FALSE(m_window) << way;
            EXPECT_EQ(m_ended, !loaded<MDIFrm>()) << way;
            EXPECT_EQ(savedText("named"), "text") << way;
            if (button == QMessageBox::Yes)
                EXPECT_EQ(savedText("other"), "text!") << way;
            else
                EXPECT_EQ(fileBytes(name("other")), "") << way;
        }
    }
}

TEST_P(DocumentLife, ClosesWithoutAQuestionWhenNothingIsLost) {
    write("text");
    saveAs("named");
    type("x");
    press(Qt::Key_Backspace);
    EXPECT_EQ(closed(QMessageBox::Cancel), QString());
    EXPECT_FALSE(m_window);
    MDIFrm &frame = *loaded<MDIFrm>();
    EXPECT_TRUE(frame.toolbar(1)->isVisible());
    EXPECT_FALSE(frame.toolbar(GetParam().toolbar)->isVisible());
    EXPECT_FALSE(frame.toolbar(GetParam().toolbar + 1)->isVisible());

    call(&frame, "MnuFicheiroNovo");
    begin();
    EXPECT_EQ(m_window->caption(), QStringLiteral("Document1"));
    write("text"); // an emptied document is never asked about
    call(m_window, "EditarSeleccionarTudo");
    press(Qt::Key_Delete);
    EXPECT_EQ(closed(QMessageBox::Cancel), QString());
    EXPECT_FALSE(m_window);
}

TEST_P(DocumentLife, NewEmptiesThePaneAfterItsQuestion) {
    write("text");
    saveAs("named");
    {
        Answer no(QMessageBox::Cancel);
        call(m_window, "FicheiroNovo");
        EXPECT_EQ(no.text(), QStringLiteral("Exit document ?"));
    }
    EXPECT_EQ(pane().Text(), "text");
    EXPECT_EQ(m_window->caption(), title("named"));
    Answer ok(QMessageBox::Ok);
    call(m_window, "FicheiroNovo");
    EXPECT_EQ(pane().Text(), "");
    EXPECT_EQ(m_window->caption(), QStringLiteral("Document1"));
    EXPECT_EQ(loaded<MDIFrm>()->focusWidget(), &control());
    type("new");
    cancel("FicheiroGuardar"); // has no name
    EXPECT_EQ(shared::GuardarCancelado, 1);
    EXPECT_EQ(savedText("named"), "text");
}

TEST_P(DocumentLife, TheWrapSwitchKeepsTextAndSelection) {
    write("one two three");
    auto *button =
        test::control<QToolButton>(loaded<MDIFrm>()->toolbar(GetParam().toolbar), "Translinear palavras");
    for (const bool wraps : {false, true}) {
        pane().setSelStart(4);
        pane().setSelLength(3);
        QWidget &before = control();
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(control().isVisible());
        EXPECT_FALSE(before.isVisible());
        EXPECT_EQ(pane().Text(), "one two three");
        EXPECT_EQ(pane().SelText(), "two");
        EXPECT_EQ(m_window->pane(wraps ? 2 : 1).SelText(), "two") << "stale by now, but there";
        EXPECT_EQ(shared::settings.TxtWWrap, wraps ? 1 : 2);
        EXPECT_EQ(button->isChecked(), wraps);
        EXPECT_EQ(m_window->menuItem("MnuEditarTranslinearpalavras")->isChecked(), wraps);
    }
    call(m_window, "EditarTranslinearpalavras");
    type("2");
    saveAs("active");
    EXPECT_EQ(savedText("active"), "one 2 three");
    leave();
    begin(); // with the pane of the last time
    EXPECT_EQ(&pane(), &m_window->pane(2));
    EXPECT_TRUE(control().isVisible());
}

TEST_P(DocumentLife, TheViewMenuShowsAndHidesTheToolbars) {
    const MDIFrm &frame = *loaded<MDIFrm>();
    const int standard = GetParam().toolbar;
    for (const auto &[name, number] : {std::pair{"MnuVerBarrasdeferramentasPadrão", standard},
                                       {"MnuVerBarrasdeferramentasFormatação", standard + 1}}) {
        QAction *item = m_window->menuItem(name);
        for (const bool shows : {false, true}) {
            item->trigger();
            EXPECT_EQ(item->isChecked(), shows);
            EXPECT_EQ(frame.toolbar(number)->isVisible(), shows) << name;
        }
        EXPECT_TRUE(waitFor([&] { return frame.toolbar(standard)->y() < frame.toolbar(standard + 1)->y(); }));
    }
}

TEST_P(DocumentLife, TheStatusBarFollowsTheCaret) {
    call(m_window, "EditarTranslinearpalavras");
    write("123456789012345678901234567890123");
    EXPECT_EQ(panel(2).text(), QStringLiteral("(1, 33)"));
    EXPECT_EQ(panel(2).frameShadow(), QFrame::Sunken);
    type("4");
    EXPECT_EQ(panel(2).text(), QStringLiteral("(1, 34)"));
    EXPECT_EQ(panel(2).frameShadow(), QFrame::Raised);
    press(Qt::Key_Return);
    EXPECT_EQ(panel(2).text(), QStringLiteral("(2, 0)"));
    EXPECT_EQ(panel(3).text(), QStringLiteral("36"));
    QTest::mouseClick(pane().control().viewport(), Qt::LeftButton, {}, QPoint(2, 5));
    EXPECT_EQ(panel(2).text(), QStringLiteral("(1, 0)"));
    const QDateTime now = QDateTime::currentDateTime();
    EXPECT_EQ(panel(6).text(), QLocale::system().toString(now.date(), QLocale::ShortFormat));
    EXPECT_NE(panel(7).text(), QString());
}

TEST_P(DocumentLife, TheLockKeysShowAtOnce) {
    // A key tells the state before it; a lock that is on ends with the key's release.
    const std::tuple<QEvent::Type, int, quint32, bool, bool> events[] = {
        {QEvent::KeyPress, Qt::Key_A, 0x12, true, true},
        {QEvent::KeyPress, Qt::Key_A, 0, false, false},
        {QEvent::KeyPress, Qt::Key_CapsLock, 0, false, true},
        {QEvent::KeyRelease, Qt::Key_CapsLock, 2, false, true},
        {QEvent::KeyPress, Qt::Key_NumLock, 2, true, true},
        {QEvent::KeyRelease, Qt::Key_NumLock, 0x12, true, true},
        {QEvent::KeyPress, Qt::Key_CapsLock, 0x12, true, true},
        {QEvent::KeyRelease, Qt::Key_CapsLock, 0x12, true, false},
    };
    for (const auto &[type, key, modifiers, num, caps] : events) {
        QKeyEvent event(type, key, {}, 0, 0, modifiers);
        QApplication::sendEvent(&control(), &event);
        EXPECT_EQ(panel(4).isEnabled(), num) << key;
        EXPECT_EQ(panel(5).isEnabled(), caps) << key;
    }
}

TEST_P(DocumentLife, GreysOutWhatCannotAct) {
    const auto undo = [this] {
        return isEnabled("MnuEditarAnularintrodução", "MnuPopUpAnularintroducao", "Anular Introdução");
    };
    const auto cut = [this] { return isEnabled("MnuEditarCortar", "MnuPopUpCortar", "Cortar"); };
    const auto copy = [this] { return isEnabled("MnuEditarCopiar", "MnuPopUpCopiar", "Copiar"); };
    const auto paste = [this] { return isEnabled("MnuEditarColar", "MnuPopUpColar", "Colar"); };
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    put("empty", "");
    open("empty");
    EXPECT_FALSE(undo() || cut() || copy() || paste());
    EXPECT_FALSE(m_window->menuItem("MnuEditarSeleccionartudo")->isEnabled());
    type("ab");
    EXPECT_TRUE(undo());
    EXPECT_FALSE(cut() || copy());
    call(m_window, "EditarSeleccionarTudo");
    EXPECT_TRUE(cut() && copy());
    clipboard->setText(QStringLiteral("c"));
    EXPECT_TRUE(paste());
    call(m_window, "EditarTranslinearpalavras"); // takes the selection along, not the history
    EXPECT_TRUE(cut() && copy() && paste());
    EXPECT_FALSE(undo());
    for (const char *key : {"Copiar", "Cortar", "Colar", "Colar"})
        tool(key)->trigger();
    EXPECT_EQ(pane().Text(), "abab");
}

TEST_P(DocumentLife, UndoAndRedoButtonsAndKeysRunOneCommand) {
    put("doc", "x");
    open("doc");
    type("a");
    const std::function<void()> ways[] = {
        [this] { call(m_window, "EditarAnularintrodução"); },
        [this] { QTest::keyClick(&control(), Qt::Key_Z, Qt::ControlModifier); },
        [this] { tool("Refazer Introdução")->trigger(); },
        [this] { QTest::keyClick(&control(), Qt::Key_Y, Qt::ControlModifier); },
    };
    // Only Ctrl+Z goes back alone, and Ctrl+Y forth.
    for (const int way : {0, 0, 1, 2, 2, 3}) {
        const bool wasThere = pane().Text() == "ax";
        ways[way]();
        EXPECT_EQ(pane().Text(), wasThere ? "x" : "ax") << way;
    }
}

INSTANTIATE_TEST_SUITE_P(Editions, DocumentLife, testing::Values(textualEdition(), graphicalEdition()),
                         [](const auto &edition) { return edition.param.name; });

} // namespace
} // namespace zolt
