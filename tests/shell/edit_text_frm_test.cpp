#include "support/program.h"
#include "support/texts.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace zolt {
namespace {

using namespace test;

class TextWindow : public TextEditionTest {
protected:
    QString panel(int number) {
        return control<QLabel>(m_window, qPrintable(QStringLiteral("Panel%1").arg(number)))->text();
    }
    QPoint placeOf(qsizetype offset) {
        pane().setSelStart(offset);
        return pane().cursorRect().center();
    }
};

TEST_F(TextWindow, OpensAndSavesEveryByte) {
    std::string bytes = everyByte() + "\r\n\r\n";
    bytes['\r'] = 'r';
    writeBytes("bytes.zlt", bytes);
    answerFileDialog(path("bytes.zlt"));
    call(m_window, "FicheiroAbrir");
    EXPECT_EQ(pane().Text(), bytes.substr(0, bytes.size() - 2));
    answerFileDialog(path("no extension"));
    call(m_window, "FicheiroGuardarComo");
    EXPECT_EQ(fileBytes("no extension"), bytes);
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
    EXPECT_EQ(panel(2), QStringLiteral("(2, 6)"));
    QTest::keyClick(&pane(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pane().Text(), before);
    EXPECT_EQ(pane().SelText(), "Hello");
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

TEST_F(TextWindow, ShowsStylesPicturesAndTheLimitUntilTheMenuSaysNo) {
    const auto shown = [&](int number) {
        // Only one pane shows; the other one is drawn all the same.
        TextPane &each = m_window->textPane(number);
        each.setCursorWidth(0);
        each.setText(withMarks("@Bbold@B\r\n#123456\r\nplain\r\n"));
        each.setSelStart(each.length());
        return each.viewport()->grab().toImage().copy(0, 0, 300, 80);
    };
    const auto isOn = [&](const char *item) { return m_window->menuItem(item)->isChecked(); };
    for (const auto &[item, line] : {std::pair{"MnuVerShowStyles", "ShowStyles=False\n"},
                                     std::pair{"MnuVerShowPictures", "ShowPictures=False\n"},
                                     std::pair{"MnuVerShowColumnLimit", "ShowColumnLimit=False\n"}}) {
        EXPECT_TRUE(isOn(item));
        const QImage before[] = {shown(1), shown(2)};
        m_window->menuItem(item)->trigger();
        EXPECT_NE(shown(1), before[0]) << item;
        EXPECT_NE(shown(2), before[1]) << item;
        EXPECT_NE(fileBytes("ZOLT.more").find(line), std::string::npos);
    }
    const QImage bare = shown(1);
    restart();
    EXPECT_EQ(shown(1), bare);
    m_window->menuItem("MnuVerShowColumnLimit")->trigger();
    EXPECT_TRUE(isOn("MnuVerShowColumnLimit"));
    EXPECT_NE(shown(1), bare);
}

TEST_F(TextWindow, ThePanelOfColumnsCountsWhatTheCalculatorShows) {
    const auto *panel = control<QLabel>(m_window, "PanelColumns");
    const auto shownAt = [&](qsizetype caret) {
        pane().setSelStart(caret);
        QTest::keyClick(&pane(), Qt::Key_Shift);
        return panel->text().toStdString();
    };
    // Five letters, a pair of codes, two cells and three letters.
    pane().setText(withMarks("above\r\nab@Bcd@Be#F9999F#F0000Fxyz\r\n"));
    EXPECT_EQ(shownAt(0), "0/5");
    EXPECT_EQ(shownAt(7 + 5), "3/8");
    EXPECT_EQ(shownAt(7 + 26), "8/8");
    EXPECT_EQ(shownAt(pane().length()), "0/0");
    EXPECT_EQ(control<QLabel>(m_window, "Panel2")->text(), QStringLiteral("(3, 0)"));
    m_window->menuItem("MnuVerVisibleColumns")->trigger();
    EXPECT_TRUE(panel->isHidden());
    restart();
    EXPECT_TRUE(control<QLabel>(m_window, "PanelColumns")->isHidden());
    m_window->menuItem("MnuVerVisibleColumns")->trigger();
    EXPECT_FALSE(control<QLabel>(m_window, "PanelColumns")->isHidden());
}

} // namespace
} // namespace zolt
