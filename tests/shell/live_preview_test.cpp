#include "shell/preview/live_preview.h"

#include "core/glyphs.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "hp48/random_document.h"
#include "platform/embedded_picture.h"
#include "platform/rich_text_box.h"
#include "platform/screen_view.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QBuffer>
#include <QDockWidget>
#include <QImage>
#include <QListView>
#include <QScrollBar>
#include <QTest>

namespace zolt {
namespace {

using namespace test;

/// The document as the command line's preview takes it.
std::string calculatorText(Pane &pane) {
    const auto *rich = dynamic_cast<RichTextBox *>(&pane);
    if (!rich)
        return pane.Text();
    const RichText text = richTextFromRtf(rich->TextRTF());
    return withStyleMarks(*compileSource(text, SourceKind::Normal, dotsForSource));
}

/// Words in two styles and a picture.
RichText sample(std::mt19937 &random) {
    RichTextBuilder builder;
    for (const char *font : {"ZOLTBold", "ZOLTDouble"})
        builder.append("words", {.font = builder.text().fontIndex(font)});
    QImage image(static_cast<int>(1 + random() % 40), 9, QImage::Format_RGB32);
    image.fill(Qt::black);
    QBuffer png;
    image.save(&png, "PNG");
    builder.append({RichPicture::Kind::Png, png.data().toStdString(), 30 * image.width(), 270}, {});
    return builder.text();
}

/// The parameter is an edition.
class LivePreviewTest : public EditionTest, public testing::WithParamInterface<int> {
protected:
    LivePreviewTest() : EditionTest(GetParam()) { m_document->menuItem("MnuVerLivePreview")->trigger(); }

    LivePreview &preview() { return *control<LivePreview>(loaded<MDIFrm>(), "LivePreview"); }
    ScreenView &screen() { return *control<ScreenView>(&preview(), "Screen1"); }
    QListView &entries() { return *control<QListView>(&preview(), "List1"); }

    void show(std::string_view text, qsizetype caret = 0) {
        put(text, caret);
        settle();
    }
    void settle() {
        ASSERT_TRUE(waitFor([this] { return preview().isUpToDate(); }));
    }

