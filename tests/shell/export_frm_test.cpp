#include "export/pdf_writer.h"
#include "shell/base/dialog_frm.h"
#include "shell/exports/edit_text_export_pdf_frm.h"
#include "support/opened_files.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdio>

namespace zolt {
namespace {

using namespace test;

class Export : public ProgramTest {
protected:
    EditTextFrm &document(std::string_view text) {
        EditTextFrm &window = startTextEdition();
        window.activeTextPane().setText(text);
        return window;
    }
    bool exists(const char *name) { return QFile::exists(QString::fromStdString(path(name))); }
};

class PdfWindow : public Export {
protected:
    EditTextExportPDFFrm &open() {
        loaded<EditTextFrm>()->menuItem("MnuFicheiroExportarPDF")->trigger();
        auto &window = *loaded<EditTextExportPDFFrm>();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        return window;
    }
    EditTextExportPDFFrm &open(std::string_view text) {
        document(text);
        return open();
    }
    bool windowIsGone() {
        deleteClosed();
        return loaded<EditTextExportPDFFrm>() == nullptr;
    }
    /// The writer's file of a text, made at the time that `file` says.
    static std::string written(std::string_view text, PdfParameters parameters, const std::string &file) {
        std::tm &time = parameters.createdAt;
        const auto date = file.find("(D:");
        EXPECT_EQ(std::sscanf(file.c_str() + std::min(date, file.size()), "(D:%4d%2d%2d%2d%2d%2d",
                              &time.tm_year, &time.tm_mon, &time.tm_mday, &time.tm_hour, &time.tm_min,
                              &time.tm_sec),
                  6);
        time.tm_year -= 1900;
        --time.tm_mon;
        std::string bytes;
        writePdf(text, parameters, [&](std::string_view piece) { bytes += piece; });
        return bytes;
    }
};

TEST_F(PdfWindow, WritesTheDocumentAsItsControlsSay) {
    auto &window = open(withMarks("Some (text)\r\n@BBold@B"));
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(control<QLineEdit>(&window, "txtCreator")->text(), QStringLiteral("ZOLT"));
    const auto choose = [&](const char *box, const char *text) {
        auto *combo = control<QComboBox>(&window, box);
        combo->setCurrentIndex(combo->findText(QString::fromUtf8(text)));
    };
    choose("cmbFont", "Courier");
    choose("cmbFontSize", "14pt");
    choose("cmbRotation", "270");
    choose("cmbPageSize", "14\" x 11\"");
    const auto type = [&](const char *box, const char *text) {
        control<QLineEdit>(&window, box)->insert(QString::fromUtf8(text));
    };
    type("txtTitle", "A (title");
    type("txtSubject", "€→");
    type("txtAuthor", "João");
    type("txtKeywords", "k");
    Answer no(QMessageBox::No);
    answerFileDialog(path("out"));
    press(loaded<EditTextExportPDFFrm>(), "btnConvert");
    EXPECT_EQ(no.text(), QStringLiteral("Open created PDF file ?"));

    const std::string file = fileBytes("out.pdf");
    EXPECT_EQ(file, written(withMarks("Some (text)\r\n@BBold@B"),
                            {.author = "Jo\xE3o",
                             .keywords = "k",
                             .subject = "\x80?",
                             .title = "A (title",
                             .fontName = "Courier",
                             .fontSize = 14,
                             .rotation = 270,
                             .pageWidth = 14,
                             .pageHeight = 11},
                            file));
    EXPECT_EQ(shared::settings.DfDirPdf, path(""));
    EXPECT_TRUE(windowIsGone());
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_FALSE(exists("tmp1855"));
}

TEST_F(PdfWindow, AnEmptyDocumentGivesAPageAndYesOpensIt) {
    OpenedFiles opened;
    open("");
    writeBytes("out.pdf", "an older file");
    Answer yes(QMessageBox::Yes);
    answerFileDialog(path("out.pdf"));
    press(loaded<EditTextExportPDFFrm>(), "btnConvert");
    const std::string file = fileBytes("out.pdf");
    EXPECT_EQ(file, written("", {}, file));
    EXPECT_EQ(opened.paths, QStringList(QString::fromStdString(path("out.pdf"))));
}

TEST_F(PdfWindow, ACancelledDialogLeavesWindowAndTemporaryFile) {
    auto &window = open("text");
    answerFileDialog({});
    press(loaded<EditTextExportPDFFrm>(), "btnConvert");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(fileBytes("tmp1855"), "text\r\n");
    EXPECT_EQ(shared::settings.DfDirPdf, m_folder.path().toStdString());
    // The dialog goes with its window.
    whenModal("QFileDialog", [](QWidget *) { loaded<EditTextExportPDFFrm>()->close(); });
    press(&window, "btnConvert");
    EXPECT_TRUE(windowIsGone());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

TEST_F(PdfWindow, SaysThatATemporaryFileIsMissing) {
    open("text");
    // A folder of that name can't be written over.
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("tmp1855")));
    QString message;
    whenModal("QMessageBox", [&](QWidget *box) {
        message = qobject_cast<QMessageBox *>(box)->text();
        box->close();
    });
    answerFileDialog(path("out.pdf"));
    press(loaded<EditTextExportPDFFrm>(), "btnConvert");
    EXPECT_EQ(message, QString::fromStdString("The file '" + path("tmp1855") + "' doesn't exist."));
    EXPECT_FALSE(exists("out.pdf"));
    EXPECT_TRUE(windowIsGone());
}

TEST_F(PdfWindow, AFileThatIsNotWrittenIsSaidAndNotOffered) {
    open("text");
    Answer question(QMessageBox::No);
    answerFileDialog(path("missing/out.pdf"));
    press(loaded<EditTextExportPDFFrm>(), "btnConvert");
    EXPECT_FALSE(question.came());
    EXPECT_TRUE(statusMessage().startsWith(QStringLiteral("out.pdf wasn't saved: ")));
    EXPECT_TRUE(windowIsGone());
}

TEST_F(PdfWindow, ClosingItEndsALongExport) {
    std::string text;
    while (text.size() < 5'000'000)
        text += "A line of a long document.\r\n";
    auto &window = open(text);
    Answer question(QMessageBox::No);
    answerFileDialog(path("out.pdf"));
    // While the export runs, nothing but Cancel can be pressed.
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        if (!control<QPushButton>(&window, "btnConvert")->isEnabled())
            press(loaded<EditTextExportPDFFrm>(), "btnClose");
    });
    watch.start(0);
    QTimer::singleShot(0, &window, [&] { press(loaded<EditTextExportPDFFrm>(), "btnConvert"); });
    ASSERT_TRUE(waitFor([this] { return windowIsGone(); }, 60000));
    EXPECT_FALSE(question.came());
    EXPECT_FALSE(exists("out.pdf"));
    EXPECT_FALSE(exists("tmp1855"));
}

