#include "graphic/rich_text_builder.h"
#include "platform/rich_text_box.h"
#include "platform/text_pane.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/preview/edit_graph_preview_frm.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QTest>
#include <QToolBar>

namespace zolt {
namespace {

using namespace test;

/// A text whose codes and cells count as such.
const std::string kText = withMarks("a @Bword@B, @ b @x\r\n#F9999F#111111\r\nend");

/// The same as rich text carries it.
std::string withRichMarks(std::string text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '\x0B' && text[i + 1] == 'B')
            text[i] = '\x1F';
    return text;
}

/// A document of each edition, with each of the panes, that came from a file and has
/// changed since.
class Roads : public ProgramTest, public testing::WithParamInterface<std::int16_t> {
protected:
    EditTextFrm &startTextual(const std::string &text = kText) {
        EditTextFrm &window = startTextEdition();
        take(window, "doc.zlt", text);
        return window;
    }
    EditGraphFrm &startGraphical() {
        EditGraphFrm &window = *qobject_cast<EditGraphFrm *>(&startEdition(2));
        take(
            window, "doc.zlg",
            "{\\rtf1{\\fonttbl{\\f0 ZOLT;}{\\f1 ZOLTInverse;}}\\f0 a \\f1 b\\f0{\\pict\\dibitmap0 "
            "2800000001000000010000000100180000000000000000000000000000000000000000000000000000000000}c\\par "
            "\\'1fBd\\'1fB}");
        return window;
    }
    /// Presses a toolbar's button, or the menu's item.
    static void go(DocumentFrm &window, const char *menuItem) { window.menuItem(menuItem)->trigger(); }
    static void go(int toolbar, const char *key) {
        auto *action = control<QAction>(loaded<MDIFrm>()->toolbar(toolbar), key);
        auto *button = loaded<MDIFrm>()->toolbar(toolbar)->widgetForAction(action);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static std::string text(const DocumentFrm &window) { return window.activePane().Text(); }

    /// The document has come to the other window, under a caption and in no file.
    void expectArrived(DocumentFrm *window, const QString &caption) {
        deleteClosed();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(loaded<EditTextFrm>() != nullptr, loaded<EditGraphFrm>() == nullptr);
        EXPECT_EQ(loaded<EditGraphPreviewFrm>(), nullptr);
        EXPECT_EQ(loaded<EditTextPreviewNormalFrm>(), nullptr);
        EXPECT_EQ(window->caption(), caption);
        EXPECT_EQ(shared::SemPerguntaDeSaída, 0);
        EXPECT_EQ(shared::settings.TxtWWrap, GetParam());
        EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
        EXPECT_TRUE(waitFor([&] { return window->activePane().control().hasFocus(); }));
        EXPECT_EQ(fileBytes(m_name), m_bytes);
        // Another one in its place loses it.
        writeBytes("other", "other");
        for (const char *operation : {"FicheiroGuardar", "FicheiroAbrir"}) {
            const bool saves = operation == std::string("FicheiroGuardar");
            answerFileDialog(saves ? std::string() : path("other"));
            call(window, operation);
        }
        EXPECT_EQ(statusMessage(), caption + QStringLiteral(" was replaced: its changes weren't saved."));
        EXPECT_EQ(fileBytes(m_name), m_bytes);
    }

private:
    void take(DocumentFrm &window, const char *name, const std::string &bytes) {
        m_name = name;
        m_bytes = bytes;
        writeBytes(name, bytes);
        if (GetParam() != shared::settings.TxtWWrap)
            call(&window, "EditarTranslinearpalavras");
        answerFileDialog(path(name));
        call(&window, "FicheiroAbrir");
        QTest::keyClicks(&window.activePane().control(), QStringLiteral("+"));
    }

    std::string m_name;
    std::string m_bytes;
};

INSTANTIATE_TEST_SUITE_P(Panes, Roads, testing::Values(std::int16_t{1}, std::int16_t{2}));

/// Expects the question of a road and answers it.
void answerQuestion(const char *edition, QMessageBox::StandardButton answer) {
    const QString wanted = QStringLiteral("Sending this document to the %1 edition, may\r\n"
                                          "cause the lost of some formatting elements.\r\n"
                                          "Do you wish to proceed?")
                               .arg(QString::fromUtf8(edition));
    whenModal("QMessageBox", [=](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        EXPECT_EQ(box->text(), wanted);
        EXPECT_EQ(box->windowTitle(), QStringLiteral("ZOLT"));
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QTest::mouseClick(box->button(answer), Qt::LeftButton);
    });
}

TEST_P(Roads, ATextGoesToTheGraphicalEditionInThePanesFont) {
    for (const bool byToolbar : {false, true}) {
        EditTextFrm &from = startTextual();
        shared::settings.TFntName = "Courier";
        shared::settings.TFntSize = 14;
        shared::settings.TFntBold = "True";
        shared::settings.TFntColr = "255";
        byToolbar ? go(2, "Enviar para edição gráfica") : go(from, "MnuFicheiroEnviarparaEdicaografica");
        auto *window = loaded<EditGraphFrm>();
        ASSERT_NE(window, nullptr);
        RichTextBox &pane = window->activeRichPane();
        EXPECT_EQ(text(*window), "+" + withRichMarks(kText));
        pane.setSelLength(pane.length());
        EXPECT_EQ(pane.SelFontName(), "Courier");
        EXPECT_EQ(pane.SelFontSize(), 14);
        EXPECT_TRUE(pane.SelBold());
        EXPECT_EQ(pane.SelColor(), 255u);
        expectArrived(window, QStringLiteral("doc.zlt"));
        leave();
    }
}

TEST_P(Roads, APreviewGoesToTheGraphicalEditionInThePlainFontWithItsPictures) {
    EditTextFrm &from = startTextual();
    call(&from, "MnuVerPrévisualizartudoComquebrasdelinha");
    const auto send = [] {
        auto *bar = control<QToolBar>(loaded<EditTextPreviewNormalFrm>(), "Toolbar1");
        QTest::mouseClick(bar->widgetForAction(control<QAction>(bar, "EnviarGraphic")), Qt::LeftButton);
    };
    answerQuestion("graphical", QMessageBox::No);
    send();
    ASSERT_TRUE(loaded<EditTextPreviewNormalFrm>() && loaded<EditTextFrm>());
    const std::string shown = control<RichTextBox>(loaded<EditTextPreviewNormalFrm>(), "Text4")->Text();
    answerQuestion("graphical", QMessageBox::Yes);
    send();
    auto *window = loaded<EditGraphFrm>();
    ASSERT_NE(window, nullptr);
    RichTextBox &pane = window->activeRichPane();
    EXPECT_EQ(pane.Text(), shown);
    EXPECT_EQ(pane.SelLength(), 0);
    EXPECT_NE(pane.TextRTF().find("{\\pict"), std::string::npos);
    EXPECT_TRUE(pane.hasFont("ZOLT", 0, pane.length()));
    pane.setSelLength(pane.length());
    EXPECT_EQ(pane.SelFontSize(), 10);
    expectArrived(window, QStringLiteral("doc.zlt"));
}

TEST_P(Roads, AGraphicalDocumentGoesToTheTextualEditionAsItsCharacters) {
    for (const bool byToolbar : {false, true}) {
        EditGraphFrm &from = startGraphical();
        const std::string document = from.activeRichPane().TextRTF();
        for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            answerQuestion("textual", answer);
            byToolbar ? go(4, "Enviar para edição textual")
                      : go(*loaded<EditGraphFrm>(), "MnuFicheiroEnviarparaEdicaotextual");
            if (answer == QMessageBox::No) {
                ASSERT_EQ(loaded<EditGraphFrm>(), &from);
                EXPECT_EQ(from.activeRichPane().TextRTF(), document);
                EXPECT_EQ(loaded<EditTextFrm>(), nullptr);
            }
        }
        auto *window = loaded<EditTextFrm>();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(text(*window), withRichMarks(withMarks("+a bc\r\n@Bd@B")));
        expectArrived(window, QStringLiteral("doc.zlg"));
        leave();
    }
}

TEST_P(Roads, AGraphicalDocumentGoesToTheTextualEditionAsSourceCode) {
    for (const bool byToolbar : {false, true}) {
        EditGraphFrm &from = startGraphical();
        byToolbar ? go(4, "Enviar para edição textual código fonte")
                  : go(from, "MnuFicheiroEnviarparaEdicaotextualCF");
        QTest::mouseClick(control<QWidget>(loaded<EditGraphPreviewFrm>(), "Option3"), Qt::LeftButton, {},
                          QPoint(8, 8));
        press(loaded<EditGraphPreviewFrm>(), "Command1");
        auto *window = loaded<EditTextFrm>();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(text(*window), withMarks("\"+a @Vb@V\r\n#100000" +
                                           std::string("\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n") +
                                           std::string(33, ' ') + "c\r\n@Bd@B\""));
        expectArrived(window, QStringLiteral("Document1"));
        leave();
    }
}

TEST_P(Roads, ATextSentThereAndBackAsSourceCodeKeepsCodesAndCells) {
    std::vector<std::string> texts =
        randomTexts({"a", " ", "\r\n", "\r", "\n", "\x0B", "B", "|", "\x0B/x\x0B/", "\x9E",
                     withMarks("#FF00F0"), withMarks("#000000"), "\xE9\xFF", "{\\b"},
                    12);
    std::string all = everyByte();
    all.erase(34, 1); // the double quote
    texts.push_back(all);
    for (const std::string font : {"ZOLT", "Courier"})
        for (const std::string &document : texts) {
            EditTextFrm &from = startTextEdition();
            shared::settings.TxtWWrap = GetParam();
            shared::settings.TFntName = font;
            from.activeTextPane().setText(document);
            go(from, "MnuFicheiroEnviarparaEdicaografica");
            go(*loaded<EditGraphFrm>(), "MnuFicheiroEnviarparaEdicaotextualCF");
            press(loaded<EditGraphPreviewFrm>(), "Command1");
            ASSERT_EQ(text(*loaded<EditTextFrm>()), "\"" + document + "\"");
            leave();
        }
}

} // namespace
} // namespace zolt
