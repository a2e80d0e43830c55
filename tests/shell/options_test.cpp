#include "shell/tools/edit_text_options_frm.h"

#include "core/settings.h"
#include "shell/base/document_in_use.h"
#include "support/program.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

namespace zolt {
namespace {

using namespace test;

class Options : public EditionTest, public testing::WithParamInterface<int> {
protected:
    Options() : EditionTest(GetParam()) {}

    QWidget *open() {
        deleteClosed();
        m_document->menuItem("MnuFerramentasOpções")->trigger();
        QWidget *window = loaded<EditTextOptionsFrm>();
        EXPECT_TRUE(waitFor([&] { return window->isAncestorOf(QApplication::focusWidget()); }));
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
        return window;
    }
    QWidget *openForDefaults() {
        QWidget *window = open();
        control<QCheckBox>(window, "Check1")->click();
        return window;
    }
    static void type(QWidget *window, const char *box, const char *text) {
        auto *line = control<QLineEdit>(window, box);
        line->selectAll();
        QTest::keyClicks(line, QString::fromUtf8(text));
    }
    static std::string text(QWidget *window, const char *box) {
        return control<QLineEdit>(window, box)->text().toStdString();
    }
    std::string standardFile() { return fileFromSettings(defaultSettings(m_folder.path().toStdString())); }
};

TEST_P(Options, StoresThePathsAsTyped) {
    Settings expected = shared::settings;
    expected.DfDirFHP = "/caf\xE9/"; // no text, and left alone
    shared::settings = expected;
    QWidget *window = open();
    EXPECT_EQ(text(window, "Text2"), expected.DefltSmb);
    type(window, "Text1", "/nowhere/at all/");
    type(window, "Text2", "symbols.txt");
    type(window, "Text4", "/a,b/");
    type(window, "Text9", "/caf");
    control<QLineEdit>(window, "Text9")->insert(QStringLiteral("é"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(loaded<EditTextOptionsFrm>(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_TRUE(waitFor([&] { return pane().hasFocus(); }));
    EXPECT_EQ(statusMessage(), QStringLiteral("PDF files: a path with a comma isn't stored"));
    expected.DefltDir = "/nowhere/at all/";
    expected.DefltSmb = "symbols.txt";
    const std::string pdfBefore = std::exchange(expected.DfDirPdf, "/a,b/");
    expected.DfDirPrN = "/café";
    EXPECT_EQ(shared::settings, expected);

    // Left by Cancel or Escape, nothing is stored.
    window = open();
    type(window, "Text3", "/other");
    press(window, "Command1");
    window = open();
    type(window, "Text3", "/other");
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(shared::settings, expected);

    restart();
    EXPECT_EQ(shared::settings.DefltDir, "/nowhere/at all/");
    EXPECT_EQ(shared::settings.DfDirFHP, "/caf\xE9/");
    EXPECT_EQ(shared::settings.DfDirPrN, "/café");
    EXPECT_EQ(shared::settings.DfDirPdf, pdfBefore);
}

TEST_P(Options, EachRowHasItsButtonAndItsSetting) {
    constexpr std::string Settings::*kFolders[] = {&Settings::DefltDir, nullptr,
                                                   &Settings::DfDirCnv, &Settings::DfDirPdf,
                                                   &Settings::DfDirFHP, &Settings::DfDirIHa,
                                                   &Settings::DfDirIGr, &Settings::DfDirIPC,
                                                   &Settings::DfDirPrN};
    writeBytes("other.zls", "");
    QWidget *window = open();
    for (int row = 1; row <= 9; ++row) {
        const std::string name = row == 2 ? "other.zls" : "folder " + std::to_string(row);
        if (row != 2)
            QDir().mkpath(QString::fromStdString(path(name)));
        const QByteArray button = "Command" + QByteArray::number(row + 2);
        const QByteArray box = "Text" + QByteArray::number(row);
        answerFileDialog("");
        press(window, button);
        EXPECT_EQ(text(window, box), row == 2 ? path("Default.zls") : m_folder.path().toStdString());
        QString title;
        whenModal("QFileDialog", [&](QWidget *dialog) {
            title = dialog->windowTitle();
            EXPECT_EQ(dialog->parentWidget(), window);
            EXPECT_EQ(qobject_cast<QFileDialog *>(dialog)->directory().path(), m_folder.path());
            answerFileDialog(path(name));
        });
        press(window, button);
        EXPECT_EQ(title, row == 2 ? QStringLiteral("Change localization") : QStringLiteral("Select folder:"));
        EXPECT_EQ(text(window, box), path(name)) << row;
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
    press(window, "Command2");
    EXPECT_EQ(shared::settings.DefltSmb, path("other.zls"));
    for (int row = 1; row <= 9; ++row) {
        const auto folder = kFolders[row - 1];
        EXPECT_TRUE(!folder || shared::settings.*folder == path("folder " + std::to_string(row))) << row;
    }
}

TEST_P(Options, TabGoesFromRowToRow) {
    open();
    std::string stops;
    for (int stop = 0; stop < 21; ++stop) {
        stops += QApplication::focusWidget()->objectName().toStdString() + " ";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(stops,
              "Text1 Command3 Text2 Command4 Text3 Command5 Text4 Command6 Text5 Command7 Text6 Command8 "
              "Text7 Command9 Text8 Command10 Text9 Command11 Check1 Command2 Command1 ");
}

TEST_P(Options, AnswerCancelLeavesThePathsStoredAndTheRestAsItWas) {
    shared::settings.Question = 2;
    QWidget *window = openForDefaults();
    type(window, "Text5", "/hp");
    const Answer cancel(QMessageBox::Cancel);
    press(window, "Command2");
    EXPECT_EQ(cancel.text(), QStringLiteral("Some changes will only take effect after you restart the "
                                            "program.\r\nAbandon ZOLT?"));
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(shared::settings.DfDirFHP, "/hp");
    EXPECT_EQ(shared::settings.Question, 2);
}

TEST_P(Options, AnswerNoGivesTheDefaultsAndKeepsTheDocument) {
    call(m_document, "EditarTranslinearpalavras");
    put("typed without wrap", 6, 7);
    shared::settings.TFntSize = 24;
    QWidget *window = openForDefaults();
    type(window, "Text5", "/hp");
    const Answer no(QMessageBox::No);
    press(window, "Command2");
    EXPECT_TRUE(no.came());
    EXPECT_EQ(loaded<EditTextOptionsFrm>(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isVisible() && loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(shared::settings, defaultSettings(m_folder.path().toStdString()));
    EXPECT_EQ(pane().Text(), "typed without wrap");
    EXPECT_EQ(pane().SelText(), "without");
    EXPECT_TRUE(waitFor([&] { return pane().hasFocus(); }));
}

TEST_P(Options, AnswerYesEndsTheProgramWithTheDefaultsInTheFile) {
    call(m_document, "VerTabeladecaracteres");
    call(m_document, "EditarTranslinearpalavras");
    shared::settings.CharTool = 1;
    loaded<MDIFrm>()->applyCharTool();
    put("kept");
    bool ended = false;
    QObject::connect(loaded<MDIFrm>(), &MDIFrm::ended, m_document, [&] { ended = true; });
    // The document's own question can still be cancelled.
    QWidget *window = openForDefaults();
    std::unique_ptr<Answer> cancel;
    whenModal("QMessageBox", [&](QWidget *box) {
        cancel = std::make_unique<Answer>(QMessageBox::Cancel);
        qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click();
    });
    press(window, "Command2");
    ASSERT_TRUE(cancel && cancel->came());
    EXPECT_FALSE(ended);
    EXPECT_EQ(pane().Text(), "kept");
    EXPECT_NE(fileBytes("ZOLT.ini").size(), 0u);

    const QPointer<MDIFrm> frame = loaded<MDIFrm>();
    QObject::connect(frame, &MDIFrm::ended, qApp, [&] { ended = true; });
    call(m_document, "EditarTranslinearpalavras");
    call(m_document, "VerTabeladecaracteres");
    window = openForDefaults();
    type(window, "Text5", "/hp");
    shared::SemPerguntaDeSaída = 1;
    const Answer yes(QMessageBox::Yes);
    press(window, "Command2");
    EXPECT_TRUE(ended);
    EXPECT_EQ(fileBytes("ZOLT.ini"), standardFile());
}

INSTANTIATE_TEST_SUITE_P(In, Options, testing::Values(1, 2));

} // namespace
} // namespace zolt
