// Files that come by other ways than the dialogs: from the list of recent ones, and dropped.

#include "platform/rich_text_box.h"
#include "platform/shown.h"
#include "shell/base/more_settings.h"
#include "shell/pictures/insert_frm.h"
#include "shell/symbols/symbol_frm.h"
#include "shell/tools/mensagem_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QUrl>

namespace zolt {
namespace {

using namespace test;

const std::string kCell = withMarks("#F9999F");

/// The window of this class that shows.
template <class Window> Window *shownWindow() {
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *found = qobject_cast<Window *>(window); found && found->isVisible())
            return found;
    return nullptr;
}

template <class Window> Window *awaitWindow() {
    EXPECT_TRUE(waitFor([] { return shownWindow<Window>() != nullptr; }));
    return shownWindow<Window>();
}

/// In each edition: a document, its ending, and one of the other edition.
class FileWays : public EditionTest, public testing::WithParamInterface<int> {
protected:
    FileWays() : EditionTest(GetParam()) {}

    static std::string ending(int edition) { return edition == 1 ? ".zlt" : ".zlg"; }
    std::string own(const std::string &name) const { return name + ending(GetParam()); }
    std::string foreign(const std::string &name) const { return name + ending(3 - GetParam()); }

    void writeDocument(const std::string &name) {
        writeBytes(name, name.ends_with("g") ? "{\\rtf1 " + name + "}" : name + "\r\n");
    }
    void open(const std::string &name) {
        writeDocument(name);
        answerFileDialog(path(name));
        call(m_document, "FicheiroAbrir");
    }
    static std::string text() { return activePane()->Text(); }
    static std::string caption() { return openWindow().caption().toStdString(); }
    static DocumentFrm &openWindow() { return *qobject_cast<DocumentFrm *>(&documentInUse()->window()); }

    /// The items of the menu bar's list of recent files, as it opens.
    static QList<QAction *> recent() {
        for (QAction *entry : loaded<MDIFrm>()->menuBar()->actions())
            if (auto *list = entry->menu()->findChild<QMenu *>(QStringLiteral("MnuFicheiroRecentFiles"))) {
                emit list->aboutToShow();
                return list->actions();
            }
        return {};
    }
    static QStringList recentTitles() {
        QStringList titles;
        for (const QAction *item : recent())
            titles << item->text();
        return titles;
    }

