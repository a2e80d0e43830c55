#include "platform/byte_line.h"
#include "platform/held_text.h"
#include "shell/symbols/symbol_frm.h"
#include "shell/widgets/cell_views.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace zolt {
namespace {

using namespace test;

const std::string kThree = withMarks(" 3 \r\nOne\r\n#100000\r\nTwo\r\n#200000\r\nThree\r\n#300000\r\n");

class SymbolWindow : public TextEditionTest {
protected:
    SymbolWindow() {
        writeBytes("Default.zls", kThree);
        open("MnuInserirListadesímbolos");
    }

    void open(const char *menuItem) {
        m_window->menuItem(menuItem)->trigger();
        m_symbols = loaded<SymbolFrm>();
        ASSERT_NE(m_symbols, nullptr);
        // The frame may still be on its way to the front.
        QCoreApplication::processEvents();
        m_symbols->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_symbols));
    }
    /// Closes the window by a button and opens it again.
    void reopen(const char *button) {
        press(button);
        deleteClosed();
        ASSERT_EQ(loaded<SymbolFrm>(), nullptr);
        open("MnuInserirListadesímbolos");
    }

    void press(const char *button) { test::press(m_symbols, button); }
    /// Presses a button and answers its file dialog.
    void pressAndName(const char *button, const char *file) {
        answerFileDialog(path(file));
        press(button);
    }
    void type(const char *box, const char *keys) {
        auto *line = control<ByteLine>(m_symbols, box);
        line->selectAll();
        QTest::keyClicks(line, QString::fromUtf8(keys));
    }
    std::string text(const char *box) { return control<ByteLine>(m_symbols, box)->Text(); }
    QString label(const char *name) { return control<QLabel>(m_symbols, name)->text(); }
    QListWidget &list() { return *control<QListWidget>(m_symbols, "List1"); }
    int page() { return control<QTabWidget>(m_symbols, "SSTab1")->currentIndex(); }
    void setPage(int page) { control<QTabWidget>(m_symbols, "SSTab1")->setCurrentIndex(page); }
    QWidget *square(int number) {
        return control<QWidget>(m_symbols, qPrintable(QStringLiteral("Picture%1").arg(number)));
    }
    /// The titles, with the selected one in brackets.
    std::string shown() {
        std::string titles;
        for (int row = 0; row < list().count(); ++row) {
            const std::string title = bytesOfHeldText(list().item(row)->text());
            titles += list().item(row)->isSelected() ? "[" + title + "] " : title + " ";
        }
        return titles;
    }
    /// The dots of a preview as its pixels show them; each dot is 2 by 2.
    std::string drawnExpression(const char *preview) {
        const QImage picture = control<CellPreview>(m_symbols, preview)->grab().toImage();
        EXPECT_EQ(picture.size(), QSize(8, 12));
        CellDots dots{};
        for (int square = 1; square <= kCellSquares; ++square) {
            const QPoint corner((square - 1) % 4 * 2, (square - 1) / 4 * 2);
            const QColor dot = picture.pixelColor(corner);
            for (const QPoint pixel : {QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
                EXPECT_EQ(picture.pixelColor(corner + pixel), dot);
            if (dot == QColor(Qt::black))
                toggleSquare(dots, square);
        }
        return Expressao(dots);
    }

    SymbolFrm *m_symbols = nullptr;
};

std::string cell(const char *digits) {
    return std::string("\x9E") + digits;
}

/// The digits of the selected one of kThree's symbols.
const char *digitsOf(std::string_view titles) {
    return titles.find("[One]") != titles.npos     ? "100000"
           : titles.find("[Two]") != titles.npos   ? "200000"
           : titles.find("[Three]") != titles.npos ? "300000"
                                                   : "000000";
}

TEST_F(SymbolWindow, ShowsTheCurrentFile) {
    EXPECT_EQ(page(), SymbolFrm::ListPage);
    EXPECT_EQ(shown(), "[One] Two Three ");
    EXPECT_EQ(label("Label1"), QStringLiteral("Default"));
    EXPECT_EQ(label("Label2"), QStringLiteral("Number of symbols:3"));
    EXPECT_EQ(text("Text2"), "Symbol4");
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(drawnExpression("Picture29"), cell("300000"));
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    open("MnuInserirCriarnovosímbolo");
    EXPECT_EQ(page(), SymbolFrm::EditionPage);
}

TEST_F(SymbolWindow, WithoutASelectedLineNothingHappens) {
    const auto pressAll = [this] {
        for (const char *command :
             {"Command8", "Command9", "Command10", "Command15", "Command16", "Command4"})
            press(command);
    };
    const QPoint first = list().visualItemRect(list().item(0)).center();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier, first);
    pane().setText("text");
    m_window->EditarSeleccionarTudo();
    pressAll();
    EXPECT_EQ(shown(), "One Two Three ");
    EXPECT_EQ(page(), SymbolFrm::ListPage);
    EXPECT_EQ(pane().Text(), "text");

    // Nor does it in the list that is empty because its file isn't there.
    shared::settings.DefltSmb = path("none.zls");
    reopen("Command3");
    pressAll();
    setPage(SymbolFrm::EditionPage);
    press("Command2");
    EXPECT_EQ(label("Label2"), QStringLiteral("Number of symbols:0"));
    press("Command18");
    EXPECT_EQ(fileBytes("none.zls"), " 0 \r\n");
}

