#include "core/file.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/fonts.h"
#include "platform/program_folder.h"
#include "platform/shown_box.h"

#include <QClipboard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;

TEST(RichTextBoxContents, RandomRichTextsComeBack) {
    RichTextBox box;
    std::mt19937 random(31);
    for (int i = 0; i < 300; ++i) {
        const RichText text = withFontsInOrder(randomRichText(random));
        box.setRichText(text);
        ASSERT_EQ(box.richText(), text) << i << "\n" << rtfFromRichText(text);
        ASSERT_EQ(box.Text(), plainText(text)) << i;
        ASSERT_EQ(box.length(), static_cast<qsizetype>(plainText(text).size()));
    }
}

TEST(RichTextBoxContents, SettingReportsOneChangeAndForgetsUndo) {
    ShownBox shown("old");
    shown.type("x");
    QSignalSpy changes(&shown.box.events(), &PaneEvents::Change);
    shown.box.setRichText(sample());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(shown.box.document()->isUndoAvailable());
    EXPECT_EQ(shown.box.SelStart(), 0);
    shown.type("y");
    EXPECT_EQ(changes.count(), 2);
    EXPECT_FALSE(shown.box.setRichText(oneRun("other"), [](std::size_t, std::size_t) { return false; }));
    EXPECT_EQ(shown.box.Text(), "yplainbold \r\nend");
    EXPECT_EQ(changes.count(), 2);
}

TEST(RichTextBoxSelection, CountsALineEndTwiceAndAPictureOnce) {
    ShownBox shown;
    shown.box.setRichText(sample());
    EXPECT_EQ(shown.box.Text(), "plainbold \r\nend");
    shown.select(12, 3);
    EXPECT_EQ(shown.box.SelText(), "end");
    shown.select(10, 1); // CR alone: the whole line end
    EXPECT_EQ(shown.box.SelText(), "\r\n");
    EXPECT_EQ(shown.box.SelLength(), 2);
    shown.box.setSelStart(11);
    EXPECT_EQ(shown.box.SelStart(), 10);
    shown.select(9, 1);
    EXPECT_TRUE(shown.box.selRichText().paragraphs[0].runs[0].content.picture());
    shown.box.setSelText("");
    EXPECT_EQ(shown.box.Text(), "plainbold\r\nend");
    shown.select(7, 1000);
    EXPECT_EQ(shown.box.SelText(), "ld\r\nend");
    shown.box.setSelText("\r\n\x1F\x9E");
    EXPECT_EQ(shown.box.Text(), "plainbo\r\n\x1F\x9E");
    EXPECT_EQ(shown.box.SelStart(), 11);
    EXPECT_EQ(shown.box.richText().fonts, (std::vector<std::string>{"ZOLT", "ZOLTBold"}));
    EXPECT_EQ(shown.box.richText().paragraphs[1].runs[0].format.font, 1) << "the format of what was replaced";
}

TEST(RichTextBoxFormats, TellsWhatTheSelectionHasInCommon) {
    ShownBox shown;
    shown.box.setRichText(sample());
    shown.select(5, 4);
    EXPECT_EQ(shown.box.SelFontName(), "ZOLTBold");
    EXPECT_EQ(shown.box.SelFontSize(), 14);
    EXPECT_EQ(shown.box.SelColor(), 0xFFu);
    EXPECT_TRUE(shown.box.SelItalic());
    EXPECT_FALSE(shown.box.SelBold());
    shown.select(4, 1);
    EXPECT_EQ(shown.box.SelFontName(), "ZOLT");
    shown.select(4, 2);
    EXPECT_EQ(shown.box.SelFontName(), "");
    EXPECT_EQ(shown.box.SelFontSize(), 0);
    EXPECT_FALSE(shown.box.SelItalic());
}

