#include "platform/text_pane.h"

#include "platform/shown.h"
#include "support/texts.h"

#include <QSignalSpy>
#include <QTextBlock>
#include <functional>
#include <gtest/gtest.h>
#include <random>

using zolt::PaneEvents;
using zolt::TextPane;

namespace {

/// Pieces that make the line end rule bite.
std::string randomText(std::mt19937 &random, int pieces) {
    static const std::string kPieces[] = {"\r\n", "\r", "\n", "a", "bc", std::string(1, '\0'), "\xA0", "\t"};
    std::string text;
    for (int i = 0; i < pieces; ++i)
        text += kPieces[random() % std::size(kPieces)];
    return text;
}

TEST(TextPaneText, AllBytesAndLineEndMixturesComeBackAsTheyWent) {
    const std::string all = zolt::test::everyByte();
    std::string reversed(all.rbegin(), all.rend());
    const std::string texts[] = {
        "",       "\r\n",      "\r",          "\n",           "\n\r",        "\r\r\n",
        "\r\n\n", "a\r\n\r\n", "a\rb\nc\r\n", "\r\n\r\r\n\n", all + reversed};
    for (const std::string &text : texts) {
        TextPane pane(false);
        pane.setText(text);
        EXPECT_EQ(pane.Text(), text);
        EXPECT_EQ(pane.length(), static_cast<qsizetype>(text.size()));
        pane.setText("");
        pane.setSelText(text);
        EXPECT_EQ(pane.Text(), text);
        pane.setSelStart(0);
        pane.setSelLength(pane.length());
        EXPECT_EQ(pane.SelText(), text);
    }
}

/// More than is put in at one go.
std::string longText() {
    std::string text;
    while (text.size() < 600'000)
        text += std::to_string(text.size()) + " \vBbold\vB and \r lone ones \n\r\n";
    return text;
}

TEST(TextPaneText, ALongOneIsAllThereForWhoeverAsks) {
    using Pane = zolt::test::Shown<TextPane>;
    const std::string text = longText();
    const auto size = static_cast<qsizetype>(text.size());
    const std::function<void(Pane &)> ways[] = {
        [](Pane &pane) { pane.type("x"); },
        [](Pane &pane) {
            pane.key(Qt::Key_End, Qt::ControlModifier);
            pane.type("x");
        },
        [&](Pane &pane) {
            pane.select(size - 9, 4);
            pane.box.copy();
            pane.box.setSelStart(2);
            pane.box.paste();
        },
        [](Pane &pane) { pane.box.setSelText("12"); },
        [&](Pane &pane) {
            pane.box.replaceEach({7, text.size() / 2}, 3, "y");
        },
        [](Pane &pane) {
            QMimeData dropped;
            dropped.setText(QStringLiteral("dropped"));
            EXPECT_TRUE(pane.drop(dropped, 5));
        },
        [](Pane &pane) {
            QInputMethodEvent composed;
            composed.setCommitString(QStringLiteral("z"));
            QApplication::sendEvent(&pane.box, &composed);
        },
    };
    for (const auto &way : ways) {
        Pane whole(text), asked(text);
        EXPECT_EQ(whole.box.Text(), text);
        for (Pane *pane : {&whole, &asked})
            way(*pane);
        EXPECT_TRUE(asked.box.Text() == whole.box.Text() && asked.box.Text() != text);
        EXPECT_EQ(asked.box.SelStart(), whole.box.SelStart());
        EXPECT_EQ(asked.box.lineOfOffset(size - 1), whole.box.lineOfOffset(size - 1));
        asked.box.undo();
        EXPECT_TRUE(asked.box.Text() == text);
    }
}

TEST(TextPaneText, AHiddenPanesIsThereOnceItIsRead) {
    for (const std::string &text : {std::string("a\r\nshort one"), longText()}) {
        TextPane pane(true);
        QSignalSpy changes(&pane.events(), &PaneEvents::Change);
        for (const auto &read : std::initializer_list<std::function<std::string()>>{
                 [&] { return pane.Text().substr(3, 4); }, [&] { return pane.SelText(); },
                 [&] { return pane.property("Text").toByteArray().toStdString().substr(3, 4); }}) {
            pane.setTextLater(text, 3, 4);
            EXPECT_EQ(pane.document()->characterCount(), 1);
            EXPECT_EQ(read(), text.substr(3, 4));
            EXPECT_TRUE(pane.Text() == text);
            EXPECT_EQ(pane.length(), static_cast<qsizetype>(text.size()));
        }
        EXPECT_TRUE(changes.isEmpty());
    }
}

TEST(TextPaneText, ALongOneComesBitByBitWithoutAChange) {
    zolt::test::Shown<TextPane> pane(longText());
    const QSignalSpy changes(&pane.box.events(), &PaneEvents::Change);
    const int lines = pane.box.blockCount();
    const qsizetype length = pane.box.length();
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane.box.document()->isUndoRedoEnabled(); }));
    EXPECT_LT(lines, pane.box.blockCount());
    EXPECT_EQ(pane.box.length(), length);
    EXPECT_FALSE(pane.box.canUndoToggle());
    EXPECT_TRUE(changes.isEmpty());
    pane.box.setText(longText());
    pane.box.setText("another one");
    pane.type("x");
    EXPECT_EQ(pane.box.Text(), "xanother one");
    pane.box.undo();
    EXPECT_EQ(pane.box.Text(), "another one");
}