TEST_F(SymbolWindow, ClicksAndKeysDraw) {
    setPage(SymbolFrm::EditionPage);
    for (const int number : {4, 7, 10, 13})
        QTest::mouseClick(square(number), number == 4 ? Qt::RightButton : Qt::LeftButton);
    EXPECT_EQ(text("Text3"), cell("842100"));
    EXPECT_EQ(drawnExpression("Picture26"), cell("842100"));
    EXPECT_EQ(square(4)->grab().toImage().pixelColor(16, 16), QColor(Qt::black));
    EXPECT_EQ(square(1)->grab().toImage().pixelColor(16, 16), square(1)->palette().color(QPalette::Base));

    // Letting go elsewhere draws nothing.
    QTest::mousePress(square(1), Qt::LeftButton);
    QTest::mouseRelease(square(1), Qt::LeftButton, {}, QPoint(60, 10));
    EXPECT_EQ(text("Text3"), cell("842100"));

    QWidget *grid = square(25);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(text("Text3"), cell("842000"));
    for (const auto key :
         {Qt::Key_Left, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Right, Qt::Key_Space})
        QTest::keyClick(grid, key);
    EXPECT_EQ(text("Text3"), cell("A42000"));

    press("Command7");
    EXPECT_EQ(text("Text3"), cell("5BDFFF"));
    EXPECT_EQ(drawnExpression("Picture26"), cell("5BDFFF"));
    press("Command6");
    EXPECT_EQ(drawnExpression("Picture26"), cell("FFFFFF"));
    press("Command5");
    EXPECT_EQ(text("Text3"), cell("000000"));
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(SymbolWindow, AddsWhatTheBoxesHold) {
    setPage(SymbolFrm::EditionPage);
    press("Command6");
    type("Text2", "Block, \"full\"");
    press("Command1");
    type("Text3", "by hand");
    press("Command1");
    EXPECT_EQ(label("Label2"), QStringLiteral("Number of symbols:5"));
    press("Command11");
    EXPECT_EQ(text("Text2"), "Symbol6");
    EXPECT_EQ(text("Text3"), cell("000000"));
    reopen("Command18");
    EXPECT_EQ(shown(), "[One] Two Three Block, \"full\" Block, \"full\" ");
    EXPECT_TRUE(fileBytes("Default.zls").ends_with("FFFFFF\r\nBlock, \"full\"\r\nby hand\r\n"));
}

TEST_F(SymbolWindow, EditsAndReplacesTheSelectedSymbol) {
    list().setCurrentRow(1);
    press("Command8");
    EXPECT_EQ(page(), SymbolFrm::EditionPage);
    EXPECT_EQ(text("Text2"), "Two");
    EXPECT_EQ(text("Text3"), cell("200000"));
    QTest::mouseClick(square(24), Qt::LeftButton);
    type("Text2", "2");
    press("Command2");
    EXPECT_EQ(page(), SymbolFrm::ListPage);
    EXPECT_EQ(shown(), "One [2] Three ");
    EXPECT_EQ(drawnExpression("Picture29"), cell("200008"));

    // Going to the page by its tab names the symbol too, and brings no dots.
    list().setCurrentRow(2);
    setPage(SymbolFrm::EditionPage);
    EXPECT_EQ(text("Text3"), cell("200008"));
    press("Command2");
    EXPECT_EQ(shown(), "One 2 [2] ");
}

TEST_F(SymbolWindow, EditAndReplaceKeepEveryByteOfATitle) {
    std::string title;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '\r' && byte != '\n')
            title += static_cast<char>(byte);
    const std::string file = " 1 \r\n" + title + "\r\n" + cell("0F0F0F") + "\r\n";
    writeBytes("Default.zls", file);
    reopen("Command3");
    press("Command8");
    press("Command2");
    press("Command18");
    EXPECT_EQ(fileBytes("Default.zls"), file);
}

