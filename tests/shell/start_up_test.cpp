#include "shell/base/document_in_use.h"
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
    static DocumentFrm *document() {
        return documentInUse() ? qobject_cast<DocumentFrm *>(&documentInUse()->window()) : nullptr;
    }
};

TEST_F(StartUp, WithoutAFileShowsTheChooserAndThenTheChosenEdition) {
    for (const int edition : {1, 2}) {
        MDIFrm &frame = start();
        QWidget *chooser = shown("QuestionFrm");
        ASSERT_NE(chooser, nullptr);
        EXPECT_FALSE(frame.isVisible());
        QTest::mouseClick(control<QWidget>(chooser, edition == 1 ? "Picture1" : "Picture2"), Qt::LeftButton);
        EXPECT_EQ(control<QWidget>(chooser, "Line1")->isVisible(), edition == 1);
        EXPECT_EQ(control<QWidget>(chooser, "Line5")->isVisible(), edition == 2);
        press(chooser, "Command1");
        EXPECT_TRUE(frame.isVisible());
        ASSERT_NE(document(), nullptr);
        EXPECT_EQ(document()->caption(), QStringLiteral("Document1"));
        EXPECT_EQ(shared::EdiçãoActiva, edition);
        for (int number = 1; number <= 5; ++number)
            EXPECT_EQ(frame.toolbar(number)->isVisible(), number / 2 == edition) << number;
        leave();
    }
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
    int edition = 1;
    const char *quote = "";
    std::string bytes = "one\rtwo\xFF\r\n";
    std::string text = "one\r\ntwo\xFF";
};

class StartUpWithAFile : public StartUp, public testing::WithParamInterface<NamedFile> {};

TEST_P(StartUpWithAFile, OpensItInBothPanes) {
    writeBytes(GetParam().name, GetParam().bytes);
    start(GetParam().quote + path(GetParam().name) + GetParam().quote);
    ASSERT_NE(document(), nullptr);
    EXPECT_EQ(shared::EdiçãoActiva, GetParam().edition);
    EXPECT_EQ(document()->pane(1).Text(), GetParam().text);
    EXPECT_EQ(document()->pane(2).control().property("Text").toByteArray().toStdString(), GetParam().text);
    EXPECT_EQ(document()->pane(2).length(), static_cast<qsizetype>(GetParam().text.size()));
    EXPECT_TRUE(document()->mayBeReplaced()) << "reading the hidden pane changes nothing";
    EXPECT_EQ(document()->caption(), QString::fromUtf8(GetParam().name));
    EXPECT_EQ(shared::settings.DefltDir, path(""));
}

INSTANTIATE_TEST_SUITE_P(Names, StartUpWithAFile,
                         testing::Values(NamedFile{"plain.zlt"}, NamedFile{"CAPITALS.ZLT"},
                                         NamedFile{"with two blanks.zlt"},
                                         NamedFile{"quoted name.zlt", 1, "\""},
                                         NamedFile{"empty.zlt", 1, "", "", ""},
                                         NamedFile{"CAPITALS.ZLG", 2, "", "{\\rtf1 a\\par b}", "a\r\nb"},
                                         NamedFile{"plain.zlg", 2, "\""}));

TEST_F(StartUp, AsksForTheEditionOfAnotherKindOfFile) {
    writeBytes("notes.rtf", "{\\rtf1 text}");
    for (const int edition : {1, 2}) {
        MDIFrm &frame = start(path("notes.rtf"));
        QWidget *asks = shown("MensagemFrm");
        ASSERT_NE(asks, nullptr);
        EXPECT_FALSE(frame.isVisible());
        EXPECT_TRUE(control<QRadioButton>(asks, "Option1")->isChecked());
        if (edition == 2)
            QTest::mouseClick(control<QRadioButton>(asks, "Option2"), Qt::LeftButton);
        press(asks, "Command1");
        ASSERT_NE(document(), nullptr);
        EXPECT_EQ(document()->activePane().Text(), edition == 1 ? "{\\rtf1 text}" : "text");
        leave();
    }
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
    {
        // Nor one that is neither rich nor plain text.
        writeBytes("picture.zlg", "GIF87a");
        Answer message(QMessageBox::Ok);
        start(path("picture.zlg"));
        EXPECT_TRUE(message.text().contains(QStringLiteral("picture.zlg")));
        EXPECT_NE(shown("QuestionFrm"), nullptr);
        EXPECT_EQ(document(), nullptr);
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
