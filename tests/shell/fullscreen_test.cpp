// The full screen, in each edition.

#include "platform/rich_text_box.h"
#include "shell/tools/caracter_table_frm.h"
#include "support/program.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolBar>

namespace zolt {
namespace {

using namespace test;

QWidget *shown(const QString &name) {
    for (QWidget *candidate : QApplication::topLevelWidgets())
        if (candidate->isVisible() && candidate->objectName() == name)
            return candidate;
    return nullptr;
}

class Fullscreen : public ProgramTest, public testing::WithParamInterface<int> {
protected:
    Fullscreen() { begin(); }

    void begin() {
        m_document = &startEdition(GetParam());
        write("");
    }
    void write(std::string_view bytes) {
        call(m_document, "EditarSeleccionarTudo");
        m_document->activePane().setSelText(bytes);
    }
    Pane &documentPane() { return m_document->activePane(); }

    void enter() {
        call(m_document, "MnuVerEcrainteiro");
        ASSERT_NE(window(), nullptr);
        ASSERT_TRUE(waitFor([] { return window()->isActiveWindow(); }));
    }
    static QString name(const char *ending) {
        return (GetParam() == 1 ? QStringLiteral("EditText") : QStringLiteral("EditGraph")) +
               QString::fromUtf8(ending);
    }
    static QWidget *window() { return shown(name("FullscreenFrm")); }
    static QWidget *leaveWindow() { return shown(name("FullscreenLeaveFrm")); }
    static QWidget *control(int number = shared::settings.TxtWWrap) {
        return test::control<QWidget>(window(), number == 1 ? "Text1" : "Text2");
    }
    static Pane &pane() { return *dynamic_cast<Pane *>(control()); }
    static void type(const char *keys) { QTest::keyClicks(control(), QString::fromUtf8(keys)); }
    static QRect caret() {
        const QRect place = control()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        return {control()->mapToGlobal(place.topLeft()), place.size()};
    }

