#include "shell/base/long_work.h"
#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "shell/pictures/edit_text_insert_grob_frm.h"
#include "shell/tools/about_frm.h"
#include "shell/tools/caracter_table_frm.h"
#include "support/program.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace zolt {
namespace {

using namespace test;

class WindowLife : public TextEditionTest {};

TEST_F(WindowLife, ADisabledFrameDoesNotClose) {
    MDIFrm &frame = *loaded<MDIFrm>();
    bool ended = false;
    QObject::connect(&frame, &MDIFrm::ended, [&] { ended = true; });
    call(m_window, "TesteDeIntegridade");
    EXPECT_FALSE(frame.close());
    EXPECT_FALSE(ended);
    EXPECT_TRUE(loaded<EditTextGuardarHPFrm>()->isVisible());
    loaded<EditTextGuardarHPFrm>()->close();
    EXPECT_TRUE(frame.close());
    EXPECT_TRUE(ended);
}

TEST_F(WindowLife, ClosingTheFrameDuringAReadingEndsBoth) {
    // So high that the reading lets the windows live more than once.
    writeBytes("high.gro", "GROB 131 32767 F");
    answerFileDialog(path("high.gro"));
    call(loaded<MDIFrm>(), "MostrarEditTextInsertGrobFrm");
    const QPointer<QWidget> window = loaded<EditTextInsertGrobFrm>();
    const QPointer<MDIFrm> frame = loaded<MDIFrm>();
    bool closed = false;
    QTimer::singleShot(0, frame, [&] {
        closed = frame->close();
        deleteClosed();
        EXPECT_NE(window, nullptr);
    });
    press(window, "Command2");
    EXPECT_TRUE(closed);
    deleteClosed();
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(frame, nullptr);
}

TEST_F(WindowLife, AClosedWindowGoesWithTheLastWork) {
    QPointer<AboutFrm> window = &load<AboutFrm>(loaded<MDIFrm>());
    window->show();
    Progress first = livelyProgress({}, [] { return false; });
    {
        const Progress second = first;
        window->close();
        first = {};
        deleteClosed();
        EXPECT_NE(window, nullptr);
    }
    deleteClosed();
    EXPECT_EQ(window, nullptr);
}

TEST_F(WindowLife, CompanionsGoWithTheirDocument) {
    for (const std::int16_t bar : {1, 3, 4}) {
        for (const char *operation :
             {"VerTabeladecaracteres", "EditarLocalizar", "MnuInserirListadesímbolos"})
            call(m_window, operation);
        shared::settings.CharTool = bar;
        loaded<MDIFrm>()->applyCharTool();
        m_window->close();
        deleteClosed();
        for (QWidget *window : QApplication::topLevelWidgets())
            EXPECT_TRUE(window == loaded<MDIFrm>() || !window->isVisible())
                << window->objectName().toStdString();
        EXPECT_FALSE(loaded<MDIFrm>()->topPanel()->isVisible() ||
                     loaded<MDIFrm>()->rightPanel()->isVisible());
        EXPECT_EQ(shared::settings.CharTool, bar);
        EXPECT_EQ(shared::settings.ChrTbExi, 1);
        restart();
    }
}

TEST_F(WindowLife, TheWindowMenuBringsAMinimisedDocumentBack) {
    auto *menu = qobject_cast<QMenu *>(m_window->menuItem("MnuJanelaCascata")->parent());
    for (const bool maximised : {true, false}) {
        maximised ? m_window->showMaximized() : m_window->showNormal();
        call(loaded<MDIFrm>(), "minimizeAll");
        ASSERT_TRUE(m_window->isMinimized());
        emit menu->aboutToShow();
        menu->actions().last()->trigger();
        EXPECT_FALSE(m_window->isMinimized());
        EXPECT_EQ(m_window->isMaximized(), maximised);
    }
}

TEST_F(WindowLife, TheWindowMenuArrangesTheDocument) {
    const QSize whole = m_window->parentWidget()->size();
    const auto tiled = [&](const char *command) {
        m_window->showNormal();
        m_window->setGeometry(10, 10, 300, 200);
        call(loaded<MDIFrm>(), command);
        return m_window->geometry();
    };
    EXPECT_EQ(tiled("tileVertically"), QRect({0, 0}, whole));
    auto *other = new QMdiSubWindow;
    loaded<MDIFrm>()->adopt(other);
    other->show();
    EXPECT_EQ(tiled("tileVertically"), QRect(0, 0, whole.width() / 2, whole.height()));
    EXPECT_EQ(tiled("tileHorizontally"), QRect(0, 0, whole.width(), whole.height() / 2));
    EXPECT_EQ(other->geometry(), QRect(0, whole.height() / 2, whole.width(), whole.height() / 2));
    delete other;
    m_window->setGeometry(100, 100, 200, 200);
    call(loaded<MDIFrm>(), "cascade");
    EXPECT_LT(m_window->x(), 100);
    call(m_window, "VerTabeladecaracteres");
    call(loaded<MDIFrm>(), "minimizeAll");
    EXPECT_TRUE(m_window->isMinimized());
    EXPECT_TRUE(loaded<CaracterTableFrm>()->isMinimized());
    call(loaded<MDIFrm>(), "restoreAll");
    EXPECT_FALSE(m_window->isMinimized());
    EXPECT_FALSE(loaded<CaracterTableFrm>()->isMinimized());
    call(loaded<MDIFrm>(), "MostrarAboutFrm");
    call(loaded<MDIFrm>(), "closeAll");
    deleteClosed();
    EXPECT_EQ(loaded<AboutFrm>(), nullptr);
    EXPECT_EQ(loaded<EditTextFrm>(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isVisible());
}

TEST_F(WindowLife, TheFrameGoesOnTopAndComesDownAgain) {
    MDIFrm &frame = *loaded<MDIFrm>();
    for (const bool onTop : {true, false}) {
        m_window->menuItem("MnuVerSemprenotopo")->trigger();
        EXPECT_EQ(frame.windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop);
        EXPECT_TRUE(frame.isVisible());
    }
}

} // namespace
} // namespace zolt
