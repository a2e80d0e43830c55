#include "support/program.h"

#include <QAbstractItemView>
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
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte == '\r' ? 'r' : byte);
    bytes += "\r\n\r\n";
    writeBytes("bytes.zlt", bytes);
    answerFileDialog(path("bytes.zlt"));
    call(m_window, "FicheiroAbrir");
    EXPECT_EQ(pane().Text(), bytes.substr(0, bytes.size() - 2));
    answerFileDialog(path("no extension"));
    call(m_window, "FicheiroGuardarComo");
    EXPECT_EQ(fileBytes("no extension"), bytes);
}

TEST_F(TextWindow, ANewDocumentClosesWithoutAQuestion) {
    EXPECT_TRUE(m_window->close());
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

} // namespace
} // namespace zolt
