#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "platform/rich_text_box.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/preview/edit_graph_preview_frm.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QBuffer>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace zolt {
namespace {

using namespace test;

/// A picture of 12 by 6 dots: a black cell, a blank one and a black one.
RichPicture threeCells() {
    QImage image(12, 6, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int y = 0; y < 6; ++y)
        for (int x = 4; x < 8; ++x)
            image.setPixel(x, y, qRgb(255, 255, 255));
    QBuffer png;
    image.save(&png, "PNG");
    return {RichPicture::Kind::Png, png.data().toStdString(), 12 * 30, 6 * 30};
}

RichText smallDocument() {
    RichTextBuilder builder;
    builder.append("a ", {});
    builder.append("word", {.font = builder.text().fontIndex("ZOLTBold")});
    builder.append(threeCells(), {});
    builder.endParagraph();
    builder.append("say \"x\" now", {});
    return builder.text();
}

std::string repeated(const char *text, int times) {
    std::string all;
    while (times-- > 0)
        all += text;
    return all;
}

/// Its source code by the number of the option; '@' stands for the mark of the codes.
std::string sourceOfSmallDocument(int option, char mark) {
    const std::string line = option == 3 ? "#FFFFFF #FFFFFF" : "#FFFFFF#000000#FFFFFF";
    const std::string rest =
        option == 1 ? repeated("#000000", 30) + repeated(("\r\n" + repeated("#000000", 33)).c_str(), 10)
                    : repeated("\r\n", 10);
    std::string source = withMarks("\"a @Bword@B\r\n" + line + rest + "\r\nsay 'x' now\"");
    std::replace(source.begin(), source.end(), '\x0B', mark);
    return source;
}

class SourceCode : public ProgramTest {
protected:
    SourceCode() { begin(smallDocument()); }

    void begin(const RichText &text) {
        m_document = qobject_cast<EditGraphFrm *>(&startEdition(2));
        pane().setRichText(text);
    }
    RichTextBox &pane() { return m_document->activeRichPane(); }
    EditGraphPreviewFrm &open(const char *menuItem = "MnuVerPrévisualizar") {
        m_document->menuItem(menuItem)->trigger();
        EditGraphPreviewFrm &window = *loaded<EditGraphPreviewFrm>();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
        return window;
    }
    static RichTextBox &source(QWidget &window) { return *control<RichTextBox>(&window, "Text3"); }
    static bool sees(QWidget &window, const char *name) {
        return control<QWidget>(&window, name)->isVisible();
    }
    /// The window has gone, and the frame and the document are as they were.
    void expectBack(const std::string &document) {
        deleteClosed();
        EXPECT_EQ(loaded<EditGraphPreviewFrm>(), nullptr);
        EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
        EXPECT_TRUE(waitFor([this] { return pane().hasFocus(); }));
        EXPECT_EQ(pane().TextRTF(), document);
        EXPECT_EQ(shared::CancelarOperação, 0);
    }

    EditGraphFrm *m_document = nullptr;
};

TEST_F(SourceCode, GoesToEachDestinationAsEachOptionMakesIt) {
    for (const int option : {1, 2, 3}) {
        SCOPED_TRACE(option);
        const auto compile = [&](EditGraphPreviewFrm &window) {
            auto *button = control<QRadioButton>(&window, qPrintable(QStringLiteral("Option%1").arg(option)));
            EXPECT_EQ(button->isChecked(), option == 1);
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
            press(&window, "Command1");
        };
        const std::string document = pane().TextRTF();
        EditGraphPreviewFrm &window = open();
        compile(window);
        EXPECT_EQ(source(window).Text(), sourceOfSmallDocument(option, '\x1F'));
        QTest::keyClick(&window, Qt::Key_Escape);
        expectBack(document);

        // Under any name: the calculator's rules for names are the other edition's matter.
        const std::string name = "2. my file" + std::to_string(option);
        answerFileDialog(path(name));
        compile(open("MnuFicheiroGuardaremformatoHP"));
        EXPECT_EQ(fileBytes(name), sourceOfSmallDocument(option, '\x0B') + "\r\n");
        expectBack(document);

        compile(open("MnuFicheiroEnviarparaEdicaotextualCF"));
        EXPECT_EQ(loaded<EditTextFrm>()->activePane().Text(), sourceOfSmallDocument(option, '\x0B'));
        EXPECT_EQ(loaded<EditGraphPreviewFrm>(), nullptr);
        EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
        EXPECT_TRUE(waitFor([] { return loaded<EditTextFrm>()->activeTextPane().hasFocus(); }));
        leave();
        begin(smallDocument());
    }
}

TEST_F(SourceCode, OneWindowShowsChoiceProgressAndSource) {
    EditGraphPreviewFrm &window = open();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Format"));
    EXPECT_EQ(window.windowType(), Qt::Tool);
    EXPECT_TRUE(sees(window, "Frame2") && !sees(window, "Frame3") && !sees(window, "Text3"));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());

    bool progressSeen = false;
    QTimer::singleShot(0, &window, [&] {
        progressSeen = true;
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Compiling source-code..."));
        EXPECT_EQ(window.windowType(), Qt::Tool);
        EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        EXPECT_TRUE(!sees(window, "Frame2") && sees(window, "Frame3") && !sees(window, "Text3"));
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    });
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(progressSeen);

