#include "core/file.h"
#include "graphic/rtf_reader.h"
#include "hp48/preview_compiler.h"
#include "hp48/screen.h"
#include "platform/rich_text_box.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "shell/preview/edit_text_preview_normal_menu_frm.h"
#include "shell/preview/wait_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTableWidget>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

namespace zolt {
namespace {

using namespace test;

const std::string kDocument =
    withMarks("first\r\n*ONE\r\nplain @Bbold@B\r\n*TWO\r\n#F9999F#111111\r\n#FFFFFF#888888\r\n*");

class PreviewWindows : public TextEditionTest {
protected:
    EditTextPreviewFrm &showHp48(std::string_view text) {
        pane().setText(text);
        call(m_window, "MnuVerPrévisualizartudoEstiloHP48");
        return *loaded<EditTextPreviewFrm>();
    }
    EditTextPreviewNormalFrm &showNormal(std::string_view text, bool wraps) {
        pane().setText(text);
        call(m_window, wraps ? "MnuVerPrévisualizartudoComquebrasdelinha" : "MnuVerPrévisualizartudoNormal");
        return *loaded<EditTextPreviewNormalFrm>();
    }
    static RichTextBox &text(QWidget &window) { return *control<RichTextBox>(&window, "Text4"); }
    static QString lineShown(QWidget &window) { return control<QLabel>(&window, "Label1")->text(); }
};

/// The dots of the first lines in sight, two pixels each, from the text's corner.
void expectDots(EditTextPreviewFrm &window, std::string_view document, int height) {
    auto &box = *control<RichTextBox>(&window, "Text4");
    box.setCursorWidth(0);
    const QImage shown = box.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const Preview preview = compilePreview(document, PreviewFlavour::Hp48);
    const auto lines = screenLines(preview.styled);
    DotSurface dots(static_cast<int>(screenWidth(lines)), height);
    drawLines(dots, preview.styled, lines, glyph);
    const int margin = static_cast<int>(box.document()->documentMargin());
    int wrong = 0;
    for (int y = 0; y < 2 * height; ++y)
        for (int x = 0; x < 2 * dots.width(); ++x)
            wrong += dots.dot(x / 2, y / 2) != (shown.pixel(x + margin, y + margin) == qRgb(0, 0, 0));
    EXPECT_EQ(wrong, 0);
}

TEST_F(PreviewWindows, ShowTheCalculatorsDots) {
    const FileContents welcome = readFile(ZOLT_EXAMPLES "/welcome.zlt");
    ASSERT_TRUE(welcome.ok());
    for (const std::string_view document : {std::string_view(welcome.bytes), std::string_view(kDocument)}) {
        auto &window = showHp48(document);
        expectDots(window, document, 60);
        window.close();
    }
}

TEST_F(PreviewWindows, ReturnTheFrameAndAreNotTypedInto) {
    auto &window = showHp48(kDocument);
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(loaded<WaitFrm>(), nullptr);
    const std::string before = text(window).Text();
    QTest::keyClicks(&text(window), QStringLiteral("x"));
    EXPECT_EQ(text(window).Text(), before);
    EXPECT_EQ(lineShown(window), QStringLiteral("1"));
    QTest::keyClick(&text(window), Qt::Key_Down);
    EXPECT_EQ(lineShown(window), QStringLiteral("2"));
    window.close();
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

TEST_F(PreviewWindows, JumpFromTheListToAnEntrysLine) {
    auto &window = showHp48(kDocument);
    QTest::mousePress(text(window).viewport(), Qt::RightButton);
    auto *popUp = control<QMenu>(&window, "MnuPopUp");
    EXPECT_TRUE(popUp->isVisible());
    popUp->close();
    call(&window, "MnuPopUpMenu");
    auto *list = control<QTableWidget>(&window, "Grid1");
    EXPECT_TRUE(list->isVisible());
    ASSERT_EQ(list->rowCount(), 3);
    EXPECT_EQ(list->item(2, 0)->text(), QStringLiteral("*"));
    list->setCurrentCell(1, 0);
    EXPECT_EQ(lineShown(window), QStringLiteral("4"));
    EXPECT_TRUE(list->isVisible());
    const QPoint place = list->visualItemRect(list->item(1, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    EXPECT_FALSE(list->isVisible());
    const std::string compiled = text(window).Text();
    EXPECT_EQ(text(window).SelStart(), static_cast<qsizetype>(compiled.find("*TWO") + 4));
}

/// A text whose entries are 33 characters long; the last character tells them apart.
std::string longEntries() {
    std::string text = "first\r\n";
    for (char c = 'A'; c <= 'Z'; ++c)
        text += "*" + std::string(31, 'x') + c + "\r\nplain\r\n";
    return text;
}

std::string lineInSight(RichTextBox &box, QPoint place = QPoint(4, 4)) {
    return box.cursorForPosition(place).block().text().toStdString();
}

template <class List> QImage rowOf(List &list, int row) {
    const QModelIndex index = list.model()->index(row, 0);
    return list.viewport()->grab(list.visualRect(index)).toImage();
}

TEST_F(PreviewWindows, TheKeyboardWorksTheListOfWholeEntries) {
    auto &window = showHp48(longEntries());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto *list = control<QTableWidget>(&window, "Grid1");
    QTest::keyClick(&text(window), Qt::Key_Return);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_NE(rowOf(*list, 1), rowOf(*list, 2));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(lineShown(window), QStringLiteral("4"));
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_TRUE(text(window).hasFocus());
    EXPECT_EQ(lineInSight(text(window)), "first");

    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    for (const char last : {'B', 'Z'}) {
        QApplication::sendEvent(&text(window), &menuKey);
        while (list->currentRow() < last - 'A')
            QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Enter);
        EXPECT_FALSE(list->isVisible());
        EXPECT_EQ(lineInSight(text(window)).back(), last);
        EXPECT_EQ(text(window).SelText(), "\r\n");
    }
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PreviewWindows, TheMenuWindowCountsAndJumps) {
    for (const bool wraps : {true, false}) {
        auto &window = showNormal(longEntries(), wraps);
        window.resize(480, 160);
        const auto open = [&]() -> QListWidget & {
            QTest::keyClick(&text(window), Qt::Key_Return);
            auto *menu = loaded<EditTextPreviewNormalMenuFrm>();
            EXPECT_TRUE(menu && QTest::qWaitForWindowActive(menu));
            return *control<QListWidget>(menu, "List1");
        };
        const auto expectBack = [&](char lastInSight) {
            const auto *menu = loaded<EditTextPreviewNormalMenuFrm>();
            EXPECT_FALSE(menu && menu->isVisible());
            EXPECT_TRUE(waitFor([&] { return text(window).hasFocus(); }));
            EXPECT_EQ(lineInSight(text(window)).back(), lastInSight);
        };
        for (const auto key : {Qt::Key_Escape, Qt::Key_Enter}) {
            QListWidget &list = open();
            EXPECT_EQ(list.count(), 26);
            EXPECT_NE(rowOf(list, 1), rowOf(list, 2));
            QTest::keyClick(&list, Qt::Key_End);
            EXPECT_EQ(control<QLabel>(list.window(), "Panel1")->isVisible(), wraps);
            EXPECT_EQ(control<QLabel>(list.window(), "Panel2")->text(), QStringLiteral("26/26"));
            QTest::keyClick(&list, key);
            expectBack(key == Qt::Key_Enter ? 'Z' : 't');
        }
        QListWidget &list = open();
        const QPoint second = list.visualItemRect(list.item(1)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
        expectBack('B');
        window.close();
        deleteClosed();
    }
}

TEST_F(PreviewWindows, AnEmptySelectionIsSaid) {
    pane().setText("text");
    for (const char *command : {"VerPrévisualizarselecçãoNormal", "VerPrévisualizarselecçãoComquebrasdelinha",
                                "VerPrévisualizarselecçãoEstiloHP48"}) {
        call(m_window, command);
        EXPECT_EQ(statusMessage(), QStringLiteral("Nothing is selected.")) << command;
        m_window->EditarSeleccionarTudo();
        call(m_window, command);
        EXPECT_EQ(statusMessage(), QString()) << command;
        pane().setSelStart(0);
    }
}

TEST_F(PreviewWindows, AnInterruptedPreviewNeverShows) {
    std::string text;
    for (int i = 0; i < 40000; ++i)
        text += withMarks("*line @Bbold@B and #F0F0F0 more\r\n");
    pane().setText(text);
    // By Cancel, as soon as the name of one of the phases stands in the window, and then by
    // closing either window.
    for (int way = 1; way <= kPreviewPhases + 2; ++way) {
        bool interrupted = false;
        QTimer interrupt;
        QObject::connect(&interrupt, &QTimer::timeout, [&] {
            QPointer<WaitFrm> wait = loaded<WaitFrm>();
            if (!wait || (way <= kPreviewPhases && !control<QLabel>(wait, "Label2")
                                                        ->text()
                                                        .startsWith(QString::fromStdString(phaseLabel(way)))))
                return;
            interrupt.stop();
            interrupted = true;
            EXPECT_FALSE(loaded<MDIFrm>()->close());
            if (way <= kPreviewPhases)
                press(wait, "Command1");
            else if (way == kPreviewPhases + 1)
                wait->close();
            else
                loaded<EditTextPreviewFrm>()->close();
            deleteClosed();
            EXPECT_NE(wait, nullptr); // the compiler goes on to its next step
        });
        interrupt.start(0);
        call(m_window, "MnuVerPrévisualizartudoEstiloHP48");
        deleteClosed();
        EXPECT_TRUE(interrupted) << way;
        EXPECT_EQ(loaded<EditTextPreviewFrm>(), nullptr) << way;
        EXPECT_EQ(loaded<WaitFrm>(), nullptr) << way;
        EXPECT_EQ(shared::CancelarOperação, 0) << way;
        EXPECT_TRUE(loaded<MDIFrm>()->isEnabled()) << way;
    }
}

TEST_F(PreviewWindows, TheReadingCopyFoldsOnlyWhenAsked) {
    const std::string line(50, 'x');
    auto &copy = showNormal(line, false);
    EXPECT_EQ(text(copy).Text(), line + "\r\n");
    EXPECT_EQ(copy.focusWidget(), &text(copy));
    EXPECT_EQ(text(showNormal(line, true)).Text(), line.substr(0, 33) + "\r\n" + line.substr(33) + "\r\n");
}

TEST_F(PreviewWindows, AStoredReadingCopyOpensTheSame) {
    auto &window = showNormal(kDocument, false);
    const RichText compiled = text(window).richText();
    answerFileDialog(path("copy.rtf"));
    call(&window, "GuardarComoFicheiro");
    EXPECT_EQ(shared::settings.DfDirPrN, path(""));
    EXPECT_EQ(plainText(richTextFromRtf(fileBytes("copy.rtf"))), text(window).Text());
    text(window).setText("something else");
    answerFileDialog(path("copy.rtf"));
    call(&window, "AbrirFicheiro");
    EXPECT_EQ(plainText(text(window).richText()), plainText(compiled));
    EXPECT_EQ(text(window).TextRTF().find("{\\pict") == std::string::npos, false);
}

TEST_F(PreviewWindows, CopyTakesAllAndSelectsNothing) {
    auto &window = showNormal(kDocument, false);
    call(&window, "Copy");
    EXPECT_EQ(text(window).SelLength(), 0);
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(data->hasFormat(QStringLiteral("text/rtf")));
    EXPECT_EQ(plainText(richTextFromRtf(data->data(QStringLiteral("text/rtf")).toStdString())),
              text(window).Text());
}

} // namespace
} // namespace zolt
