#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

namespace zolt {
namespace {

using namespace test;

class IntegrityWindow : public TextEditionTest {
protected:
    EditTextGuardarHPFrm &test(std::string_view document) {
        pane().setText(document);
        call(m_window, "TesteDeIntegridade");
        return *loaded<EditTextGuardarHPFrm>();
    }
    static TextPane &box(QWidget &window, const char *name) { return *control<TextPane>(&window, name); }
};

TEST_F(IntegrityWindow, ReportsAndCorrectsWhatWasTyped) {
    auto &window = test(withMarks("It's \"@Bhi@B\""));
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(box(window, "Text1").Text(), withMarks("\"It's '@Bhi@B\""));
    EXPECT_EQ(box(window, "Text2").Text(),
              "\r\n** Beginning verification **\r\n\r\n-Superior ('') character inserted \r\n"
              "-Ilegal character found (\") in position (7). Substituted by (')\r\n"
              "\r\n** Verification ended **\r\n\r\nNumber of errors found: 1\r\n");
    EXPECT_EQ(box(window, "Text2").palette().color(QPalette::Text), QColor(Qt::red));
    EXPECT_EQ(pane().Text(), withMarks("It's \"@Bhi@B\""));
    press(&window, "Command4");
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

TEST_F(IntegrityWindow, AskedToCorrectReplacesTheDocument) {
    auto &window = test("plain");
    {
        Answer no(QMessageBox::No);
        press(&window, "Command3");
        EXPECT_TRUE(no.text().startsWith(QStringLiteral("Do you wish to substitute")));
    }
    EXPECT_EQ(pane().Text(), "plain");
    box(window, "Text1").setSelStart(1);
    QTest::keyClicks(&box(window, "Text1"), QStringLiteral("very "));
    Answer yes(QMessageBox::Yes);
    press(&window, "Command3");
    EXPECT_EQ(pane().Text(), "\"very plain\"");
    EXPECT_TRUE(window.isVisible());
}

TEST_F(IntegrityWindow, SavesTheStringUnderANameThatPasses) {
    auto &window = test(withMarks("@BHi@B"));
    // The first name is refused and the dialog comes again where it was typed.
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("sub")));
    answerFileDialog(path("sub/SWAP"));
    QString refusal;
    whenModal("QMessageBox", [&](QWidget *message) {
        refusal = qobject_cast<QMessageBox *>(message)->text();
        whenModal("QFileDialog", [](QWidget *dialog) {
            auto *name = control<QLineEdit>(dialog, "fileNameEdit");
            EXPECT_EQ(name->text(), QStringLiteral("SWAP"));
            name->setText(QStringLiteral("hello"));
            call(dialog, "accept");
        });
        message->close();
    });
    press(&window, "Command1");
    EXPECT_EQ(refusal,
              QStringLiteral("Command names are not allowed (SWAP) \r\nPlease re-enter the filename."));
    EXPECT_EQ(fileBytes("sub/hello"), withMarks("\"@BHi@B\"\r\n"));
    EXPECT_EQ(fileBytes("sub/SWAP"), "");
    EXPECT_EQ(shared::settings.DfDirFHP, path("sub/"));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(IntegrityWindow, AReservedNameIsAskedAbout) {
    auto &window = test("x");
    answerFileDialog(path("derive"));
    Answer yes(QMessageBox::Yes);
    press(&window, "Command1");
    EXPECT_EQ(yes.text(), QStringLiteral("The filename (derive) is a reserved variable\r\nContinue ?"));
    EXPECT_EQ(fileBytes("derive"), "\"x\"\r\n");
}

TEST_F(IntegrityWindow, StaysWhenNothingWasSaved) {
    auto &window = test("x");
    answerFileDialog({});
    press(&window, "Command1");
    EXPECT_TRUE(window.isVisible());
    answerFileDialog(path("missing/hello"));
    // Enter presses the button that has the keyboard, not the default one.
    auto *save = control<QPushButton>(&window, "Command1");
    save->setFocus();
    QTest::keyClick(save, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(statusMessage().startsWith(QStringLiteral("hello wasn't saved: ")));
    EXPECT_EQ(shared::settings.DfDirFHP, m_folder.path().toStdString());
}

TEST_F(IntegrityWindow, CutsAReportOfTooManyErrorsAndTellsTheNumberOfAll) {
    auto &window = test(std::string(100'000, '\x9E'));
    const std::string report = box(window, "Text2").Text();
    EXPECT_EQ(std::count(report.begin(), report.end(), '.'), 100'000);
    EXPECT_TRUE(report.ends_with("-And 500000 more\r\n\r\n** Verification ended **\r\n\r\n"
                                 "Number of errors found: 600000\r\n"));
}

TEST_F(IntegrityWindow, LivesDuringALongTestAndEndsItAtCancel) {
    // The first turn that the windows get is the one between their standing and the test.
    pane().setText(std::string(300'000, '"'));
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, m_window, [&] {
        auto *window = loaded<EditTextGuardarHPFrm>();
        if (window && ++turns == 2) {
            EXPECT_FALSE(control<QPushButton>(window, "Command3")->isEnabled());
            QTest::mouseClick(control<QPushButton>(window, "Command2"), Qt::LeftButton);
        }
    });
    timer.start(0);
    call(m_window, "TesteDeIntegridade");
    EXPECT_EQ(turns, 2);
    EXPECT_EQ(loaded<EditTextGuardarHPFrm>(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

} // namespace
} // namespace zolt