    EXPECT_EQ(window.windowTitle(), QStringLiteral("Source-code"));
    EXPECT_NE(window.windowType(), Qt::Tool);
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(!sees(window, "Frame2") && !sees(window, "Frame3") && sees(window, "Text3"));
    EXPECT_EQ(window.size(), QSize(8000 / 15, 5000 / 15));
    RichTextBox &text = source(window);
    EXPECT_EQ(text.geometry(), window.rect());
    EXPECT_TRUE(text.hasFocus());
    EXPECT_EQ(text.SelStart(), 0);
    EXPECT_TRUE(text.hasFont("ZOLT", 0, text.length()));
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(text.SelFontSize(), 10);
    window.resize(700, 500);
    EXPECT_EQ(text.geometry(), window.rect());
}

/// Long enough that every step lets the windows live.
RichText longDocument() {
    RichTextBuilder builder;
    const std::uint16_t bold = builder.text().fontIndex("ZOLTBold");
    for (int i = 0; i < 20'000; ++i) {
        builder.append("a", {});
        builder.append("b", {.font = bold});
        if (i % 10 == 9)
            builder.endParagraph();
        if (i % 500 == 499)
            builder.append(threeCells(), {});
    }
    return builder.text();
}

TEST_F(SourceCode, StoppedAtAnyMomentItLeavesTheDocumentAlone) {
    pane().setRichText(longDocument());
    const std::string document = pane().TextRTF();
    const std::function<void(QWidget *)> stops[] = {
        [](QWidget *window) { press(window, "Command3"); },
        [](QWidget *window) { QTest::keyClick(window, Qt::Key_Escape); },
        [](QWidget *window) { window->close(); },
    };
    const struct {
        const char *label;
        const char *text;
    } steps[] = {{"Label7", "(Searching ...)"},
                 {"Label8", "Format:"},
                 {"Label5", "Images:"},
                 {"Label5", "Image "},
                 {"Label5", "     Optimizing..."}};
    int way = 0;
    for (const char *menuItem :
         {"MnuVerPrévisualizar", "MnuFicheiroGuardaremformatoHP", "MnuFicheiroEnviarparaEdicaotextualCF"}) {
        for (const auto &step : steps) {
            SCOPED_TRACE(std::string(menuItem) + step.text);
            const auto &stop = stops[way++ % 3];
            EditGraphPreviewFrm &window = open(menuItem);
            bool stopped = false;
            QTimer poll;
            QObject::connect(&poll, &QTimer::timeout, &window, [&] {
                auto *label = control<QLabel>(&window, step.label);
                if (!label->isVisible() || !label->text().startsWith(QString::fromUtf8(step.text)))
                    return;
                poll.stop();
                stopped = true;
                EXPECT_FALSE(loaded<MDIFrm>()->close());
                stop(&window);
            });
            poll.start(0);
            press(&window, "Command1");
            EXPECT_TRUE(stopped);
            expectBack(document);
        }
    }
    for (const auto &stop : {stops[1], stops[2]}) {
        stop(&open());
        expectBack(document);
    }
    // Nothing of it reaches the other edition's compiler.
    Answer yes(QMessageBox::Yes);
    m_document->menuItem("MnuFicheiroEnviarparaEdicaotextual")->trigger();
    call(loaded<EditTextFrm>(), "MnuVerPrévisualizartudoEstiloHP48");
    EXPECT_NE(loaded<EditTextPreviewFrm>(), nullptr);
}

TEST_F(SourceCode, AFileThatIsNotWrittenIsSaidAndLeavesNone) {
    const std::string document = pane().TextRTF();
    for (const std::string name : {"", "no/such/folder"}) {
        whenModal("QFileDialog", [](QWidget *dialog) {
            EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Save As HP file"));
            EXPECT_FALSE(loaded<EditGraphPreviewFrm>()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        });
        answerFileDialog(name.empty() ? "" : path(name));
        press(&open("MnuFicheiroGuardaremformatoHP"), "Command1");
        expectBack(document);
        EXPECT_TRUE(name.empty() ? statusMessage().isEmpty()
                                 : statusMessage().startsWith(QStringLiteral("folder wasn't saved: ")));
        EXPECT_EQ(QDir(m_folder.path()).entryList({QStringLiteral("*folder*")}), QStringList());
    }
}

TEST_F(SourceCode, OfTheSelectionAlone) {
    const struct {
        qsizetype start, length;
        std::string source;
        const char *said;
    } cases[] = {{3, 3, withRichMarks("\"@Bord\""), ""},
                 {0, 4, withRichMarks("\"a @Bwo\""), ""},
                 {3, 0, "\"\"", "Nothing is selected."}};
    for (QAction *way :
         {m_document->menuItem("MnuVerPrévisualizarSelecçao"),
          control<QAction>(m_document->popUp(), "MnuPopUpPrévisualizar"),
          control<QAction>(loaded<MDIFrm>()->toolbar(4), "Pré-visualizar código fonte da selecção")})
        for (const auto &c : cases) {
            pane().setSelStart(c.start);
            pane().setSelLength(c.length);
            way->trigger();
            EditGraphPreviewFrm &window = *loaded<EditGraphPreviewFrm>();
            press(&window, "Command1");
            EXPECT_EQ(source(window).Text(), c.source);
            EXPECT_EQ(statusMessage(), QString::fromUtf8(c.said));
            window.close();
        }
}

} // namespace
} // namespace zolt
