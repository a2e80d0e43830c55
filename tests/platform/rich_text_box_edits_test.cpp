#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "platform/shown_box.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;

TEST(RichTextBoxTyping, WhatIsTypedOverASelectionLooksLikeItsFirstCharacter) {
    for (const bool backwards : {false, true}) {
        ShownBox shown;
        shown.box.setRichText(sample());
        shown.select(5, 0);
        for (int i = 0; i < 4; ++i)
            shown.key(Qt::Key_Right, Qt::ShiftModifier);
        if (backwards) {
            shown.select(9, 0);
            for (int i = 0; i < 4; ++i)
                shown.key(Qt::Key_Left, Qt::ShiftModifier);
        }
        shown.type("new");
        RichText expected = sample();
        expected.paragraphs[0].runs[1].content = "new";
        EXPECT_EQ(shown.box.richText(), expected);
        shown.key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(shown.box.richText(), sample()) << "one step";
    }
}

TEST(RichTextBoxUndo, TakesBackTheReplacingOfAllWhichEditsOnlyWhatDiffers) {
    std::mt19937 random(1);
    for (int round = 0; round < 60; ++round) {
        RichTextBox box;
        box.setRichText(randomRichText(random));
        const RichText before = box.richText();
        RichText text = round % 4 ? before : randomRichText(random);
        const auto at =
            text.paragraphs.begin() + static_cast<std::ptrdiff_t>(random() % text.paragraphs.size());
        if (round % 4 == 1)
            text.paragraphs.insert(at, oneRun("new").paragraphs[0]);
        else if (round % 4 == 2 && text.paragraphs.size() > 1)
            text.paragraphs.erase(at);
        else if (round % 4 == 3)
            *at = oneRun("changed").paragraphs[0];
        RichTextBox other;
        other.setRichText(text);
        box.replaceRichText(text);
        ASSERT_EQ(box.richText(), other.richText()) << round;
        box.undo();
        ASSERT_EQ(box.richText(), before) << round;
        EXPECT_FALSE(box.document()->isUndoAvailable());
    }
    ShownBox shown;
    RichText text = sample();
    shown.box.setRichText(text);
    std::vector<int> places;
    QObject::connect(shown.box.document(), &QTextDocument::contentsChange,
                     [&places](int from, int, int) { places.push_back(from); });
    shown.box.replaceRichText(text);
    EXPECT_TRUE(places.empty());
    text.paragraphs[1].runs[0].content = "END";
    shown.box.replaceRichText(text);
    EXPECT_EQ(places, std::vector<int>{11});
}

TEST(RichTextBoxUndo, TakesBackALookOfAllAlsoInEmptyLines) {
    ShownBox shown;
    RichTextBuilder builder;
    builder.endParagraph();
    builder.append("a", {});
    builder.append(samplePicture(RichPicture::Kind::Png), {});
    builder.endParagraph();
    builder.endParagraph();
    shown.box.setRichText(builder.text());
    const auto sizesOfTyped = [&shown] {
        std::vector<double> sizes;
        for (const qsizetype line : {0, 2, 4, 6, 8}) {
            shown.box.setSelStart(line);
            sizes.push_back(shown.box.SelFontSize());
        }
        return sizes;
    };
    const std::vector<double> old(5, 10.0);
    EXPECT_EQ(sizesOfTyped(), old);
    shown.select(0, shown.box.length());
    shown.box.setSelFontSize(24);
    EXPECT_EQ(sizesOfTyped(), std::vector<double>(5, 24.0));
    shown.box.undo();
    EXPECT_EQ(shown.box.richText(), builder.text());
    EXPECT_EQ(sizesOfTyped(), old);
    shown.box.redo();
    EXPECT_EQ(sizesOfTyped(), std::vector<double>(5, 24.0));

    // What is typed where all was deleted looks like that.
    shown.select(0, shown.box.length());
    shown.key(Qt::Key_Delete);
    shown.type("x");
    EXPECT_EQ(shown.box.richText().paragraphs[0].runs[0].format.halfPoints, 48);
    shown.box.setText("");
    shown.type("x");
    EXPECT_EQ(shown.box.richText().paragraphs[0].runs[0].format.halfPoints, 48);
}

TEST(RichTextBoxReplacing, EachStretchLooksLikeItsFirstCharacter) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        RichTextBox box;
        RichTextBox other;
        RichText text = randomRichText(random);
        for (Paragraph &paragraph : text.paragraphs) {
            for (zolt::Run &run : paragraph.runs) {
                std::string characters(run.content.characters());
                for (char &c : characters)
                    c = "ab "[static_cast<unsigned char>(c) % 3];
                if (!run.content.picture())
                    run.content = characters;
            }
        }
        box.setRichText(text);
        other.setRichText(text);
        const std::string finds[] = {"a", "ab", "\r\n", "a\r\nb", " ", "aa"};
        const std::string by[] = {"", "x", "1\r\n2", "longer"};
        const std::string find = finds[random() % std::size(finds)];
        const std::string replacement = by[random() % std::size(by)];
        std::vector<std::size_t> offsets;
        const std::string bytes = box.Text();
        for (auto at = bytes.find(find); at != std::string::npos; at = bytes.find(find, at + find.size()))
            offsets.push_back(at);

        box.replaceEach(offsets, find.size(), replacement);
        for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
            other.setSelStart(static_cast<qsizetype>(*offset));
            other.setSelLength(static_cast<qsizetype>(find.size()));
            other.setSelText(replacement);
        }
        ASSERT_EQ(box.richText(), other.richText()) << round;
        EXPECT_EQ(box.SelStart(), 0);
        if (!offsets.empty())
            box.undo();
        ASSERT_EQ(box.richText(), withFontsInOrder(text)) << round;
    }
}
