#include "core/quick_bar.h"
#include "platform/held_text.h"
#include "shell/tools/caracter_toolbar_frm.h"
#include "support/program.h"

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace zolt {
namespace {

using namespace test;

class QuickBar : public EditionTest, public testing::WithParamInterface<int> {
protected:
    QuickBar() : EditionTest(GetParam()) {}

    MDIFrm &frame() { return *loaded<MDIFrm>(); }

    /// The panel that shows the bar, found among all that could; null for none.
    QuickBarPanel *visibleBar() {
        QuickBarPanel *visible = nullptr;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            for (QuickBarPanel *bar : window->findChildren<QuickBarPanel *>()) {
                if (!bar->isVisible() || bar->window() != window)
                    continue;
                EXPECT_EQ(visible, nullptr) << "two bars show";
                visible = bar;
            }
        }
        return visible;
    }
    /// 0 to 4, by what stands on the screen.
    int shownState() {
        QuickBarPanel *bar = visibleBar();
        if (!bar)
            return 0;
        const bool wide = bar->objectName() == QStringLiteral("Picture1");
        if (bar->window() == loaded<CaracterToolbarFrm>())
            return wide ? 2 : 1;
        EXPECT_EQ(bar->parentWidget()->objectName(),
                  wide ? QStringLiteral("Picture3") : QStringLiteral("Picture4"));
        return wide ? 3 : 4;
    }
    void show(int state) {
        shared::settings.CharTool = static_cast<std::int16_t>(state);
        frame().applyCharTool();
    }
    QToolButton *button(int index) {
        return control<QToolButton>(visibleBar(), qPrintable(QStringLiteral("Command1_%1").arg(index)));
    }
    void press(int index) { QTest::mouseClick(button(index), Qt::LeftButton); }
};

TEST_P(QuickBar, EveryDockButtonLeadsToItsPlace) {
    const struct {
        int from;
        int index;
        int to;
    } moves[] = {
        {2, 72, 1}, {2, 73, 4}, {2, 74, 3}, // floating, wide
        {1, 75, 3}, {1, 76, 4}, {1, 77, 2}, // floating, tall
        {3, 72, 1}, {3, 73, 2}, {3, 74, 4}, // at the top
        {4, 75, 3}, {4, 76, 2}, {4, 77, 1}, // on the right
    };
    EXPECT_EQ(shownState(), 3); // a first start
    for (const auto &move : moves) {
        show(move.from);
        ASSERT_EQ(shownState(), move.from);
        press(move.index);
        EXPECT_EQ(shownState(), move.to) << move.from << " " << move.index;
        EXPECT_EQ(shared::settings.CharTool, move.to);
    }
}

TEST_P(QuickBar, EveryButtonShowsTellsAndInsertsItsCharacter) {
    for (const int state : {1, 2, 3, 4}) {
        show(state);
        const bool tall = state == 1 || state == 4;
        put("");
        std::string expected;
        for (int place = 0; place < 72; ++place) {
            const int index = tall ? 78 + place : place;
            QToolButton *shown = button(index);
            const int run = place / 18 * 24;
            const int along = place % 18 * 24;
            EXPECT_EQ(shown->geometry(), tall ? QRect(run, along, 25, 25) : QRect(along, run, 25, 25));
            shown->click();
            expected += static_cast<char>(kQuickBarCodes[static_cast<std::size_t>(place)]);
            EXPECT_EQ(shown->text(), heldText(expected.substr(expected.size() - 1)));
        }
        EXPECT_EQ(pane().Text(), expected);
    }
    EXPECT_EQ(button(78)->toolTip(), QStringLiteral("Alt+0140"));
    EXPECT_EQ(button(78 + 66)->toolTip(), QStringLiteral("Alt+91"));
}

TEST_P(QuickBar, ACharacterReplacesTheSelectionAndThePaneKeepsTheKeyboard) {
    put("abc", 1, 1);
    show(1);
    press(78);
    EXPECT_EQ(pane().Text(), "a\x8C"
                             "c");
    EXPECT_TRUE(waitFor([&] { return pane().hasFocus(); }));
    pane().undo();
    EXPECT_EQ(pane().SelText(), "b");
}

TEST_P(QuickBar, HiddenBarComesBackAtTheTop) {
    control<QToolButton>(&frame(), "Command2")->click();
    EXPECT_EQ(shownState(), 0);
    EXPECT_EQ(shared::settings.CharTool, 0);
    restart();
    EXPECT_EQ(shownState(), 0);
    m_document->menuItem("MnuVerBarradecaracteres")->trigger();
    EXPECT_EQ(shownState(), 3);

    show(4);
    control<QToolButton>(&frame(), "Command3")->click();
    EXPECT_EQ(shownState(), 0);
    frame().toolbar(2 * GetParam())->findChild<QAction *>(QStringLiteral("Barra de caracteres"))->trigger();
    EXPECT_EQ(shownState(), 3);
}

TEST_P(QuickBar, StateAndPlaceHoldAtTheNextStart) {
    for (const int state : {4, 2, 1, 3}) {
        show(state);
        if (state <= 2)
            loaded<CaracterToolbarFrm>()->move(40 + state, 80);
        restart();
        EXPECT_EQ(shownState(), state);
        if (state <= 2) {
            EXPECT_EQ(loaded<CaracterToolbarFrm>()->pos(), QPoint(40 + state, 80));
        }
    }
    // Without a document there is no bar; one that the user closed stays away.
    show(1);
    loaded<CaracterToolbarFrm>()->close();
    restart();
    EXPECT_EQ(shared::settings.CharTool, 0);
    EXPECT_EQ(shownState(), 0);
}

TEST_P(QuickBar, TheMenuBringsAFloatingBarToTheScreensEdge) {
    show(1);
    call(m_document, "VerBarradecaracteres");
    const QWidget &bar = *loaded<CaracterToolbarFrm>();
    EXPECT_EQ(bar.x() + bar.width(), bar.screen()->geometry().width());
    EXPECT_EQ(bar.y(), 66);
    EXPECT_EQ(bar.size(), QSize(104, 486));
}

TEST_P(QuickBar, TheKeyboardReachesEveryButton) {
    show(3);
    frame().activateWindow();
    put("");
    pane().takeFocus();
    ASSERT_TRUE(waitFor([&] { return pane().hasFocus(); }));
    QTest::keyClick(&pane().control(), Qt::Key_F6);
    const auto focused = [] { return QApplication::focusWidget()->objectName(); };
    EXPECT_EQ(focused(), QStringLiteral("Command1_0"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(focused(), QStringLiteral("Command1_19"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(pane().Text(), "\x84");
}

INSTANTIATE_TEST_SUITE_P(In, QuickBar, testing::Values(1, 2));

} // namespace
} // namespace zolt