TEST_F(SymbolWindow, MovesDoublesAndRemovesByButtonsAndPopUp) {
    const struct {
        const char *button;
        const char *popUpItem;
        const char *after;
    } steps[] = {
        {"Command10", "Moverparacima", "[One] Two Three "},
        {"Command15", "Moverparabaixo", "Two [One] Three "},
        {"Command15", "Moverparabaixo", "Two Three [One] "},
        {"Command15", "Moverparabaixo", "Two Three [One] "}, // can't go further
        {"Command10", "Moverparacima", "Two [One] Three "},
        {"Command16", "Duplicar", "Two [One] One Three "},
        {"Command9", "Remover", "Two [One] Three "},
        {"Command9", "Remover", "Two [Three] "},
        {"Command9", "Remover", "[Two] "},
        {"Command9", "Remover", ""},
        {"Command9", "Remover", ""},
    };
    for (const auto &step : steps) {
        press(step.button);
        EXPECT_EQ(shown(), step.after);
        EXPECT_EQ(drawnExpression("Picture29"), cell(digitsOf(step.after)));
        EXPECT_TRUE(list().hasFocus());
    }
    reopen("Command3");
    const QPoint place = list().visualItemRect(list().item(0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(list().viewport(), &event);
    auto *menu = control<QMenu>(m_symbols, "MnuPopUpSymbol");
    EXPECT_TRUE(menu->isVisible());
    menu->close();
    const auto item = [&](const char *name) {
        return control<QAction>(menu, qPrintable(QStringLiteral("MnuPopUpSymbol") + QString::fromUtf8(name)));
    };
    for (const auto &step : steps) {
        item(step.popUpItem)->trigger();
        EXPECT_EQ(shown(), step.after);
    }
    reopen("Command3");
    press("Command14");
    EXPECT_EQ(label("Label2"), QStringLiteral("Number of symbols:0"));
    reopen("Command3");
    EXPECT_EQ(fileBytes("Default.zls"), kThree);
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(shown(), "[Two] Three ");
    control<QAction>(m_symbols, "MnuPopUpSymbolEditar")->trigger();
    EXPECT_EQ(text("Text2"), "Two");
}

TEST_F(SymbolWindow, InsertsIntoBothPanes) {
    for (const int number : {1, 2}) {
        m_window->textPane(number).setText("abcd");
        m_window->textPane(number).setSelStart(number);
        m_window->textPane(number).setSelLength(2);
    }
    QTest::keyClick(&list(), Qt::Key_Down);
    press("Command4");
    EXPECT_EQ(m_window->textPane(1).Text(), "a" + cell("200000") + "d");
    EXPECT_EQ(m_window->textPane(2).Text(), "ab" + cell("200000"));

    const QPoint third = list().visualItemRect(list().item(2)).center();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, third);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, third);
    EXPECT_EQ(m_window->textPane(1).Text(), "a" + cell("200000") + cell("300000") + "d");

    setPage(SymbolFrm::EditionPage);
    type("Text3", "<x>");
    press("Command4");
    EXPECT_EQ(m_window->textPane(1).Text(), "a" + cell("200000") + cell("300000") + "<x>d");
    EXPECT_TRUE(m_symbols->isVisible());
}

