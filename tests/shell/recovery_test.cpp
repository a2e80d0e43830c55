// Documents that are given back: after a crash, and after they were thrown away.

#include "core/file.h"
#include "graphic/rtf_reader.h"
#include "platform/rich_text_box.h"
#include "shell/base/document_keeper.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/graphic/edit_graph_fullscreen_frm.h"
#include "shell/document/text/edit_text_fullscreen_frm.h"
#include "shell/tools/question_frm.h"
#include "shell/tools/recover_frm.h"
#include "support/full_disk.h"
#include "support/program.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/wait.h>

namespace zolt {
namespace {

using namespace test;

class Recovery : public ProgramTest, public testing::WithParamInterface<int> {
protected:
    std::string stateFolder() const { return m_folder.path().toStdString() + "/state/zolt"; }
    DocumentFrm &begin() {
        m_window = &startEdition(GetParam());
        return *m_window;
    }
    Pane &pane() { return m_window->activePane(); }
    void type(const char *keys) { QTest::keyClicks(&pane().control(), QString::fromUtf8(keys)); }
    void write(const char *keys) {
        call(m_window, "EditarSeleccionarTudo");
        type(keys);
    }
    /// A stored document's characters.
    static std::string textOf(const KeptDocument &document) {
        return document.edition == 2 ? plainText(richTextFromRtf(document.bytes)) : document.bytes;
    }
    /// What programs have on disk of their documents in use: another one would find it
    /// after a kill.
    std::string keptText() {
        std::string texts;
        std::error_code none;
        for (const auto &file :
             std::filesystem::recursive_directory_iterator(stateFolder() + "/running", none))
            if (file.path().filename() == "document") {
                const auto kept = readKeptFile(readFile(file.path()).bytes);
                texts += kept ? textOf(*kept) : "damaged";
            }
        return texts.empty() ? "nothing" : texts;
    }
    bool keeps(const std::string &text) {
        return waitFor([&] { return keptText() == text; }, 8000);
    }
    /// A program that was killed while it had this document.
    void leaveByCrash(const char *text, const char *caption = "lost") {
        const KeptDocument document{.edition = GetParam(),
                                    .path = path("old.zlt"),
                                    .caption = caption,
                                    .time = 1'700'000'000,
                                    .pane = 1,
                                    .caret = 2,
                                    .bytes = text};
        const pid_t child = fork();
        if (child == 0) {
            KeptDocuments kept(stateFolder());
            kept.keep(document);
            raise(SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
    }
    std::vector<std::string> thrownAway() {
        std::vector<std::string> texts;
        for (const auto &entry : documentKeeper()->thrownAway())
            texts.push_back(textOf(entry.document));
        return texts;
    }
    using Texts = std::vector<std::string>;

    DocumentFrm *m_window = nullptr;
};

TEST_P(Recovery, AChangedDocumentIsKeptUntilItIsSaved) {
    begin();
    write("abc");
    EXPECT_TRUE(keeps("abc"));
    type("d");
    {
        const FullDisk disk;
        EXPECT_FALSE(documentKeeper()->keepNow());
        EXPECT_EQ(keptText(), "abc");
    }
    EXPECT_TRUE(documentKeeper()->keepNow()); // without another change
    EXPECT_EQ(keptText(), "abcd");
    answerFileDialog(path("saved"));
    call(m_window, "FicheiroGuardarComo");
    EXPECT_TRUE(keeps("nothing"));
    // What is typed on the whole screen is kept as well.
    call(m_window, "MnuVerEcrainteiro");
    QWidget *screen = GetParam() == 1 ? static_cast<QWidget *>(loaded<EditTextFullscreenFrm>())
                                      : loaded<EditGraphFullscreenFrm>();
    QTest::keyClicks(control<QWidget>(screen, "Text1"), QStringLiteral("e"));
    documentKeeper()->keepNow();
    EXPECT_EQ(keptText(), "abcde");
    screen->close();
    deleteClosed();
    EXPECT_EQ(pane().Text(), "abcde");
    {
        Answer no(QMessageBox::No);
        m_window->close();
    }
    EXPECT_EQ(thrownAway(), Texts{"abcde"});
    EXPECT_EQ(keptText(), "nothing");
}

TEST_P(Recovery, TheNextStartGivesBackWhatACrashLeft) {
    leaveByCrash("first text", "first");
    leaveByCrash("other text", "other");
    writeBytes("old.zlt", "written since then");
    start();
    auto *window = loaded<RecoverFrm>();
    ASSERT_TRUE(window && window->isVisible());
    EXPECT_EQ(loaded<QuestionFrm>(), nullptr);
    auto *list = control<QListWidget>(window, "List1");
    ASSERT_EQ(list->count(), 2);
    list->setCurrentItem(list->findItems(QStringLiteral("first"), Qt::MatchStartsWith).value(0));
    press(window, "Command1");
    deleteClosed();
    ASSERT_NE(documentInUse(), nullptr);
    m_window = qobject_cast<DocumentFrm *>(&documentInUse()->window());
    EXPECT_EQ(shared::EdiçãoActiva, GetParam());
    EXPECT_EQ(pane().Text(), "first text");
    EXPECT_EQ(pane().SelStart(), 2);
    EXPECT_EQ(m_window->caption(), QStringLiteral("first"));
    EXPECT_TRUE(m_window->wouldAsk());
    EXPECT_THAT(keptText(), testing::AnyOf("first textother text", "other textfirst text"));
    QString question;
    whenModal("QMessageBox", [&](QWidget *box) {
        question = static_cast<QMessageBox *>(box)->text();
        box->close();
    });
    call(m_window, "FicheiroGuardar");
    EXPECT_TRUE(question.contains(QStringLiteral("was changed by another program")));
    EXPECT_EQ(fileBytes("old.zlt"), "written since then");
    // The other one waits for the next start; a deleted one doesn't.
    leave();
    start();
    window = loaded<RecoverFrm>();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(control<QListWidget>(window, "List1")->count(), 1);
    press(window, "Command2");
    EXPECT_FALSE(control<QPushButton>(window, "Command1")->isEnabled());
    press(window, "Command3");
    EXPECT_TRUE(waitFor([] { return loaded<QuestionFrm>() != nullptr; }));
    leave();
    start();
    EXPECT_EQ(loaded<RecoverFrm>(), nullptr);
}

TEST_P(Recovery, ATextThrownAwayCanBeHadBack) {
    begin();
    write("one");
    {
        Answer ok(QMessageBox::Ok);
        call(m_window, "FicheiroNovo");
    }
    write("two");
    writeBytes("file", "{\\rtf1 opened}");
    answerFileDialog(path("file"));
    call(m_window, "FicheiroAbrir");
    EXPECT_EQ(thrownAway().size(), 2u);
    m_window->menuItem("MnuFicheiroRecuperartexto")->trigger();
    auto *window = loaded<RecoverFrm>();
    ASSERT_TRUE(window && window->isVisible());
    auto *list = control<QListWidget>(window, "List1");
    ASSERT_EQ(list->count(), 2);
    // Both are of the same second.
    for (int row = 0; row < 2; ++row)
        if (documentKeeper()->thrownAway()[static_cast<std::size_t>(row)].document.caption == "Document1" &&
            textOf(documentKeeper()->thrownAway()[static_cast<std::size_t>(row)].document) == "one")
            list->setCurrentRow(row);
    QTest::keyClick(list, Qt::Key_Return);
    deleteClosed();
    EXPECT_EQ(pane().Text(), "one");
    EXPECT_EQ(thrownAway(), Texts{"two"});
    m_window->menuItem("MnuFicheiroRecuperartexto")->trigger();
    control<QCheckBox>(loaded<RecoverFrm>(), "Check1")->setChecked(false);
    loaded<RecoverFrm>()->close();
    deleteClosed();
    {
        Answer ok(QMessageBox::Ok);
        call(m_window, "FicheiroNovo");
    }
    EXPECT_EQ(thrownAway(), Texts{"two"});
    leave();
    begin();
    EXPECT_FALSE(documentKeeper()->keepsThrownAway());
}

TEST_P(Recovery, AFileThatAnotherProgramChangedIsNotOverwrittenUnasked) {
    begin();
    write("mine");
    answerFileDialog(path("file"));
    call(m_window, "FicheiroGuardarComo");
    const std::string saved = fileBytes("file");
    type("!");
    call(m_window, "FicheiroGuardar");
    const std::string savedAgain = fileBytes("file");
    EXPECT_NE(savedAgain, saved);
    type("?");
    const auto saveAndPress = [&](const char *button) {
        QString question;
        whenModal("QMessageBox", [&](QWidget *box) {
            question = static_cast<QMessageBox *>(box)->text();
            for (QPushButton *each : box->findChildren<QPushButton *>())
                if (each->text() == QString::fromUtf8(button))
                    return each->click();
        });
        call(m_window, "FicheiroGuardar");
        EXPECT_EQ(question,
                  QStringLiteral("file was changed by another program since it was opened or saved here."));
    };
    writeBytes("file", "theirs, and longer than mine");
    saveAndPress("Cancel");
    EXPECT_EQ(fileBytes("file"), "theirs, and longer than mine");
    EXPECT_TRUE(m_window->wouldAsk());
    saveAndPress("&Overwrite");
    EXPECT_NE(fileBytes("file"), "theirs, and longer than mine");
    EXPECT_FALSE(m_window->wouldAsk());
}

INSTANTIATE_TEST_SUITE_P(Editions, Recovery, testing::Values(1, 2),
                         [](const auto &edition) { return edition.param == 1 ? "Textual" : "Graphical"; });

} // namespace
} // namespace zolt