TEST(TextPaneText, OnlyCrLfEndsALineOfThePane) {
    TextPane pane(false);
    pane.setText("a\rb\nc\r\nd\r\r\n");
    EXPECT_EQ(pane.blockCount(), 3);
}

TEST(TextPaneText, CrAndLfThatComeTogetherMakeALineEnd) {
    TextPane pane(false);
    pane.setText("a\rx\nb");
    pane.setSelStart(2);
    pane.setSelLength(1);
    pane.setSelText("");
    EXPECT_EQ(pane.Text(), "a\r\nb");
    EXPECT_EQ(pane.blockCount(), 2);
    pane.undo();
    EXPECT_EQ(pane.Text(), "a\rx\nb");
    EXPECT_EQ(pane.blockCount(), 1);
    EXPECT_EQ(pane.SelText(), "x");
    pane.redo();
    EXPECT_EQ(pane.blockCount(), 2);

    pane.setText("\r\r\n\n");
    pane.setSelStart(1);
    pane.setSelLength(2);
    pane.setSelText("\nabc\r");
    EXPECT_EQ(pane.Text(), "\r\nabc\r\n");
    EXPECT_EQ(pane.blockCount(), 3) << "one at either end of the insertion";
    pane.undo();
    EXPECT_EQ(pane.Text(), "\r\r\n\n");
}

TEST(TextPaneSelection, OffsetsAgreeWithTheTextForEveryRange) {
    std::mt19937 random(1);
    for (int round = 0; round < 30; ++round) {
        const std::string text = randomText(random, 12);
        TextPane pane(round % 2 == 0);
        pane.setText(text);
        const auto size = static_cast<qsizetype>(text.size());
        const auto splitsPair = [&](qsizetype offset) {
            return offset > 0 && offset < size && text[std::size_t(offset) - 1] == '\r' &&
                   text[std::size_t(offset)] == '\n';
        };
        for (qsizetype start = 0; start <= size; ++start) {
            for (qsizetype end = start; end <= size; ++end) {
                if (splitsPair(start) || splitsPair(end))
                    continue;
                pane.setSelStart(start);
                ASSERT_EQ(pane.SelLength(), 0);
                pane.setSelLength(end - start);
                ASSERT_EQ(pane.SelStart(), start);
                ASSERT_EQ(pane.SelLength(), end - start);
                ASSERT_EQ(pane.selEnd(), end);
                ASSERT_EQ(pane.SelText(), text.substr(std::size_t(start), std::size_t(end - start)));
            }
        }
    }
}

TEST(TextPaneSelection, TakesTheNearestOffsetInside) {
    TextPane pane(false);
    pane.setText("ab\r\ncd");
    const struct {
        qsizetype offset, expected;
    } cases[] = {{-5, 0}, {3, 2}, {4, 4}, {6, 6}, {7, 6}, {qsizetype{1} << 40, 6}};
    for (const auto &c : cases) {
        pane.setSelStart(c.offset);
        EXPECT_EQ(pane.SelStart(), c.expected) << c.offset;
    }
    pane.setSelStart(4);
    pane.setSelLength(qsizetype{1} << 40);
    EXPECT_EQ(pane.SelText(), "cd");
    pane.setSelLength(-3);
    EXPECT_EQ(pane.SelLength(), 0);
    EXPECT_EQ(pane.SelStart(), 4);
}

