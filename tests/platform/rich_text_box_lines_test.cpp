#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "platform/shown_box.h"

#include <QInputMethodEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <gtest/gtest.h>
#include <set>
#include <tuple>

using namespace zolt;
using namespace zolt::test;

namespace {

/// Lines of words, long words, blanks, fonts of several heights, pictures and nothing.
RichText randomLines(std::mt19937 &random, int pieces) {
    RichTextBuilder builder;
    const std::uint16_t fonts[] = {0, builder.text().fontIndex("ZOLTBold"),
                                   builder.text().fontIndex("DejaVu Sans")};
    for (int i = 0; i < pieces; ++i) {
        const CharFormat format{.font = fonts[random() % 3],
                                .halfPoints = static_cast<std::uint16_t>(12 + 8 * (random() % 3))};
        switch (random() % 8) {
        case 0:
            builder.endParagraph();
            break;
        case 1:
            builder.append(samplePicture(RichPicture::Kind::Png), format);
            break;
        case 2:
            builder.append(std::string(random() % 60, 'w'), format);
            break;
        default:
            builder.append(random() % 2 ? "word " : "a\tb  ", format);
        }
    }
    return builder.text();
}

std::string numberedLines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "a paragraph of some words that is wrapped into several lines, number " + std::to_string(i) +
                "\r\n";
    return text;
}

/// What stands in the window, which isn't always what a new painting would give.
QImage onScreen(RichTextBox &box) {
    const QImage window =
        box.screen()->grabWindow(box.winId()).toImage().convertToFormat(QImage::Format_RGB32);
    return window.copy(QRect(box.viewport()->pos(), box.viewport()->size()));
}

qsizetype offsetAt(RichTextBox &box, QPoint point) {
    const int position = box.cursorForPosition(point).position();
    return position + box.document()->findBlock(position).blockNumber();
}

/// Lays everything out anew.
void layOutAnew(RichTextBox &box) {
    QTextOption option = box.document()->defaultTextOption();
    const qreal tabStop = option.tabStopDistance();
    for (const qreal distance : {tabStop + 1, tabStop}) {
        option.setTabStopDistance(distance);
        box.document()->setDefaultTextOption(option);
    }
    settle();
}

} // namespace

TEST(RichTextBoxLines, AgreeWithWhatIsDrawnAndClicked) {
    std::mt19937 random(7);
    for (int round = 0; round < 12; ++round) {
        ShownBox shown("", round % 2 == 0);
        RichTextBox &box = shown.box;
        box.resize(round % 2 ? 4000 : 240, 6000);
        box.setRichText(randomLines(random, 60));
        settle();
        const std::string text = box.Text();
        std::set<int> lineFeet;
        qsizetype lineStart = 0;
        for (qsizetype offset = 0; offset <= box.length(); ++offset) {
            box.setSelStart(offset);
            if (box.SelStart() != offset)
                continue; // between CR and LF
            const QRect caret = box.cursorRect();
            if (lineFeet.insert(caret.bottom()).second)
                lineStart = offset;
            ASSERT_EQ(box.lineOfOffset(offset), static_cast<int>(lineFeet.size()) - 1) << offset;
            ASSERT_EQ(box.lineStartOfCaret(), lineStart) << offset;
            const qsizetype hit = offsetAt(box, {caret.left(), caret.center().y()});
            ASSERT_EQ(box.lineOfOffset(hit), box.lineOfOffset(offset)) << offset;
            // Qt takes blanks that hang over the edge for one; a tab may have no width.
            const char at = text[static_cast<std::size_t>(std::min(offset, box.length() - 1))];
            ASSERT_TRUE(hit == offset || at == ' ' || at == '\t') << offset;
            shown.key(Qt::Key_Home);
            ASSERT_EQ(box.SelStart(), lineStart) << offset;
            shown.key(Qt::Key_Down);
            const int below = std::min(static_cast<int>(lineFeet.size()), box.lineCount() - 1);
            ASSERT_EQ(box.lineOfOffset(box.SelStart()), below) << offset;
            if (below == static_cast<int>(lineFeet.size())) {
                shown.key(Qt::Key_Up);
                ASSERT_EQ(box.SelStart(), lineStart) << offset;
            }
        }
        EXPECT_EQ(box.lineCount(), static_cast<int>(lineFeet.size()));
    }
}