TEST_F(PdfWindow, StartedWithAFileSavesByItself) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(m_folder.path());
    writeBytes("named.zlt", "from the file\r\n");
    start("\"named.zlt\"");
    auto &pane = loaded<EditTextFrm>()->activeTextPane();
    pane.setText("changed since");
    answerFileDialog(path("out.pdf"));
    loaded<EditTextFrm>()->menuItem("MnuFicheiroExportarPDF")->trigger();
    // Neither a button is pressed nor a question asked.
    EXPECT_TRUE(waitFor([this] { return windowIsGone(); }));
    EXPECT_NE(fileBytes("out.pdf").find("(changed since"), std::string::npos);
    EXPECT_EQ(fileBytes("named.zlt"), "from the file\r\n");
    QDir::setCurrent(before);
}

TEST_F(PdfWindow, TextBoxesSelectTheirTextOnFocus) {
    auto &window = open("");
    auto *creator = control<QLineEdit>(&window, "txtCreator");
    QTest::mouseClick(creator, Qt::LeftButton);
    EXPECT_TRUE(waitFor([creator] { return creator->selectedText() == QStringLiteral("ZOLT"); }));
}

class WebPageExport : public Export {
protected:
    WebPageExport() : m_window((storeLook(), document("<b>One\r\n\r\nTwo"))) {}

