#include "shell/base/long_work.h"
#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "shell/pictures/edit_text_insert_image_frm.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/preview/wait_frm.h"
#include "shell/tools/about_frm.h"
#include "shell/tools/caracter_table_frm.h"
#include "support/program.h"

#include <QAction>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace zolt {
namespace {

using namespace testing_support;

class WindowLife : public TextEditionTest {
protected:
    /// Runs `act` once, as soon as long work lets the windows live.
    static void duringWork(QTimer &timer, std::function<void()> act) {
        QObject::connect(&timer, &QTimer::timeout, &timer, [&timer, act = std::move(act)] {
            timer.stop();
            act();
            deleteClosed();
        });
        timer.start(0);
    }
};

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

TEST_F(WindowLife, ClosingWindowsDuringACompilationCancelsIt) {
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "*line and more\r\n";
    pane().setText(text);
    QTimer timer;
    bool acted = false;
    duringWork(timer, [&] {
        acted = true;
        QPointer<WaitFrm> wait = loaded<WaitFrm>();
        ASSERT_NE(wait, nullptr);
        EXPECT_FALSE(loaded<MDIFrm>()->close());
        wait->close();
        deleteClosed();
        EXPECT_NE(wait, nullptr); // the compiler goes on to its next step
    });
    call(m_window, "MnuVerPrévisualizartudoEstiloHP48");
    EXPECT_TRUE(acted);
    deleteClosed();
    EXPECT_EQ(loaded<EditTextPreviewFrm>(), nullptr);
    EXPECT_EQ(loaded<WaitFrm>(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

TEST_F(WindowLife, ClosingTheFrameDuringAReadingEndsBoth) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::black);
    ASSERT_TRUE(image.save(QString::fromStdString(path("black.bmp"))));
    answerFileDialog(path("black.bmp"));
    call(loaded<MDIFrm>(), "MostrarEditTextInsertImageFrm");
    QPointer<EditTextInsertImageFrm> window = loaded<EditTextInsertImageFrm>();
    control<QLineEdit>(window, "Text3")->selectAll();
    QTest::keyClicks(control<QLineEdit>(window, "Text3"), QStringLiteral("1089"));
    shared::SemPerguntaDeSaída = 1;
    QPointer<MDIFrm> frame = loaded<MDIFrm>();
    QTimer timer;
    duringWork(timer, [&] {
        EXPECT_TRUE(frame->close());
        deleteClosed();
        EXPECT_NE(window, nullptr);
    });
    press(window, "Command2");
    timer.stop();
    frame->close();
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
    for (const char *command : {"tileVertically", "tileHorizontally"}) {
        m_window->showNormal();
        m_window->setGeometry(10, 10, 300, 200);
        call(loaded<MDIFrm>(), command);
        EXPECT_EQ(m_window->geometry(), QRect({0, 0}, whole)) << command;
    }
    call(m_window, "VerTabeladecaracteres");
    call(loaded<MDIFrm>(), "minimizeAll");
    EXPECT_TRUE(loaded<CaracterTableFrm>()->isMinimized());
    call(loaded<MDIFrm>(), "restoreAll");
    EXPECT_FALSE(m_window->isMinimized());
    EXPECT_FALSE(loaded<CaracterTableFrm>()->isMinimized());
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
