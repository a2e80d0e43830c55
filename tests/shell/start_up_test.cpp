#include "shell/tools/question_frm.h"
#include "support/program.h"

#include <QRadioButton>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <algorithm>

namespace zolt {
namespace {

using namespace test;

class StartUp : public ProgramTest {
protected:
    static QWidget *shown(const char *name) {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->objectName() == QString::fromUtf8(name) && window->isVisible())
                return window;
        return nullptr;
    }
};

TEST_F(StartUp, WithoutAFileShowsTheChooserAndThenTheChosenEdition) {
    MDIFrm &frame = start();
    QWidget *chooser = shown("QuestionFrm");
    ASSERT_NE(chooser, nullptr);
    EXPECT_FALSE(frame.isVisible());
    QTest::mouseClick(control<QWidget>(chooser, "Picture1"), Qt::LeftButton);
    EXPECT_TRUE(control<QWidget>(chooser, "Line1")->isVisible());
    EXPECT_FALSE(control<QWidget>(chooser, "Line5")->isVisible());
    press(chooser, "Command1");
    EXPECT_TRUE(frame.isVisible());
    ASSERT_NE(loaded<EditTextFrm>(), nullptr);
    EXPECT_EQ(loaded<EditTextFrm>()->caption(), QStringLiteral("Document1"));
    EXPECT_EQ(shared::EdiçãoActiva, 1);
    EXPECT_FALSE(frame.toolbar(1)->isVisible());
    EXPECT_TRUE(frame.toolbar(2)->isVisible());
}

TEST_F(StartUp, CancelInTheChooserLeavesAnEmptyFrame) {
    MDIFrm &frame = start();
    QTest::mouseClick(control<QWidget>(shown("QuestionFrm"), "Picture2"), Qt::LeftButton);
    QTest::keyClick(shown("QuestionFrm"), Qt::Key_Escape);
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(loaded<EditTextFrm>(), nullptr);
    EXPECT_TRUE(frame.toolbar(1)->isVisible());

    // The edition that was marked is remembered.
    leave();
    start();
    EXPECT_TRUE(control<QWidget>(shown("QuestionFrm"), "Line5")->isVisible());
}

struct NamedFile {
    const char *name;
    const char *quote = "";
    std::string bytes = "one\rtwo\xFF\r\n";
    std::string text = "one\r\ntwo\xFF";
};

class StartUpWithAFile : public StartUp, public testing::WithParamInterface<NamedFile> {};

TEST_P(StartUpWithAFile, OpensItInBothPanes) {
    writeBytes(GetParam().name, GetParam().bytes);
    start(GetParam().quote + path(GetParam().name) + GetParam().quote);
    EditTextFrm *window = loaded<EditTextFrm>();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->textPane(1).Text(), GetParam().text);
    EXPECT_EQ(window->textPane(2).Text(), GetParam().text);
    EXPECT_EQ(window->caption(), QString::fromUtf8(GetParam().name));
    EXPECT_EQ(shared::settings.DefltDir, path(""));
}

INSTANTIATE_TEST_SUITE_P(Names, StartUpWithAFile,
                         testing::Values(NamedFile{"plain.zlt"}, NamedFile{"CAPITALS.ZLT"},
                                         NamedFile{"with two blanks.zlt"}, NamedFile{"quoted name.zlt", "\""},
                                         NamedFile{"empty.zlt", "", "", ""}));

TEST_F(StartUp, AsksForTheEditionOfAnotherKindOfFile) {
    writeBytes("notes.txt", "text");
    MDIFrm &frame = start(path("notes.txt"));
    QWidget *asks = shown("MensagemFrm");
    ASSERT_NE(asks, nullptr);
    EXPECT_FALSE(frame.isVisible());
    EXPECT_TRUE(control<QRadioButton>(asks, "Option1")->isChecked());
    press(asks, "Command1");
    ASSERT_NE(loaded<EditTextFrm>(), nullptr);
    EXPECT_EQ(loaded<EditTextFrm>()->activeTextPane().Text(), "text");
}

