#include "platform/text_pane.h"

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <tuple>

using zolt::PaneEvents;
using zolt::TextPane;

namespace {

const char *const kFixedFont = "Liberation Mono";
const char *const kProportionalFont = "DejaVu Serif";

std::string randomLines(std::mt19937 &random, int pieces) {
    static const std::string kPieces[] = {"word ",
                                          "a, ",
                                          "   ",
                                          "\x9E"
                                          "0F9F90",
                                          "\xA0",
                                          "\r\n",
                                          "longlonglonglonglong",
                                          "f-i/x ",
                                          "\r",
                                          "(fi ffl AV) "};
    std::string text;
    for (int i = 0; i < pieces; ++i)
        text += kPieces[random() % std::size(kPieces)];
    return text;
}

/// What the eye sees: a caret's height at each offset. The pane is tall enough
/// to show all of its text, so that Qt lays all of it out.
void expectLinesAsDrawn(TextPane &pane) {
    QApplication::processEvents();
    std::set<int> heights;
    const std::string text = pane.Text();
    qsizetype lineStart = 0;
    for (qsizetype offset = 0; offset <= pane.length(); ++offset) {
        pane.setSelStart(offset);
        if (pane.SelStart() != offset)
            continue; // between CR and LF
        const QRect caret = pane.cursorRect();
        if (heights.insert(caret.top()).second)
            lineStart = offset;
        ASSERT_EQ(pane.lineOfOffset(offset), static_cast<int>(heights.size()) - 1) << "offset " << offset;
        ASSERT_EQ(pane.lineStartOfCaret(), lineStart) << "offset " << offset;
        const bool behindBlank = offset > 0 && text[static_cast<std::size_t>(offset) - 1] == ' ';
        ASSERT_TRUE(behindBlank || pane.lineWrapMode() == TextPane::NoWrap ||
                    caret.left() <= pane.viewport()->width())
            << "only blanks may hang over the edge";
    }
    EXPECT_EQ(pane.displayLineCount(), static_cast<int>(heights.size()));
}

struct TallPane {
    explicit TallPane(bool wraps, const char *family = kFixedFont) : pane(wraps) {
        pane.setPaneFont(QFont(QString::fromLatin1(family), 10));
        pane.resize(240, 6000);
        pane.show();
    }
    TextPane pane;
};

TEST(TextPaneLines, AreThoseThatAreDrawnInEitherPaneAndAnyFont) {
    std::mt19937 random(4);
    for (const bool wraps : {true, false}) {
        for (const char *family : {kFixedFont, kProportionalFont}) {
            TallPane tall(wraps, family);
            for (int round = 0; round < 4; ++round) {
                tall.pane.setText(randomLines(random, 60));
                expectLinesAsDrawn(tall.pane);
            }
        }
    }
}

TEST(TextPaneLines, BreakBehindBlanksAndLongWordsAnywhere) {
    TallPane tall(true);
    const int column = QFontMetrics(tall.pane.font()).horizontalAdvance(u'x');
    const int margins = tall.pane.width() - tall.pane.viewport()->width() +
                        2 * static_cast<int>(tall.pane.document()->documentMargin());
    tall.pane.resize(10 * column + margins, 600);
    const struct {
        const char *text;
        std::vector<qsizetype> lineStarts;
    } cases[] = {
        {"", {0}},
        {"0123456789", {0}},
        {"0123456789x", {0, 10}},
        {"01234 6789x", {0, 6}},
        {"0123456789    x", {0, 14}},     // blanks hang over the edge
        {"0123456789       ", {0}},       // also at the end
        {"ab 0123456789012", {0, 3, 13}}, // a long word begins a line
        {"012345678-x", {0, 10}},         // only blanks part words
        {"0123456789\r\nx", {0, 12}},
        {"\r\n\r\n", {0, 2, 4}},
    };
    for (const auto &c : cases) {
        tall.pane.setText(c.text);
        std::set<qsizetype> starts;
        for (qsizetype offset = 0; offset <= tall.pane.length(); ++offset) {
            tall.pane.setSelStart(offset);
            starts.insert(tall.pane.lineStartOfCaret());
        }
        EXPECT_EQ(std::vector(starts.begin(), starts.end()), c.lineStarts) << c.text;
        EXPECT_EQ(tall.pane.displayLineCount(), static_cast<int>(c.lineStarts.size())) << c.text;
    }
}

TEST(TextPaneLines, StayRightThroughEditsUndoResizesAndFonts) {
    std::mt19937 random(5);
    TallPane tall(true);
    TextPane &pane = tall.pane;
    pane.setText(randomLines(random, 40));
    const auto caretNow = [&] {
        return std::tuple{pane.length(), pane.lineOfOffset(pane.selEnd()), pane.lineStartOfCaret()};
    };
    auto reported = caretNow();
    QObject::connect(&pane.events(), &PaneEvents::Change, [&] { reported = caretNow(); });
    const auto somewhere = [&] {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(pane.length() + 1));
    };
    for (int round = 0; round < 100; ++round) {
        pane.setSelStart(somewhere());
        const std::string before = pane.Text();
        switch (random() % 13) {
        case 0:
            QTest::keyClick(&pane, Qt::Key_Return);
            break;
        case 1:
            QTest::keyClick(&pane, Qt::Key_Backspace);
            break;
        case 2:
            QTest::keyClick(&pane, Qt::Key_Delete);
            break;
        case 3:
            QTest::keyClicks(&pane, QStringLiteral("typed words "));
            break;
        case 4:
            pane.setSelLength(static_cast<qsizetype>(random() % 80));
            pane.setSelText(randomLines(random, 6));
            break;
        case 5:
            pane.undo();
            break;
        case 6:
            pane.redo();
            break;
        case 7:
            pane.resize(static_cast<int>(120 + random() % 300), 6000);
            break;
        case 8:
            pane.setPaneFont(QFont(pane.font().family(), static_cast<int>(7 + random() % 8)));
            break;
        case 9:
            pane.setSelLength(static_cast<qsizetype>(random() % 80));
            QTest::keyClick(&pane, random() % 2 ? Qt::Key_X : Qt::Key_V, Qt::ControlModifier);
            break;
        case 10:
            pane.setSelLength(static_cast<qsizetype>(random() % 80));
            QTest::keyClick(&pane, Qt::Key_A);
            break;
        case 11: {
            const QPoint place = pane.cursorRect().center();
            pane.setSelStart(somewhere());
            QMimeData mime;
            mime.setText(QStringLiteral("dropped words"));
            QDropEvent drop(place, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(pane.viewport(), &drop);
            break;
        }
        case 12: {
            QInputMethodEvent commit;
            commit.setCommitString(QStringLiteral("composed words"), random() % 2 ? 0 : -1, 0);
            QApplication::sendEvent(&pane, &commit);
            break;
        }
        }
        const bool changed = pane.Text() != before;
        ASSERT_EQ(changed ? reported : caretNow(), caretNow())
            << "round " << round << ": Change found the lines half made";
        expectLinesAsDrawn(pane);
        if (testing::Test::HasFatalFailure())
            FAIL() << "round " << round;
    }
}

TEST(TextPaneLines, AreRightInALongDocumentThatIsMostlyUnseen) {
    std::mt19937 random(6);
    const std::string chunk = randomLines(random, 200) + "\r\n";
    TextPane one(true);
    TextPane pane(true);
    std::string text;
    const int kChunks = 400;
    for (int i = 0; i < kChunks; ++i)
        text += chunk;
    one.setText(chunk);
    pane.setText(text);
    for (TextPane *each : {&one, &pane}) {
        each->setPaneFont(QFont(QString::fromLatin1(kFixedFont), 9));
        each->resize(300, 200);
        each->show();
    }
    for (const int width : {300, 211}) {
        one.resize(width, 200);
        pane.resize(width, 200);
        QApplication::processEvents();
        const int linesOfChunk = one.displayLineCount() - 1;
        for (const int place : {kChunks, 1, kChunks / 2})
            EXPECT_EQ(pane.lineOfOffset(static_cast<qsizetype>(chunk.size()) * place), linesOfChunk * place);
    }
    const int before = pane.lineOfOffset(pane.length());
    pane.setSelStart(static_cast<qsizetype>(chunk.size()) * 7);
    pane.setSelText("\r\n\r\n");
    EXPECT_EQ(pane.lineOfOffset(pane.length()), before + 2);
}

TEST(TextPaneLines, AResizeKeepsTheTextAtTheTopOfTheView) {
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "a paragraph of some words that is wrapped into several lines " + std::to_string(i) + "\r\n";
    TextPane pane(true);
    pane.setPaneFont(QFont(QString::fromLatin1(kFixedFont), 10));
    pane.resize(300, 300);
    pane.show();
    pane.setText(text);
    pane.verticalScrollBar()->setValue(900);
    QApplication::processEvents();
    const int top = pane.cursorForPosition({0, 0}).blockNumber();
    for (const int width : {200, 500, 300}) {
        pane.resize(width, 300);
        QApplication::processEvents();
        EXPECT_EQ(pane.cursorForPosition({0, 0}).blockNumber(), top) << width;
    }
}

TEST(TextPaneLines, ThePaneThatDoesNotWrapScrollsToItsLongestLine) {
    TextPane pane(false);
    pane.setPaneFont(QFont(QString::fromLatin1(kFixedFont), 10));
    pane.resize(200, 200);
    pane.show();
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "short\r\n";
    pane.setText(text + std::string(5000, 'x'));
    QApplication::processEvents();
    const int lineWidth = static_cast<int>(5000 * QFontMetricsF(pane.font()).horizontalAdvance(u'x'));
    EXPECT_GE(pane.horizontalScrollBar()->maximum(), lineWidth - pane.viewport()->width())
        << "also while the line hasn't been shown";
    pane.setSelStart(pane.length());
    EXPECT_LE(pane.cursorRect().left(), pane.viewport()->width());
}

} // namespace