TEST(RichTextBoxFormats, SetTheSelectionOrWhatIsTypedNext) {
    ShownBox shown("abcd");
    shown.select(1, 2);
    shown.box.setSelFontName("ZOLTInverse");
    shown.box.setSelFontSize(12.5);
    shown.box.setSelColor(0x00FF00);
    shown.box.setSelBold(true);
    shown.box.setSelUnderline(true);
    shown.box.setSelStrikeThru(true);
    RichText text = shown.box.richText();
    const CharFormat wanted{
        .font = 1, .halfPoints = 25, .colour = 0x00FF00, .bold = true, .underline = true, .strikeThru = true};
    ASSERT_EQ(text.paragraphs[0].runs.size(), 3u);
    EXPECT_EQ(text.paragraphs[0].runs[1], (zolt::Run{wanted, "bc"}));
    shown.box.setSelColor(kWindowText);
    EXPECT_EQ(shown.box.SelColor(), kWindowText);

    shown.box.setSelStart(4);
    shown.box.setSelFontName("ZOLTBold");
    shown.type("e");
    text = shown.box.richText();
    EXPECT_EQ(plainText(text), "abcde");
    EXPECT_EQ(text.fonts[text.paragraphs[0].runs.back().format.font], "ZOLTBold");
}

TEST(RichTextBoxFormats, OtherFontsShowCharactersAndTabs) {
    ASSERT_TRUE(loadFonts(installedDataFolder() + "/fonts"));
    ShownBox shown;
    shown.box.setProperty(
        "TextRTF",
        QByteArray("{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}{\\f1 ZOLT;}}\\fs20\\f0 a\\tab\\u945?\\'8c\\f1 "
                   "a\\tab\\u945?\\'8c}"));
    EXPECT_EQ(shown.box.Text(), "a\t\x8COEa\t\x8C\x8C");
    EXPECT_EQ(shown.box.toPlainText(), QStringLiteral("a\t\u03B1OEa\uE009\u03B1\u03B1"));
    const auto left = [&shown](int position) {
        QTextCursor cursor(shown.box.document());
        cursor.setPosition(position);
        return shown.box.cursorRect(cursor).left();
    };
    EXPECT_EQ(left(2) - left(0), 48) << "half an inch";
    EXPECT_EQ(left(7) - left(6), 8) << "a glyph of the calculator";

    // The byte takes the form of a new font, in one step of undo.
    const std::string rtf = shown.box.TextRTF();
    const std::string text = shown.box.Text();
    const QString tabs = shown.box.toPlainText();
    shown.select(1, 6);
    shown.box.setSelFontName("ZOLTBold");
    EXPECT_EQ(shown.box.toPlainText()[1], QChar(0xE009));
    EXPECT_EQ(shown.box.SelText(), text.substr(1, 6));
    shown.box.setSelFontName("Liberation Sans");
    EXPECT_EQ(shown.box.toPlainText().count(u'\t'), 2);
    EXPECT_EQ(shown.box.Text(), text);
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown.box.toPlainText(), tabs);
    EXPECT_EQ(shown.box.TextRTF(), rtf);

    shown.select(1, 0);
    shown.key(Qt::Key_Tab);
    EXPECT_EQ(shown.box.toPlainText().left(3), QStringLiteral("a\t\t"));
    shown.select(4, 0);
    shown.box.setSelText("\t\x8C");
    EXPECT_EQ(shown.box.Text(), "a\t\t\x8C\t\x8COEa\t\x8C\x8C");
}

TEST(RichTextBoxKeys, TypingBesideAPictureMakesNoPicture) {
    ShownBox shown;
    shown.box.setRichText(sample());
    shown.box.setSelStart(10);
    shown.type("x");
    EXPECT_EQ(shown.box.Text(), "plainbold x\r\nend");
    const RichText text = shown.box.richText();
    EXPECT_FALSE(text.paragraphs[0].runs.back().content.picture());
    shown.key(Qt::Key_Backspace);
    shown.key(Qt::Key_Backspace);
    EXPECT_EQ(shown.box.Text(), "plainbold\r\nend");
    shown.box.undo();
    EXPECT_EQ(shown.box.richText().paragraphs[0].runs[2], sample().paragraphs[0].runs[2]);
}

TEST(RichTextBoxClipboard, CarriesRichTextAndWhatTheCalculatorShows) {
    ShownBox shown;
    shown.box.setRichText(sample());
    shown.box.selectAll();
    shown.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "plainbold \nend");
    const QMimeData *copied = QApplication::clipboard()->mimeData();
    EXPECT_EQ(richTextFromRtf(copied->data("text/rtf").toStdString()), sample());

    ShownBox other("ab");
    other.select(1, 0);
    other.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(other.box.Text(), "aplainbold \r\nendb");
    EXPECT_EQ(other.box.SelStart(), 16);
    other.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(other.box.Text(), "ab") << "one step of undo";
}