TEST_F(StartUp, AFileThatCannotBeReadBringsAMessageAndTheChooser) {
    {
        Answer message(QMessageBox::Ok);
        start(path("missing.zlt"));
        EXPECT_TRUE(message.text().contains(QStringLiteral("missing.zlt")));
        EXPECT_NE(shown("QuestionFrm"), nullptr);
        EXPECT_EQ(shared::settings.DefltDir, m_folder.path().toStdString());
    }
    leave();
    // Nor one that goes before the answer.
    writeBytes("notes.txt", "text");
    MDIFrm &frame = start(path("notes.txt"));
    QFile::remove(QString::fromStdString(path("notes.txt")));
    Answer message(QMessageBox::Ok);
    press(shown("MensagemFrm"), "Command1");
    EXPECT_TRUE(message.text().contains(QStringLiteral("notes.txt")));
    EXPECT_NE(shown("QuestionFrm"), nullptr);
    EXPECT_EQ(shown("MensagemFrm"), nullptr);
    EXPECT_FALSE(frame.isVisible());
}

TEST_F(StartUp, TheChooserIsWorkedByKeys) {
    MDIFrm &frame = start();
    QWidget *chooser = shown("QuestionFrm");
    ASSERT_TRUE(QTest::qWaitForWindowActive(chooser));
    const auto key = [](Qt::Key pressed) { QTest::keyClick(QApplication::focusWidget(), pressed); };
    const auto focus = [] { return QApplication::focusWidget()->objectName(); };
    EXPECT_EQ(focus(), QStringLiteral("Picture1"));
    QStringList stops;
    for (int i = 0; i < 4; ++i) {
        stops << focus();
        key(Qt::Key_Tab);
    }
    stops.sort();
    EXPECT_EQ(stops.join(u' '), QStringLiteral("Command1 Command2 Picture1 Picture2"));

    // Arrow keys choose from wherever they are pressed, and go to what they chose.
    for (const char *from : {"Picture1", "Command1", "Command2"}) {
        control<QWidget>(chooser, from)->setFocus();
        key(Qt::Key_Right);
        EXPECT_EQ(focus(), QStringLiteral("Picture2"));
        EXPECT_EQ(shared::settings.Question, 2);
        key(Qt::Key_Right);
        EXPECT_EQ(focus(), QStringLiteral("Picture2"));
        key(Qt::Key_Left);
        EXPECT_EQ(shared::settings.Question, 1);
    }
    key(Qt::Key_Right);
    control<QWidget>(chooser, "Picture1")->setFocus();
    key(Qt::Key_Return);
    EXPECT_NE(loaded<EditTextFrm>(), nullptr);
    EXPECT_TRUE(frame.isVisible());
}

TEST_F(StartUp, ThePaneHasTheKeyboardBesideTheCharacterTable) {
    call(&startTextEdition(), "VerTabeladecaracteres");
    leave();
    writeBytes("plain.zlt", "text");
    start(path("plain.zlt"));
    ASSERT_NE(shown("CaracterTableFrm"), nullptr);
    QTest::qWait(50); // for windows to become active that would
    EXPECT_TRUE(loaded<EditTextFrm>()->activeTextPane().hasFocus());
}

TEST_F(StartUp, TheFrameComesBackWhereItStoodAndOnAScreen) {
    MDIFrm &frame = start();
    QTest::keyClick(shown("QuestionFrm"), Qt::Key_Escape);
    const QRect place(40, 60, 500, 400);
    frame.setGeometry(place);
    leave();
    EXPECT_EQ(std::ranges::count(fileBytes("ZOLT.ini"), '\n'), 33);
    start();
    QTest::keyClick(shown("QuestionFrm"), Qt::Key_Escape);
    EXPECT_EQ(loaded<MDIFrm>()->geometry(), place);

    loaded<MDIFrm>()->setGeometry(5000, 5000, 3000, 2000);
    leave();
    start();
    QTest::keyClick(shown("QuestionFrm"), Qt::Key_Escape);
    const QRect screen = loaded<MDIFrm>()->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(loaded<MDIFrm>()->geometry()));

    leave();
    writeBytes("ZOLT.state", "nonsense");
    start();
    QTest::keyClick(shown("QuestionFrm"), Qt::Key_Escape);
    EXPECT_TRUE(loaded<MDIFrm>()->isVisible());
}

TEST_F(StartUp, WritesTheSettingsAtTheFirstStartAndAtTheEnd) {
    startTextEdition();
    const std::string first = fileBytes("ZOLT.ini");
    EXPECT_TRUE(first.starts_with("FrstTime=0\r\nLanguage=EN\r\n"));
    call(loaded<EditTextFrm>(), "EditarTranslinearpalavras");
    EXPECT_EQ(fileBytes("ZOLT.ini"), first);
    call(loaded<EditTextFrm>(), "AbandonarPrograma");
    EXPECT_NE(fileBytes("ZOLT.ini").find("TxtWWrap=2\r\n"), std::string::npos);
}

} // namespace
} // namespace zolt
