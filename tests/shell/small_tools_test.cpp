#include "platform/held_text.h"
#include "shell/tools/caracter_table_frm.h"
#include "shell/tools/date_time_frm.h"
#include "shell/tools/edit_text_word_count_frm.h"
#include "support/program.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace zolt {
namespace {

using namespace test;

class SmallTools : public EditionTest, public testing::WithParamInterface<int> {
protected:
    SmallTools() : EditionTest(GetParam()) {}

    QTableWidget &grid() { return *control<QTableWidget>(loaded<CaracterTableFrm>(), "Grid1"); }
    QComboBox &fonts() { return *control<QComboBox>(loaded<CaracterTableFrm>(), "Combo1"); }
    QPoint middleOf(int row, int column) { return grid().visualItemRect(grid().item(row, column)).center(); }
    QString toolTipAt(int row, int column) {
        const QPointF place = middleOf(row, column);
        QMouseEvent move(QEvent::MouseMove, place, grid().viewport()->mapToGlobal(place), Qt::NoButton, {},
                         {});
        QApplication::sendEvent(grid().viewport(), &move);
        return grid().toolTip();
    }
};

TEST_P(SmallTools, TheTableInsertsTheCellUnderTheReleasedButton) {
    call(m_document, "VerTabeladecaracteres");
    EXPECT_EQ(grid().item(15, 13)->text(), heldText("\xFF"));
    put("abc", 1, 1);
    const std::string inserted = "a\x8C";
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, middleOf(7, 10)); // 32 + 7 * 14 + 10
    EXPECT_EQ(pane().Text(), inserted + "c");
    QTest::mousePress(grid().viewport(), Qt::LeftButton, {}, middleOf(0, 1));
    EXPECT_EQ(pane().Text(), inserted + "c");
    QTest::mouseRelease(grid().viewport(), Qt::LeftButton, {}, middleOf(0, 1));
    EXPECT_EQ(pane().Text(), inserted + "!c");
    // Letting go elsewhere inserts nothing.
    QTest::mousePress(grid().viewport(), Qt::LeftButton, {}, middleOf(0, 1));
    QTest::mouseRelease(grid().viewport(), Qt::LeftButton, {}, QPoint(-20, 5));
    EXPECT_EQ(pane().Text(), inserted + "!c");
    grid().setFocus();
    QTest::keyClick(&grid(), Qt::Key_Return);
    EXPECT_EQ(pane().Text(), inserted + "!!c");
    EXPECT_EQ(toolTipAt(15, 13), QStringLiteral("Alt+255"));
    EXPECT_EQ(toolTipAt(7, 10), QStringLiteral("Alt+140"));
}

TEST_P(SmallTools, TheTableComesBackWhereItStoodInItsFont) {
    call(m_document, "VerTabeladecaracteres");
    EXPECT_EQ(shared::settings.ChrTbExi, 1);
    ASSERT_GT(fonts().count(), 1);
    const int other = fonts().currentIndex() == 0 ? 1 : 0;
    fonts().setCurrentIndex(other);
    emit fonts().activated(other);
    const QString name = fonts().currentText();
    EXPECT_EQ(shared::settings.ChrTbFnt, name.toStdString());
    EXPECT_EQ(grid().font().family(), name);
    loaded<CaracterTableFrm>()->move(50, 70);
    restart();
    ASSERT_NE(loaded<CaracterTableFrm>(), nullptr);
    EXPECT_EQ(loaded<CaracterTableFrm>()->pos(), QPoint(50, 70));
    EXPECT_TRUE(loaded<CaracterTableFrm>()->isVisible());
    EXPECT_EQ(fonts().currentText(), name);

    loaded<CaracterTableFrm>()->close();
    restart();
    EXPECT_EQ(loaded<CaracterTableFrm>(), nullptr);
    EXPECT_EQ(shared::settings.ChrTbExi, 0);

    // A font that isn't installed gives the first of the list.
    shared::settings.ChrTbFnt = "A font that is nowhere";
    call(m_document, "VerTabeladecaracteres");
    EXPECT_EQ(fonts().currentIndex(), 0);
    EXPECT_EQ(grid().font().family(), fonts().itemText(0));
}

TEST_P(SmallTools, ADateGoesIntoBothPanesOfTheTextEditionAndIntoTheActiveOneOfTheOther) {
    put("abc", 1, 1);
    call(m_document, "EditarTranslinearpalavras"); // with text and selection
    m_document->menuItem("MnuInserirDataehora")->trigger();
    QWidget *window = loaded<DateTimeFrm>();
    auto *list = control<QListWidget>(window, "List1");
    EXPECT_EQ(list->count(), 17);
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    list->setCurrentRow(4);
    const std::string date = list->currentItem()->text().toStdString();
    EXPECT_EQ(date.size(), 10u);
    control<QPushButton>(window, "Command1")->click();
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(pane().Text(), "a" + date + "c");
    EXPECT_EQ(m_document->pane(1).Text(), GetParam() == 1 ? "a" + date + "c" : "abc");

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_document->menuItem("MnuInserirDataehora")->trigger();
    control<QPushButton>(loaded<DateTimeFrm>(), "Command2")->click();
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(pane().Text(), "a" + date + "c");
}

TEST_P(SmallTools, TheCountsAreOfTheMomentOfTheCommand) {
    const auto count = [](const char *name) {
        return control<QLabel>(loaded<EditTextWordCountFrm>(), name)->text().toInt();
    };
    put("ab cd");
    m_document->menuItem("MnuFerramentasContarpalavras")->trigger();
    EXPECT_EQ(count("Palavras"), 2);
    put("ab\r\n\r\n");
    m_document->menuItem("MnuFerramentasContarpalavras")->trigger();
    EXPECT_EQ(count("Palavras"), 1);
    EXPECT_EQ(count("CaracteresSemEspaços"), 2);
    EXPECT_EQ(count("CaracteresComEspaços"), 3);
    EXPECT_EQ(count("Parágrafos"), 2);
}

INSTANTIATE_TEST_SUITE_P(In, SmallTools, testing::Values(1, 2));

} // namespace
} // namespace zolt