    /// A change as a user makes one, by the keyboard or by a command.
    void editAtRandom(std::mt19937 &random) {
        const auto length = static_cast<unsigned>(pane().length());
        pane().setSelStart(random() % (length + 1));
        if (random() % 3 == 0)
            pane().setSelLength(random() % 20);
        switch (random() % 4) {
        case 0:
            return pane().setSelText(randomDocument(random));
        case 1:
            QTest::keyClicks(&pane().control(), QStringLiteral("plain words"));
            return;
        case 2:
            return QTest::keyClick(&pane().control(), Qt::Key_Return);
        default:
            if (auto *rich = dynamic_cast<RichTextBox *>(&pane()))
                rich->setSelRichText(sample(random));
            else
                pane().setSelText(withMarks("@Bbold@B"));
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Editions, LivePreviewTest, testing::Values(1, 2));

TEST_P(LivePreviewTest, ShowsWhatThePreviewShowsDotForDot) {
    std::mt19937 random(48);
    for (int i = 0; i < 40; ++i) {
        editAtRandom(random);
        settle();
        const Preview expected = compilePreview(calculatorText(pane()), PreviewFlavour::Hp48);
        ASSERT_EQ(screen().screen().text, expected.styled) << i;
        ASSERT_EQ(screen().screen().entries, expected.entries) << i;

        const QRect dots = screen().shownDots();
        const std::vector<ScreenLine> lines = screenLines(expected.styled);
        DotSurface surface(dots.right() + 1, dots.height());
        drawLines(surface, expected.styled, linesBetween(lines, dots.top(), dots.bottom() + 1), glyph,
                  dots.top());
        const QImage shown = screen().viewport()->grab().toImage();
        const QPoint origin = screen().pointOfDot(dots.topLeft());
        const int side = screen().pointOfDot(dots.topLeft() + QPoint(1, 0)).x() - origin.x();
        for (int y = 0; y < dots.height(); ++y)
            for (int x = 0; x < dots.width(); ++x) {
                const QPoint middle = origin + QPoint(x, y) * side + QPoint(side / 2, side / 2);
                if (shown.rect().contains(middle)) {
                    ASSERT_EQ(shown.pixelColor(middle) == QColor(Qt::black), surface.dot(dots.left() + x, y))
                        << x << "," << y;
                }
            }
    }
}

TEST_P(LivePreviewTest, FollowsTheCaretAndPutsItWhereItIsPressed) {
    std::string text = "*One\r\n";
    for (int i = 0; i < 80; ++i)
        text += "line\r\n";
    show(text + "*Two\r\nthe last line is a word too long for the calculator");
    EXPECT_EQ(screen().verticalScrollBar()->value(), 0);
    pane().setSelStart(pane().length());
    EXPECT_GT(screen().verticalScrollBar()->value(), 80 * 6 - screen().shownDots().height());

    // A press on the folded line's second part: its fourth character, of "ulator".
    const CompiledScreen &compiled = screen().screen();
    const auto line = static_cast<int>(compiled.lines.size()) - 2;
    QTest::mouseClick(screen().viewport(), Qt::LeftButton, {},
                      screen().pointOfDot({3 * 4 + 1, line * 6 + 2}));
    const std::string whole = pane().Text();
    const auto caret = static_cast<std::size_t>(pane().SelStart());
    const std::size_t shown = compiled.lines[static_cast<std::size_t>(line)].begin + 3;
    EXPECT_EQ(whole.substr(caret), compiled.text.characters.substr(shown, whole.size() - caret));
    EXPECT_TRUE(pane().hasFocus());

    // The document's first line is no entry.
    ASSERT_EQ(entries().model()->rowCount(), 1);
    const QModelIndex entry = entries().model()->index(0, 0);
    EXPECT_EQ(entry.data().toString(), QStringLiteral("*Two"));
    QTest::mouseClick(entries().viewport(), Qt::LeftButton, {}, entries().visualRect(entry).center());
    EXPECT_EQ(whole.substr(static_cast<std::size_t>(pane().SelStart()), 4), "*Two");
}

TEST_P(LivePreviewTest, GoesWithTheDocumentAndItsPanes) {
    show("one");
    call(m_document, "EditarTranslinearpalavras");
    settle();
    QTest::keyClicks(&pane().control(), QStringLiteral("in the other pane "));
    settle();
    EXPECT_NE(screen().screen().text.characters.find("in the other pane"), std::string::npos);
    // The window goes while its document is copied and compiled.
    put(std::string(200'000, 'x') + "\r\n");
    QTest::qWait(55);
    Answer discard(QMessageBox::No);
    m_document->close();
    EXPECT_TRUE(screen().screen().lines.empty());
}

TEST_P(LivePreviewTest, StandsWhereItStood) {
    auto *dock = control<QDockWidget>(loaded<MDIFrm>(), "LivePreviewDock");
    loaded<MDIFrm>()->addDockWidget(Qt::BottomDockWidgetArea, dock);
    restart();
    dock = control<QDockWidget>(loaded<MDIFrm>(), "LivePreviewDock");
    EXPECT_TRUE(dock->isVisible());
    EXPECT_EQ(loaded<MDIFrm>()->dockWidgetArea(dock), Qt::BottomDockWidgetArea);
    EXPECT_TRUE(m_document->menuItem("MnuVerLivePreview")->isChecked());
    // The panel's own button puts it away for good.
    dock->close();
    EXPECT_FALSE(m_document->menuItem("MnuVerLivePreview")->isChecked());
    restart();
    EXPECT_FALSE(preview().isVisible());
}

} // namespace
} // namespace zolt