    /// Drops files of the test's folder, or addresses, and lets the program deal with them;
    /// whether they were taken.
    bool dropped(QWidget *target, const std::vector<std::string> &names) const {
        QMimeData files;
        QList<QUrl> addresses;
        for (const std::string &name : names)
            addresses << (name.find(':') != std::string::npos
                              ? QUrl(QString::fromStdString(name))
                              : QUrl::fromLocalFile(QString::fromStdString(path(name))));
        files.setUrls(addresses);
        const bool taken = dropOn(target, files, QPoint(20, 20));
        QCoreApplication::processEvents();
        return taken;
    }
    /// A document that was only opened asks as well.
    static void closeDocument() {
        Answer no(QMessageBox::No);
        openWindow().close();
        deleteClosed();
    }
    QWidget *view() { return openWindow().activePane().control().viewport(); }
};

INSTANTIATE_TEST_SUITE_P(Edition, FileWays, testing::Values(1, 2), [](const auto &edition) {
    return std::string(edition.param == 1 ? "Textual" : "Graphical");
});

TEST_P(FileWays, RecentFilesAreListedNewestFirstAndOpen) {
    EXPECT_EQ(recentTitles(), QStringList{QStringLiteral("(None)")});
    EXPECT_FALSE(recent().front()->isEnabled());
    for (int i = 1; i <= 9; ++i)
        open(own(std::to_string(i)));
    open(own("<b>&co"));
    open(own("2"));
    pane().setSelText("saved");
    answerFileDialog(path(own("saved")));
    call(m_document, "FicheiroGuardarComo");
    const QString end = QString::fromStdString(ending(GetParam()));
    EXPECT_EQ(recentTitles().first(4),
              (QStringList{"&1 saved" + end, "&2 2" + end, "&3 <b>&&co" + end, "&4 9" + end}));
    EXPECT_EQ(recentTitles().size(), 10);
    EXPECT_EQ(recentTitles().back(), "1&0 3" + end);
    EXPECT_EQ(recent()[2]->toolTip().toStdString(), "<p>" + path(own("&lt;b&gt;&amp;co")) + "</p>");
    restart();
    recent()[2]->trigger();
    EXPECT_EQ(caption(), own("<b>&co"));
    EXPECT_EQ(text(), own("<b>&co"));
    EXPECT_EQ(recentTitles().front(), "&1 <b>&&co" + end);
    // Without a document too.
    closeDocument();
    ASSERT_EQ(documentInUse(), nullptr);
    recent()[1]->trigger();
    EXPECT_EQ(text().substr(0, 5), "saved");
    EXPECT_EQ(shared::EdiçãoActiva, GetParam());
}

TEST_P(FileWays, ARecentFileAsksAboutChangesAndSaysWhenItIsGone) {
    open(own("old"));
    writeDocument(foreign("other"));
    changeExtraSettings(
        [&](ExtraSettings &settings) { settings.recentFiles.push_back(path(foreign("other"))); });
    pane().setSelText("typed");
    const auto choose = [](qsizetype item, QMessageBox::StandardButton button) {
        Answer answer(button);
        recent()[item]->trigger();
        return answer.text();
    };
    const QString question = QStringLiteral("Save changes to %1?").arg(QString::fromStdString(own("old")));
    for (const qsizetype item : {0, 1}) {
        EXPECT_EQ(choose(item, QMessageBox::Cancel), question);
        EXPECT_EQ(text().substr(0, 5), "typed");
    }
    // Saved into the very file that is chosen; without it nothing asks whether to overwrite.
    whenModal("QFileDialog", [&](QWidget *) { QFile::remove(QString::fromStdString(path(own("old")))); });
    answerFileDialog(path(own("old")));
    EXPECT_EQ(choose(0, QMessageBox::Yes), question);
    EXPECT_EQ(text().substr(0, 5), "typed");
    recent()[1]->trigger(); // nothing to ask
    EXPECT_EQ(shared::EdiçãoActiva, 3 - GetParam());
    EXPECT_EQ(caption(), foreign("other"));
    EXPECT_EQ(text(), foreign("other"));
    // Gone: in the list's second place is the old one by now.
    ASSERT_TRUE(QFile::remove(QString::fromStdString(path(own("old")))));
    EXPECT_TRUE(choose(1, QMessageBox::Ok).contains(QStringLiteral("can't be opened: No such file")));
    EXPECT_EQ(recent().size(), 1);
    EXPECT_EQ(caption(), foreign("other"));
}

TEST_P(FileWays, ADocumentOpensWhereverItIsDropped) {
    writeDocument(own("a"));
    writeDocument(foreign("b"));
    const QList<QWidget *> places{view(), loaded<MDIFrm>(), m_document,
                                  loaded<MDIFrm>()->findChild<QToolBar *>(QStringLiteral("Toolbar3"))};
    for (QWidget *place : places) {
        EXPECT_TRUE(dropped(place, {own("a")}));
        EXPECT_EQ(text(), own("a"));
        put("");
    }
    // Text is the pane's as before.
    QMimeData words;
    words.setText(QStringLiteral("words"));
    EXPECT_TRUE(dropOn(view(), words, QPoint(1, 1)));
    EXPECT_EQ(text(), "words");
    EXPECT_FALSE(dropOn(loaded<MDIFrm>(), words, QPoint(1, 1)));
    put("typed");
    {
        Answer cancel(QMessageBox::Cancel);
        EXPECT_TRUE(dropped(view(), {foreign("b")}));
        EXPECT_TRUE(cancel.came());
        EXPECT_EQ(text(), "typed");
    }
    {
        Answer no(QMessageBox::No);
        EXPECT_TRUE(dropped(view(), {own("a"), foreign("b")}));
        EXPECT_TRUE(no.came());
        EXPECT_EQ(caption(), foreign("b")) << "the last one stays";
    }
    closeDocument();
    QWidget *area = loaded<MDIFrm>()->findChild<QMdiArea *>()->viewport();
    EXPECT_FALSE(dropped(area, {"picture.bmp"})) << "there is nothing to put it into";
    EXPECT_TRUE(dropped(area, {own("a")}));
    EXPECT_EQ(text(), own("a"));
}

TEST_P(FileWays, PicturesAndSymbolsThatAreDroppedGoToTheirWindowsOneAfterTheOther) {
    QImage black(40, 30, QImage::Format_RGB32);
    black.fill(Qt::black);
    ASSERT_TRUE(black.save(QString::fromStdString(path("picture.BMP")), "BMP"));
    writeBytes("cell.gro", "HPHP48-R\r\n  GROB 8 6 FF90909090FF\r\n");
    writeBytes("image.zli", kCell + "\r\n");
    writeBytes("list.zls", withMarks(" 1 \r\nOne\r\n#100000\r\n"));
    writeDocument(own("a"));
    EXPECT_TRUE(dropped(view(), {"picture.BMP", "cell.gro", "image.zli", "list.zls", own("a")}));
    EXPECT_EQ(caption(), own("a")) << "documents come first";
    for (const char *title :
         {"Insert image - picture.BMP", "Insert GROB - cell.gro", "Insert ZOLT image - image.zli"}) {
        auto *window = awaitWindow<InsertFrm>();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->windowTitle(), QString::fromUtf8(title));
        put("");
        press(window, GetParam() == 1 ? "Command2" : "Command1");
        EXPECT_GT(pane().length(), 0);
        window->close();
        deleteClosed();
        QCoreApplication::processEvents();
    }
    if (GetParam() == 1) {
        auto *symbols = awaitWindow<SymbolFrm>();
        ASSERT_NE(symbols, nullptr);
        EXPECT_EQ(control<QListWidget>(symbols, "List1")->count(), 1);
        EXPECT_EQ(shared::settings.DefltSmb, path("list.zls"));
        symbols->close();
    } else {
        EXPECT_EQ(statusMessage(), QStringLiteral("list.zls: symbols are for the textual edition"));
    }
}