TEST_F(SymbolWindow, OpensAnotherFileAndOkWritesThere) {
    writeBytes("other.zls", withMarks("1\r\nA, b\r\n#0\r\n"));
    pressAndName("Command12", "other.zls");
    EXPECT_EQ(shown(), "[A, b] ");
    EXPECT_EQ(drawnExpression("Picture29"), cell("000000"));
    EXPECT_EQ(label("Label1"), QStringLiteral("other"));
    setPage(SymbolFrm::EditionPage);
    press("Command1");
    press("Command18");
    EXPECT_EQ(fileBytes("other.zls"), withMarks(" 2 \r\nA, b\r\n#0\r\nSymbol4\r\n#000000\r\n"));
    EXPECT_EQ(fileBytes("Default.zls"), kThree);
    EXPECT_EQ(shared::settings.DefltSmb, path("other.zls"));
}

TEST_F(SymbolWindow, SavesUnderAnotherName) {
    press("Command9");
    answerFileDialog({});
    press("Command13");
    EXPECT_EQ(label("Label1"), QStringLiteral("Default"));
    pressAndName("Command13", "mine");
    EXPECT_EQ(label("Label1"), QStringLiteral("mine"));
    EXPECT_EQ(shown(), "[Two] Three ");
    EXPECT_TRUE(fileBytes("mine.zls").starts_with(" 2 \r\nTwo\r\n"));
    EXPECT_EQ(fileBytes("Default.zls"), kThree);

    // A name that stands there is asked about, whole.
    answerFileDialog(path("Default"));
    QString question;
    whenModal("QMessageBox", [&](QWidget *box) {
        question = qobject_cast<QMessageBox *>(box)->text();
        box->close();
        answerFileDialog({});
    });
    press("Command13");
    EXPECT_TRUE(question.contains(QStringLiteral("Default.zls"))) << question.toStdString();
    EXPECT_EQ(fileBytes("Default.zls"), kThree);
    EXPECT_EQ(shared::settings.DefltSmb, path("mine.zls"));

    // Among all files a name is taken as it is typed.
    answerFileDialog(path("plain"), "All");
    press("Command13");
    EXPECT_TRUE(fileBytes("plain").starts_with(" 2 \r\nTwo\r\n"));
    EXPECT_EQ(label("Label1"), QStringLiteral("plain"));
}

TEST_F(SymbolWindow, ImportsBehindTheListAndOnlyWholeFilesSaySo) {
    writeBytes("more.zls", "2\r\nV\r\n1\r\nW\r\n2\r\n");
    {
        Answer ok(QMessageBox::Ok);
        pressAndName("Command17", "more.zls");
        EXPECT_EQ(ok.text(), QStringLiteral("Added 2 symbols to the list"));
    }
    EXPECT_EQ(shown(), "[One] Two Three V W ");
    EXPECT_EQ(label("Label2"), QStringLiteral("Number of symbols:5"));

    writeBytes("text.zls", "no count\r\n");
    pressAndName("Command12", "text.zls");
    EXPECT_EQ(shown(), "[One] Two Three V W ");
    EXPECT_EQ(shared::settings.DefltSmb, path("Default.zls"));

    writeBytes("short.zls", "3\r\nX\r\n1\r\nY\r\n");
    pressAndName("Command17", "short.zls");
    EXPECT_EQ(shown(), "[One] Two Three V W X Y  ");
    // What was read stands in the list, so that OK must not write it to the old file.
    pressAndName("Command12", "short.zls");
    EXPECT_EQ(shown(), "[X] Y  ");
    press("Command18");
    EXPECT_EQ(fileBytes("Default.zls"), kThree);
}

TEST_F(SymbolWindow, StaysWithItsSymbolsIfTheyCannotBeWritten) {
    shared::settings.DefltSmb = path("missing/list.zls");
    press("Command18");
    EXPECT_TRUE(m_symbols->isVisible());
    EXPECT_EQ(shown(), "[One] Two Three ");
    EXPECT_TRUE(statusMessage().startsWith(QStringLiteral("list.zls wasn't saved: ")));
    pressAndName("Command13", "missing/other");
    EXPECT_TRUE(statusMessage().startsWith(QStringLiteral("other.zls wasn't saved: ")));
    EXPECT_EQ(shared::settings.DefltSmb, path("missing/list.zls"));
}

} // namespace
} // namespace zolt