    QPointer<DocumentFrm> m_document;
};

TEST_P(Fullscreen, EditsTheActivePaneAloneAndGivesItBackInOneStep) {
    for (const int wraps : {1, 2}) {
        SCOPED_TRACE(wraps);
        if (shared::settings.TxtWWrap != wraps)
            call(m_document, "EditarTranslinearpalavras");
        write("one two three");
        documentPane().setSelStart(4);
        documentPane().setSelLength(3);
        call(m_document, "VerTabeladecaracteres");
        if (wraps == 1)
            m_document->menuItem("MnuVerEcrainteiro")->trigger();
        else
            loaded<MDIFrm>()
                ->toolbar(GetParam() * 2)
                ->findChild<QAction *>(QStringLiteral("Ecrã inteiro"))
                ->trigger();
        EXPECT_EQ(window()->geometry(), loaded<MDIFrm>()->screen()->geometry());
        EXPECT_EQ(control()->size(), window()->size());
        EXPECT_FALSE(control(3 - wraps)->isEnabled() || control(3 - wraps)->isVisible());
        EXPECT_TRUE(waitFor([] { return pane().hasFocus(); }));
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
        EXPECT_FALSE(loaded<CaracterTableFrm>()->isEnabled()); // it writes into the document
        EXPECT_EQ(pane().Text(), "one two three");
        EXPECT_EQ(pane().SelText(), "two");
        type("22");
        QTest::keyClick(control(), Qt::Key_Left);
        press(leaveWindow(), "Command1");
        EXPECT_EQ(window(), nullptr);
        EXPECT_EQ(leaveWindow(), nullptr);
        EXPECT_EQ(documentPane().Text(), "one 22 three");
        EXPECT_EQ(documentPane().SelStart(), 5);
        EXPECT_EQ(shared::PosiçãoCursor, 5);
        EXPECT_EQ(test::control<QLabel>(m_document, "Panel2")->text(), QStringLiteral("(1, 5)"));
        EXPECT_TRUE(m_document->wouldAsk());
        EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
        EXPECT_TRUE(loaded<CaracterTableFrm>()->isEnabled());
        EXPECT_TRUE(waitFor([&] { return documentPane().hasFocus(); }));
        documentPane().undo();
        EXPECT_EQ(documentPane().Text(), "one two three");
        EXPECT_EQ(documentPane().SelText(), "two");
        documentPane().redo();
        EXPECT_EQ(documentPane().Text(), "one 22 three");
    }
}

TEST_P(Fullscreen, EveryWayOutGivesTheTextBack) {
    const std::pair<const char *, std::function<void()>> ways[] = {
        {"Escape", [] { QTest::keyClick(control(), Qt::Key_Escape); }},
        {"F11", [] { QTest::keyClick(control(), Qt::Key_F11); }},
        {"closed", [] { window()->close(); }},
        {"the small window closed", [] { leaveWindow()->close(); }},
        {"Escape in the small window", [] { QTest::keyClick(leaveWindow(), Qt::Key_Escape); }},
        {"the document hidden", [this] { m_document->hide(); }},
        {"the document closed", [this] { m_document->close(); }},
        {"the program ended", [] { loaded<MDIFrm>()->close(); }},
    };
    for (const auto &[way, leaveBy] : ways) {
        SCOPED_TRACE(way);
        m_document->show();
        write("text");
        loaded<MDIFrm>()->activateWindow();
        enter();
        type("!");
        std::string textAtQuestion = "text!";
        whenModal("QMessageBox", [&](QWidget *box) {
            textAtQuestion = documentPane().Text();
            qobject_cast<QMessageBox *>(box)->button(QMessageBox::Cancel)->click();
        });
        leaveBy();
        deleteClosed();
        EXPECT_EQ(textAtQuestion, "text!");
        EXPECT_EQ(documentPane().Text(), "text!");
        EXPECT_EQ(window(), nullptr);
        EXPECT_EQ(leaveWindow(), nullptr);
        EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    }
    enter();
    type("!");
    shared::SemPerguntaDeSaída = 1;
    m_document->close();
    deleteClosed();
    EXPECT_EQ(m_document, nullptr);
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(leaveWindow(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

TEST_P(Fullscreen, NothingChangedLeavesTheDocumentAsItWas) {
    for (const char *text : {"", "text"}) {
        SCOPED_TRACE(text);
        write(text);
        answerFileDialog(path(std::string("saved") + text));
        call(m_document, "FicheiroGuardarComo");
        QTest::keyClicks(&documentPane().control(), QStringLiteral("a"));
        QTest::keyClick(&documentPane().control(), Qt::Key_Backspace);
        ASSERT_TRUE(waitFor([&] { return !m_document->wouldAsk(); }));
        for (const bool changesForAWhile : {false, true}) {
            enter();
            EXPECT_EQ(pane().Text(), text);
            if (changesForAWhile) {
                type("b");
                QTest::keyClick(control(), Qt::Key_Z, Qt::ControlModifier);
            }
            QTest::keyClick(control(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
            EXPECT_EQ(pane().SelText(), text);
            window()->close();
            deleteClosed();
            EXPECT_EQ(documentPane().SelText(), text);
            EXPECT_FALSE(m_document->wouldAsk());
        }
        documentPane().undo();
        EXPECT_EQ(documentPane().Text(), text + std::string("a"));
    }
}

TEST_P(Fullscreen, TheSmallWindowHidesNoCaretAndIsReachedByAKey) {
    const std::string wide(90, 'a');
    std::string text = wide;
    for (int line = 0; line < 100; ++line)
        text += "\r\n" + wide;
    write(text);
    enter(); // at its end
    EXPECT_TRUE(window()->geometry().contains(caret()));
    for (const auto &[end, inwards] : {std::pair(Qt::Key_Home, Qt::Key_Down), {Qt::Key_End, Qt::Key_Up}}) {
        QTest::keyClick(control(), end, Qt::ControlModifier);
        for (const Qt::Key key : {inwards, inwards, inwards, Qt::Key_End})
            QTest::keyClick(control(), key);
        EXPECT_FALSE(leaveWindow()->frameGeometry().intersects(caret())) << end;
    }
    QTest::keyClick(control(), Qt::Key_F6);
    EXPECT_TRUE(waitFor([] { return leaveWindow()->isActiveWindow(); }));
    QTest::keyClick(leaveWindow(), Qt::Key_F6);
    EXPECT_TRUE(waitFor([] { return window()->isActiveWindow() && pane().hasFocus(); }));
}

TEST_F(ProgramTest, FullscreenKeepsWhatARichTextLooksLike) {
    DocumentFrm &document = startEdition(2);
    auto &box = dynamic_cast<RichTextBox &>(document.activePane());
    call(&document, "MnuFormatarAltocontraste");
    call(&document, "EditarSeleccionarTudo");
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    box.pastePicture(picture);
    box.setSelText("plain\r\nbold\r\n");
    box.setSelStart(8);
    box.setSelLength(4);
    box.setSelFontName("ZOLTBold");
    box.setSelColor(0x0000FF);
    box.setSelFontSize(20);
    box.setSelStart(12);
    const auto typeInFullScreen = [&] {
        call(&document, "MnuVerEcrainteiro");
        QWidget *window = shown(QStringLiteral("EditGraphFullscreenFrm"));
        auto &pane = dynamic_cast<RichTextBox &>(*control<QWidget>(window, "Text1"));
        EXPECT_EQ(pane.richText(), box.richText());
        EXPECT_EQ(pane.palette().color(QPalette::Base), QColor(Qt::black));
        QTest::keyClicks(&pane, QStringLiteral("er"));
        const RichText typed = pane.richText();
        window->close();
        deleteClosed();
        EXPECT_EQ(box.richText(), typed);
    };
    const RichText before = box.richText();
    typeInFullScreen();
    box.setSelStart(13);
    EXPECT_EQ(box.SelFontName(), "ZOLTBold");
    box.undo();
    EXPECT_EQ(box.richText(), before);

    call(&document, "EditarSeleccionarTudo");
    QTest::keyClick(&box, Qt::Key_Delete);
    box.setSelFontName("ZOLTInverse");
    typeInFullScreen();
    EXPECT_EQ(box.SelFontName(), "ZOLTInverse");
    EXPECT_EQ(box.SelColor(), 0x80FF80u);
}

INSTANTIATE_TEST_SUITE_P(Editions, Fullscreen, testing::Values(1, 2),
                         [](const auto &edition) { return edition.param == 1 ? "Textual" : "Graphical"; });

} // namespace
} // namespace zolt