TEST_P(FileWays, DropsOnAnInsertWindowAreItsOwnAndOnTheFrameWaitForIt) {
    writeBytes("one.zli", kCell + "\r\n");
    writeBytes("two.zli", kCell + "\r\n");
    writeBytes("cell.gro", "GROB 8 6 FF90909090FF");
    EXPECT_TRUE(dropped(view(), {"one.zli"}));
    auto *window = awaitWindow<InsertFrm>();
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(dropped(window, {"cell.gro"}));
    EXPECT_FALSE(dropped(window, {"one.zli", "two.zli"}));
    EXPECT_TRUE(dropped(window, {"two.zli"}));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Insert ZOLT image - two.zli"));
    EXPECT_TRUE(dropped(view(), {"cell.gro"}));
    EXPECT_EQ(statusMessage(), QStringLiteral("cell.gro waits until the window that inserts is closed"));
    window->close();
    deleteClosed();
    QCoreApplication::processEvents();
    ASSERT_NE(shownWindow<InsertFrm>(), nullptr);
    EXPECT_EQ(shownWindow<InsertFrm>()->windowTitle(), QStringLiteral("Insert GROB - cell.gro"));
    EXPECT_EQ(statusMessage(), QString());
}

TEST_P(FileWays, WhatCantBeTakenIsSaidAndADisabledFrameTakesNothing) {
    put("text");
    writeBytes("program.exe", "MZ");
    const std::pair<std::vector<std::string>, const char *> cases[]{
        {{"program.exe"}, "program.exe is of no type that can be opened here"},
        {{"http://example.org/a.zlt"}, "What was dropped is no file of this computer"},
        {{"none.zlt"}, "none.zlt wasn't opened: No such file or directory"},
        {{"a.exe", "b.exe"},
         "a.exe is of no type that can be opened here; b.exe is of no type that can be opened here"},
    };
    for (const auto &[names, message] : cases) {
        EXPECT_TRUE(dropped(loaded<MDIFrm>(), names)) << message;
        EXPECT_EQ(documentInUse() ? control<QLabel>(m_document, "Panel1")->toolTip().toStdString() : "",
                  "<p>" + QString::fromUtf8(message).toHtmlEscaped().toStdString() + "</p>");
        EXPECT_EQ(text(), "text");
    }
    writeDocument(own("a"));
    loaded<MDIFrm>()->setEnabled(false);
    EXPECT_FALSE(dropped(view(), {own("a")}));
    loaded<MDIFrm>()->setEnabled(true);
    bool taken = true;
    whenModal("QMessageBox", [&](QWidget *box) {
        taken = dropped(view(), {own("a")});
        box->close();
    });
    call(m_document, "FicheiroNovo");
    EXPECT_FALSE(taken);
    EXPECT_EQ(text(), "text");
}

TEST_P(FileWays, AFileWithoutAKnownEndingOpensInTheEditionInUseOrTheOneChosen) {
    open("file");
    put("other");
    {
        Answer no(QMessageBox::No);
        recent()[0]->trigger();
    }
    EXPECT_EQ(text().substr(0, 4), "file");
    EXPECT_EQ(shared::EdiçãoActiva, GetParam());
    closeDocument();
    recent()[0]->trigger();
    auto *chooser = loaded<MensagemFrm>();
    ASSERT_TRUE(chooser && chooser->isVisible());
    press(chooser, "Command1");
    EXPECT_EQ(caption(), "file");
    EXPECT_EQ(shared::EdiçãoActiva, 1);
}

} // namespace
} // namespace zolt