TEST(RichTextBoxClipboard, OffersAPictureThatIsSelectedAlone) {
    ShownBox shown;
    RichTextBuilder builder;
    builder.append(samplePicture(RichPicture::Kind::Png), {});
    builder.append("a", {});
    builder.endParagraph();
    builder.append(samplePicture(RichPicture::Kind::Png), {});
    shown.box.setRichText(builder.text());
    const struct {
        qsizetype start, length;
        bool isPicture;
    } cases[] = {{0, 1, true}, {0, 2, false}, {1, 1, false}, {2, 2, false}, {4, 1, true}};
    for (const auto &c : cases) {
        shown.select(c.start, c.length);
        shown.box.copy();
        EXPECT_EQ(QApplication::clipboard()->mimeData()->hasImage(), c.isPicture) << c.start << c.length;
    }
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(8, 6));
    shown.box.setSelStart(2);
    shown.box.paste();
    EXPECT_EQ(shown.box.richText().paragraphs[0].runs.back(), builder.text().paragraphs[0].runs[0]);
}

TEST(RichTextBoxClipboard, TakesPicturesAndTexts) {
    ShownBox shown("ab");
    QImage picture(5, 3, QImage::Format_RGB32);
    picture.fill(Qt::black);
    auto *both = new QMimeData; // the clipboard owns it; a picture comes before a text
    both->setImageData(picture);
    both->setText(QStringLiteral("text"));
    QApplication::clipboard()->setMimeData(both);
    shown.select(1, 1);
    shown.key(Qt::Key_V, Qt::ControlModifier);
    const RichText text = shown.box.richText();
    ASSERT_EQ(text.paragraphs[0].runs.size(), 2u);
    const RichPicture *pasted = text.paragraphs[0].runs[1].content.picture();
    ASSERT_TRUE(pasted);
    EXPECT_EQ(pasted->width, 75);
    EXPECT_EQ(pasted->height, 45);
    EXPECT_NE(shown.box.TextRTF().find("{\\pict"), std::string::npos);
    QApplication::clipboard()->setText(QStringLiteral("\u03C0\nx"));
    shown.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown.box.Text(), "a \x87\r\nx");

    auto *page = new QMimeData; // the clipboard owns it
    page->setHtml(QStringLiteral("<b>bold</b>"));
    QApplication::clipboard()->setMimeData(page);
    EXPECT_FALSE(shown.box.canPaste());
    shown.box.paste();
    EXPECT_EQ(shown.box.Text(), "a \x87\r\nx");
    page->setText(QStringLiteral("bold"));
    shown.box.paste();
    EXPECT_EQ(shown.box.Text(), "a \x87\r\nxbold");
    EXPECT_FALSE(shown.box.SelBold());
}

TEST(RichTextBoxDrop, TakesRichText) {
    ShownBox shown("ab");
    QMimeData rich;
    rich.setData(QStringLiteral("text/rtf"), QByteArray::fromStdString(rtfFromRichText(sample())));
    EXPECT_TRUE(shown.drop(rich, 1));
    EXPECT_EQ(shown.box.Text(), "aplainbold \r\nendb");
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown.box.Text(), "ab");
}

TEST(RichTextBoxFiles, LoadWhatTheySaved) {
    QTemporaryDir folder;
    const std::string path = folder.filePath("a.rtf").toStdString();
    RichTextBox box;
    box.setRichText(sample());
    EXPECT_EQ(box.SaveFile(path), "");
    box.setText("other");
    EXPECT_EQ(box.LoadFile(path), "");
    EXPECT_EQ(box.richText(), sample());
    EXPECT_NE(box.LoadFile(path + ".none"), "");
    EXPECT_EQ(writeFile(path, pngFile()), "");
    EXPECT_NE(box.LoadFile(path), "");
    EXPECT_EQ(box.richText(), sample());
    EXPECT_EQ(writeFile(path, "plain {text}\r\n"), "");
    EXPECT_EQ(box.LoadFile(path), "");
    EXPECT_EQ(box.Text(), "plain {text}");
}