TEST(RichTextBoxLines, StayRightThroughEditsUndoAndResizes) {
    std::mt19937 random(8);
    for (const bool wraps : {true, false}) {
        ShownBox shown("", wraps);
        RichTextBox &box = shown.box;
        box.setRichText(randomLines(random, 400));
        const auto caretNow = [&] {
            return std::tuple{box.length(), box.lineOfOffset(box.selEnd()), box.lineStartOfCaret()};
        };
        auto reported = caretNow();
        QObject::connect(&box.events(), &PaneEvents::Change, [&] { reported = caretNow(); });
        for (int round = 0; round < 60; ++round) {
            if (round % 4 == 0)
                box.setSelRichText(randomLines(random, 20));
            if (round % 8 == 1)
                box.setSelFontSize(8.0 + static_cast<double>(random() % 30));
            const std::string before = box.Text();
            shown.editSomehow(random, "x\r\n\r\ny");
            ASSERT_TRUE(box.Text() == before || reported == caretNow()) << round;
            if (round % 3 == 0)
                settle();
            const int line = box.lineOfOffset(box.length());
            const int selectedLine = box.lineOfOffset(box.selEnd());
            settle();
            EXPECT_EQ(box.lineOfOffset(box.length()), line) << round;
            const int scroll = box.verticalScrollBar()->value();
            box.setReadOnly(true); // no caret
            box.clearFocus();
            QApplication::processEvents();
            const QImage picture = onScreen(box);
            const int height = box.verticalScrollBar()->maximum();
            const int width = box.horizontalScrollBar()->maximum();
            layOutAnew(box);
            ASSERT_EQ(box.verticalScrollBar()->maximum(), height) << round;
            ASSERT_EQ(box.horizontalScrollBar()->maximum(), width) << round;
            ASSERT_EQ(box.lineOfOffset(box.selEnd()), selectedLine) << round;
            box.verticalScrollBar()->setValue(scroll);
            ASSERT_EQ(grab(box), picture) << round;
            box.setReadOnly(false);
            box.setFocus();
        }
    }
}

TEST(RichTextBoxLines, DoNotMoveUnderTheEyeWhileTheOthersAreMeasured) {
    RichTextBuilder builder;
    const std::uint16_t font = builder.text().fontIndex("DejaVu Sans");
    for (int i = 0; i < 3000; ++i) {
        builder.append(numberedLines(1).substr(0, static_cast<std::size_t>(20 + i % 49)),
                       {.font = font, .halfPoints = static_cast<std::uint16_t>(16 + i % 9)});
        builder.endParagraph();
    }
    ShownBox shown;
    RichTextBox &box = shown.box;
    box.setReadOnly(true);
    box.clearFocus();
    box.setRichText(builder.text());
    QScrollBar &bar = *box.verticalScrollBar();
    for (const double part : {0.5, 1.0}) {
        settle();
        bar.setValue(static_cast<int>(bar.maximum() * part));
        const qsizetype top = offsetAt(box, {0, 2});
        box.resize(box.width() - 1, box.height()); // all sizes are estimates again
        box.viewport()->repaint();
        const int estimated = bar.maximum();
        settle();
        EXPECT_NE(bar.maximum(), estimated) << "the estimate was good: nothing is tested here";
        EXPECT_EQ(offsetAt(box, {0, 2}), top);
        EXPECT_EQ(onScreen(box), grab(box));
    }
}

TEST(RichTextBoxLines, TheCaretStaysInSight) {
    for (const bool wraps : {true, false}) {
        ShownBox shown(numberedLines(300), wraps);
        RichTextBox &box = shown.box;
        const auto inSight = [&box] { return box.viewport()->rect().contains(box.cursorRect()); };
        box.setSelStart(box.length());
        EXPECT_TRUE(inSight());
        for (int i = 0; i < 30; ++i) {
            shown.type(QStringLiteral("some more words that wrap at last "));
            ASSERT_TRUE(inSight()) << i;
            shown.key(Qt::Key_Return);
            ASSERT_TRUE(inSight()) << i;
        }
        settle();
        EXPECT_TRUE(inSight());
        for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown}) {
            const bool up = key == Qt::Key_PageUp;
            qsizetype before = -1;
            int pages = 0;
            for (; box.SelStart() != before && pages < 1000; ++pages) {
                before = box.SelStart();
                shown.key(key);
                ASSERT_TRUE(inSight()) << pages;
                ASSERT_TRUE(up ? box.SelStart() <= before : box.SelStart() >= before);
            }
            EXPECT_GT(pages, 10);
            EXPECT_EQ(box.lineOfOffset(box.SelStart()), up ? 0 : box.lineCount() - 1);
        }
    }
}

TEST(RichTextBoxLines, ShowWhatAnInputMethodComposes) {
    ShownBox shown("abcd");
    RichTextBox &box = shown.box;
    box.setSelStart(2);
    QSignalSpy changes(&box.events(), &PaneEvents::Change);
    const QImage before = grab(box);
    const int caret = box.cursorRect().left();
    QInputMethodEvent composing(QStringLiteral("xy"), {{QInputMethodEvent::Cursor, 2, 1, {}}});
    QApplication::sendEvent(&box, &composing);
    EXPECT_EQ(box.Text(), "abcd");
    EXPECT_EQ(changes.count(), 0);
    EXPECT_NE(grab(box), before);
    EXPECT_GT(box.cursorRect().left(), caret);
    QInputMethodEvent given(QString(), {});
    QApplication::sendEvent(&box, &given);
    EXPECT_EQ(grab(box), before);
    EXPECT_EQ(changes.count(), 0);
}