    void storeLook() {
        Settings settings = defaultSettings(path(""));
        settings.TFntColr = "255";
        settings.TFntBckC = std::to_string(0xC08000);
        settings.TFntItal = settings.TFntBold = "True";
        settings.TFntSize = 14;
        writeSettings(path("ZOLT.ini"), settings);
    }

    static constexpr char kPage[] = "<html>\r\n<body text=\"#FF0000\" bgcolor=\"#0080C0\">\r\n"
                                    "<p><font face=\"ZOLT\" size=\"4\"><i><b>\r\n"
                                    "<b>One<br>\r\n<br>\r\nTwo</b></i></font></p>\r\n</body>\r\n</html>\r\n";
    EditTextFrm &m_window;
};

TEST_F(WebPageExport, WritesThePageAndKeepsTheDocumentsName) {
    answerFileDialog(path("doc.zlt"));
    call(&m_window, "FicheiroGuardarComo");
    m_window.activeTextPane().setSelStart(0);
    m_window.activeTextPane().setSelText("x");
    m_window.activeTextPane().undo();
    answerFileDialog(path("page.htm"));
    m_window.menuItem("MnuFicheiroExportarHTML")->trigger();
    EXPECT_EQ(fileBytes("page.htm"), kPage);
    EXPECT_EQ(shared::GuardarCancelado, 0);
    EXPECT_EQ(m_window.caption(), QStringLiteral("doc.zlt"));
    m_window.activeTextPane().setText("later");
    call(&m_window, "FicheiroGuardar");
    EXPECT_EQ(fileBytes("doc.zlt"), "later\r\n");
    EXPECT_EQ(fileBytes("page.htm"), kPage);
}

TEST_F(WebPageExport, AWayThatEndsWithoutAFileShowsNoBoxButWhatItMust) {
    const std::string folder = shared::settings.DefltDir;
    answerFileDialog({});
    call(&m_window, "ExportarHTML");
    EXPECT_EQ(shared::GuardarCancelado, 1);
    shared::GuardarCancelado = 0;
    answerFileDialog(path("missing/page"));
    call(&m_window, "ExportarHTML");
    EXPECT_EQ(shared::GuardarCancelado, 1);
    EXPECT_TRUE(statusMessage().startsWith(QStringLiteral("page.htm wasn't saved: ")));
    EXPECT_EQ(shared::settings.DefltDir, folder);

    shared::GuardarCancelado = 0;
    m_window.activeTextPane().setText("");
    for (const char *operation : {"ExportarHTML", "FicheiroExportarPrevisualizarpaginaWeb"}) {
        Answer ok(QMessageBox::Ok);
        call(&m_window, operation);
        EXPECT_EQ(ok.text(), QStringLiteral("Empty document"));
    }
    EXPECT_FALSE(exists("Temp.html"));
}

TEST_F(WebPageExport, IsOfferedTheDocumentsNameWithoutItsExtension) {
    const struct {
        const char *document;
        const char *page;
    } names[] = {{"doc.zlt", "doc.htm"},
                 {"no extension", "no extension.htm"},
                 {"v1.2", "v1.2.htm"},
                 {"1. Intro", "1. Intro.htm"},
                 {".hid", ".hid.htm"}};
    for (const auto &name : names) {
        answerFileDialog(path(name.document));
        call(&m_window, "FicheiroGuardarComo");
        whenModal("QFileDialog", [&](QWidget *dialog) {
            EXPECT_EQ(control<QLineEdit>(dialog, "fileNameEdit")->text(), QString::fromUtf8(name.page));
            dialog->close();
        });
        call(&m_window, "ExportarHTML");
    }
}

TEST_F(WebPageExport, PreviewsInTheBrowser) {
    OpenedFiles opened;
    m_window.menuItem("MnuFicheiroExportarPrevisualizarpaginaWeb")->trigger();
    EXPECT_EQ(fileBytes("Temp.html"), kPage);
    EXPECT_EQ(opened.paths, QStringList(QString::fromStdString(path("Temp.html"))));
}

} // namespace
} // namespace zolt