TEST(TextPaneSelection, ReplacingAgreesWithTheSameOnAString) {
    std::mt19937 random(2);
    for (int round = 0; round < 300; ++round) {
        std::string text = randomText(random, 10);
        const std::string inserted = randomText(random, static_cast<int>(random() % 4));
        TextPane pane(false);
        pane.setText(text);
        pane.setSelStart(static_cast<qsizetype>(random() % (text.size() + 1)));
        pane.setSelLength(static_cast<qsizetype>(random() % (text.size() + 1)));
        const auto start = static_cast<std::size_t>(pane.SelStart());
        text.replace(start, static_cast<std::size_t>(pane.SelLength()), inserted);
        const std::string before = pane.Text();
        pane.setSelText(inserted);
        ASSERT_EQ(pane.Text(), text);
        TextPane fresh(false);
        fresh.setText(text);
        ASSERT_EQ(pane.blockCount(), fresh.blockCount());
        const std::size_t caret = start + inserted.size();
        const bool splitsPair = caret > 0 && text.substr(caret - 1, 2) == "\r\n";
        EXPECT_EQ(pane.SelStart(), static_cast<qsizetype>(splitsPair ? caret + 1 : caret));
        EXPECT_EQ(pane.SelLength(), 0);
        pane.undo();
        EXPECT_EQ(pane.Text(), before);
    }
}

TEST(TextPaneReports, EveryChangeByTheProgramReportsChangeOnce) {
    TextPane pane(true);
    QSignalSpy changes(&pane.events(), &PaneEvents::Change);
    const auto reported = [&] {
        return std::exchange(static_cast<QList<QList<QVariant>> &>(changes), {}).size();
    };
    pane.setText("abc");
    EXPECT_EQ(reported(), 1);
    pane.setSelText("x");
    EXPECT_EQ(reported(), 1);
    pane.replaceText("xybc");
    EXPECT_EQ(reported(), 1);
    pane.undoToggle();
    EXPECT_EQ(reported(), 1);
    pane.setSelStart(2);
    pane.setColours(Qt::red, Qt::black);
    pane.setPaneFont(QFont(QStringLiteral("Courier"), 14));
    EXPECT_EQ(reported(), 0);
}

TEST(TextPaneReports, ChangeFindsTheCaretWhereItStays) {
    TextPane pane(false);
    std::vector<qsizetype> carets;
    QObject::connect(&pane.events(), &PaneEvents::Change,
                     [&] { carets.push_back(pane.SelStart() + pane.SelLength()); });
    pane.setText("one two");
    pane.setSelStart(1);
    pane.setSelText("123");
    pane.setSelStart(0);
    pane.undo();
    pane.redo();
    pane.replaceText("one three");
    EXPECT_EQ(carets, (std::vector<qsizetype>{0, 4, 1, 4, 0}));
}

TEST(TextPaneUndo, ReplacingTheTextIsOneStepThatKeepsWhatAgrees) {
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        const std::string before = randomText(random, 8);
        const std::string after = randomText(random, 8);
        TextPane pane(false);
        pane.setText(before);
        pane.setSelStart(1);
        pane.setSelLength(2);
        const std::string selected = pane.SelText();
        pane.replaceText(after);
        ASSERT_EQ(pane.Text(), after);
        ASSERT_EQ(pane.SelStart(), 0);
        if (before == after)
            continue;
        pane.undo();
        ASSERT_EQ(pane.Text(), before);
        EXPECT_EQ(pane.SelText(), selected);
        pane.redo();
        ASSERT_EQ(pane.Text(), after);
        EXPECT_EQ(pane.SelStart(), 0);
    }
}

TEST(TextPaneUndo, ReplacingSeveralStretchesIsOneStep) {
    TextPane pane(false);
    pane.setText("one\r\none\rone");
    pane.setSelStart(1);
    pane.setSelLength(3);
    pane.replaceEach({0, 5, 9}, 3, "\n");
    EXPECT_EQ(pane.Text(), "\n\r\n\n\r\n");
    EXPECT_EQ(pane.SelStart(), 0);
    pane.undo();
    EXPECT_EQ(pane.Text(), "one\r\none\rone");
    EXPECT_EQ(pane.SelText(), "ne");
}

} // namespace
