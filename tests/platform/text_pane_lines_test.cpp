#include "platform/pane_look.h"
#include "platform/text_pane.h"

#include "platform/shown.h"

#include <QTextBlock>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <tuple>
#include <vector>

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
                                          "(fi ffl AV) ",
                                          "\vBbold",
                                          "\vDdouble size "};
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
            TallPane plain(wraps, family);
            TallPane tall(wraps, family);
            tall.pane.setShows({.styles = true, .pictures = true, .limit = true});
            for (int round = 0; round < 4; ++round) {
                tall.pane.setText(randomLines(random, 60));
                expectLinesAsDrawn(tall.pane);
                plain.pane.setText(tall.pane.Text());
                EXPECT_EQ(tall.pane.displayLineCount(), plain.pane.displayLineCount());
                for (qsizetype offset = 0; offset <= plain.pane.length(); ++offset)
                    ASSERT_EQ(tall.pane.lineOfOffset(offset), plain.pane.lineOfOffset(offset));
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
    zolt::test::Shown<TextPane> shown(randomLines(random, 40));
    TextPane &pane = shown.box;
    pane.setShows({.styles = true, .pictures = true, .limit = true});
    pane.resize(240, 6000);
    const auto caretNow = [&] {
        return std::tuple{pane.length(), pane.lineOfOffset(pane.selEnd()), pane.lineStartOfCaret()};
    };
    auto reported = caretNow();
    QObject::connect(&pane.events(), &PaneEvents::Change, [&] { reported = caretNow(); });
    for (int round = 0; round < 100; ++round) {
        const std::string before = pane.Text();
        if (round % 8 == 0)
            pane.setPaneFont(QFont(QString::fromLatin1(kFixedFont), static_cast<int>(7 + random() % 8)));
        shown.editSomehow(random, randomLines(random, 6));
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
    std::vector<std::size_t> told;
    pane.setText(text, [&](std::size_t step, std::size_t total) {
        EXPECT_EQ(total, text.size());
        told.push_back(step);
        return true;
    });
    EXPECT_TRUE(pane.Text() == text);
    EXPECT_TRUE(told.size() > 1 && std::is_sorted(told.begin(), told.end()) && told.back() == text.size());
    EXPECT_FALSE(pane.canUndoToggle());
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

} // namespace
