#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/document/graphic/edit_graph_fullscreen_frm.h"

#include "core/codes.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rich_text_samples.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/rich_text_box.h"
#include "shell/tools/caracter_table_frm.h"
#include "shell/tools/date_time_frm.h"
#include "shell/tools/edit_text_find_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTableWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace zolt {
namespace {

using namespace test;

/// The styles as the menus and the toolbar name them.
struct StyleCase {
    const char *item;
    const char *key;
    const char *font;
    qsizetype lastColumn;
};
constexpr StyleCase kStyleCases[] = {
    {"Negrito", "Bold", "ZOLTBold", 33},
    {"Itálico", "Itálico à direita", "ZOLTItalicRight", 33},
    {"Itálicoàesquerda", "Itálico à esquerda", "ZOLTItalicLeft", 33},
    {"Sublinhado", "Underline", "ZOLTUnderline", 33},
    {"Inverso", "Inverso", "ZOLTInverse", 33},
    {"Superioràlinha", "Superior à linha", "ZOLTExponent", 33},
    {"Inferioràlinha", "Inferior à linha", "ZOLTIndice", 33},
    {"Duplalargura", "Dupla largura", "ZOLTDouble", 16},
};

class GraphicalEdition : public ProgramTest {
protected:
    GraphicalEdition() { begin(); }

    void begin() { m_window = qobject_cast<EditGraphFrm *>(&startEdition(2)); }
    RichTextBox &pane() { return m_window->activeRichPane(); }
    void select(qsizetype start, qsizetype length) {
        pane().setSelStart(start);
        pane().setSelLength(length);
    }
    /// A document of plain text in which a part is selected.
    void put(std::string_view text, qsizetype start, qsizetype length) {
        select(0, pane().length());
        pane().setSelFontName("ZOLT");
        pane().setSelText(text);
        select(start, length);
    }
    /// Puts a picture in the place of the selection, as a user brings one from elsewhere.
    void pastePicture() {
        QImage picture(4, 6, QImage::Format_RGB32);
        picture.fill(Qt::black);
        QGuiApplication::clipboard()->setImage(picture);
        call(m_window, "EditarColar");
    }
    void chooseColour(const char *operation, QColor colour, bool accept = true) {
        whenModal("QColorDialog", [=](QWidget *window) {
            auto *dialog = qobject_cast<QColorDialog *>(window);
            dialog->setCurrentColor(colour);
            accept ? dialog->accept() : dialog->reject();
        });
        call(m_window, operation);
    }
    void choose(const char *menuItem) { m_window->menuItem(menuItem)->trigger(); }
    QAction *tool(const char *key) {
        return loaded<MDIFrm>()->toolbar(5)->findChild<QAction *>(QString::fromUtf8(key));
    }
    void pressTool(const char *key) { tool(key)->trigger(); }
    /// The document with what isn't plain in brackets: "<Bold:text>", "<picture>".
    std::string shown() {
        std::string text;
        const RichText document = pane().richText();
        for (const Paragraph &paragraph : document.paragraphs) {
            text += &paragraph == &document.paragraphs.front() ? "" : "\r\n";
            for (const zolt::Run &run : paragraph.runs) {
                const std::string characters(run.content.characters());
                std::string_view font = document.fonts[run.format.font];
                font.remove_prefix(font.starts_with("ZOLT") ? 4 : 0);
                text += run.content.picture() ? "<picture>"
                        : font.empty()        ? characters
                                              : "<" + std::string(font) + ":" + characters + ">";
            }
        }
        return text;
    }
    /// Opens a file of these bytes.
    void open(const char *name, std::string_view bytes) {
        writeBytes(name, bytes);
        answerFileDialog(path(name));
        call(m_window, "FicheiroAbrir");
    }
    void saveAs(const char *name) {
        answerFileDialog(path(name));
        call(m_window, "FicheiroGuardarComo");
    }

    EditGraphFrm *m_window = nullptr;
};

TEST_F(GraphicalEdition, BeginsWithABlankInTheLookOfTheSettings) {
    shared::settings.TFntSize = 18;
    shared::settings.TFntColr = "255";
    shared::settings.TFntBckC = "3956797";
    leave();
    begin();
    const CharFormat look{.font = 0, .halfPoints = 36, .colour = 255};
    for (const int number : {1, 2}) {
        const RichTextBox &box = m_window->richPane(number);
        EXPECT_EQ(box.richText(), oneRun(" ", look));
        EXPECT_EQ(box.palette().color(QPalette::Base), QColor(0x3D, 0x60, 0x3C));
    }
    QTest::keyClicks(&pane(), QStringLiteral("x"));
    EXPECT_EQ(pane().richText(), oneRun("x ", look));
    EXPECT_EQ(control<QComboBox>(loaded<MDIFrm>(), "Combo3")->currentText(), QStringLiteral("18"));
}

TEST_F(GraphicalEdition, AStyleReachesToItsLastColumnByMenusAndToolbarInBothPanes) {
    for (const std::string applied : {"applied", "aplied"}) { // with wrap, and without
        for (const StyleCase &style : kStyleCases) {
            const QString item = QString::fromUtf8(style.item);
            const std::string line(static_cast<std::size_t>(style.lastColumn), 'x');
            const std::function<void()> ways[] = {
                [&] { choose(qPrintable(QStringLiteral("MnuFormatarEstilo") + item)); },
                [&] {
                    control<QAction>(m_window->popUp(), qPrintable(QStringLiteral("MnuPopUpEstilo") + item))
                        ->trigger();
                },
                [&] { pressTool(style.key); }};
            for (const auto &way : ways) {
                put("first\r\n" + line + "y", 7, style.lastColumn);
                way();
                EXPECT_EQ(shown(), "first\r\n<" + std::string(style.font).substr(4) + ":" + line + ">y");
                put("first\r\n" + line + "y", 8, style.lastColumn);
                Answer ok(QMessageBox::Ok);
                way();
                EXPECT_EQ(ok.text().toStdString(), "This formatting can only be " + applied +
                                                       " as far as the " + std::to_string(line.size()) +
                                                       "\u00BACharacter in each line.");
                EXPECT_EQ(shown(), "first\r\n" + line + "y");
            }
        }
        call(m_window, "EditarTranslinearpalavras");
    }
}

TEST_F(GraphicalEdition, ASelectionOverLinesOrAtAStyleIsRefusedAndNormalClearsIt) {
    const char *formatted = "The selection is already formatted.\r\nBefore using the desired style, \r\n"
                            "remove the one already applied.";
    const std::string beyond(40, '-');
    const std::string text = "abcdef" + beyond + "\r\nx";
    for (const char *lines : {"Select one line at a time.", "Select one line at a time"}) {
        const struct {
            qsizetype start, length;
            const char *message;
        } cases[] = {
            {0, 6, formatted}, {2, 1, formatted},
            {3, 3, formatted}, {0, 2, formatted}, // the style begins right behind it
            {5, 50, lines},                       // which counts before column and style
        };
        for (const auto &c : cases) {
            put(text, 2, 2);
            choose("MnuFormatarEstiloNegrito");
            select(c.start, c.length);
            Answer ok(QMessageBox::Ok);
            pressTool("Itálico à direita");
            EXPECT_EQ(ok.text(), QString::fromUtf8(c.message)) << c.start;
            EXPECT_EQ(shown(), "ab<Bold:cd>ef" + beyond + "\r\nx");
            EXPECT_EQ(pane().SelStart(), c.start);
            EXPECT_FALSE(tool("Itálico à direita")->isChecked());
        }
        select(4, 2); // behind a style
        pressTool("Itálico à direita");
        EXPECT_EQ(shown(), "ab<Bold:cd><ItalicRight:ef>" + beyond + "\r\nx");
        select(0, pane().length());
        pressTool("Normal");
        EXPECT_EQ(shown(), text);
        call(m_window, "EditarTranslinearpalavras");
    }
}

TEST_F(GraphicalEdition, AStyleWithoutASelectionIsThatOfWhatIsTypedNext) {
    const std::string text(40, '-');
    put(text, 40, 0);
    pressTool("Dupla largura");
    EXPECT_TRUE(tool("Dupla largura")->isChecked());
    QTest::keyClicks(&pane(), QStringLiteral("x"));
    pressTool("Normal");
    QTest::keyClicks(&pane(), QStringLiteral("y"));
    EXPECT_EQ(shown(), text + "<Double:x>y");
    // So it is inside a word, and on the whole screen.
    put("ab", 1, 0);
    pressTool("Bold");
    EXPECT_TRUE(tool("Bold")->isChecked());
    call(m_window, "MnuVerEcrainteiro");
    auto *screen = loaded<EditGraphFullscreenFrm>();
    QTest::keyClicks(control<QWidget>(screen, "Text1"), QStringLiteral("x"));
    screen->close();
    deleteClosed();
    EXPECT_EQ(shown(), "a<Bold:x>b");
    // Another document begins in its own look.
    pressTool("Bold");
    open("other.zlg", "{\\rtf1{\\fonttbl{\\f0 ZOLTInverse;}}\\f0 z}");
    QTest::keyClicks(&pane(), QStringLiteral("x"));
    EXPECT_EQ(shown(), "<Inverse:xz>");
    pressTool("Bold");
    Answer ok(QMessageBox::Ok);
    call(m_window, "FicheiroNovo");
    EXPECT_EQ(m_window->richPane(2).Text(), "");
    QTest::keyClicks(&pane(), QStringLiteral("x"));
    EXPECT_EQ(shown(), "x");
}

TEST_F(GraphicalEdition, TheToolbarShowsTheStyleAtTheCaret) {
    const auto checked = [] {
        std::string keys;
        for (const QAction *action : loaded<MDIFrm>()->toolbar(5)->actions())
            if (action->isChecked())
                keys += action->objectName().toStdString();
        return keys;
    };
    put("abc", 1, 1);
    pressTool("Inverso");
    EXPECT_EQ(checked(), "Inverso");
    QTest::keyClick(&pane(), Qt::Key_Home);
    std::string seen = checked();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&pane(), Qt::Key_Right);
        seen += " " + checked();
    }
    EXPECT_EQ(seen, "Normal Normal Inverso Normal");
    select(0, 3);
    EXPECT_EQ(checked(), "");
    call(m_window, "EditarTranslinearpalavras");
    select(1, 1);
    EXPECT_EQ(checked(), "Inverso");
}

TEST_F(GraphicalEdition, EveryCommandIsTakenBackAndForthWithLooksAndSelection) {
    const auto item = [this](const char *name) { return [this, name] { choose(name); }; };
    const std::string document = "a\xE9Ya <Bold:\xC7z>\xFF";
    const struct {
        std::function<void()> act;
        qsizetype start, length;
        std::string after;
    } cases[] = {
        {item("MnuFormatarEstiloSublinhado"), 2, 2, "a\xE9<Underline:Ya> <Bold:\xC7z>\xFF"},
        {item("MnuFormatarEstiloNormal"), 4, 2, "a\xE9Ya \xC7<Bold:z>\xFF"},
        {item("MnuFormatarMaiusculasminusculasMai"), 1, 6, "a\xC9YA <Bold:\xC7Z>\xFF"},
        {item("MnuFormatarMaiusculasminusculasMin"), 1, 6, "a\xE9ya <Bold:\xE7z>\xFF"},
        {item("MnuFormatarMaiusculasminusculasInverter"), 1, 6, "a\xC9yA <Bold:\xE7Z>\xFF"},
        {item("MnuFormatarMaiusculasminusculasRetAcent"), 1, 6, "aeYa <Bold:Cz>\xFF"},
        {item("MnuInserirLinhahorizontal"), 2, 3, "a\xE9" + std::string(33, '-') + "\r\n<Bold:\xC7z>\xFF"},
        {item("MnuFormatarTamanhodaletra24"), 2, 3, document},
        {item("MnuFormatarAltocontraste"), 2, 3, document},
        {item("MnuFormatarPadrão"), 6, 1, document},
        {[this] { chooseColour("EscolherCorForeground", Qt::red); }, 2, 3, document},
        {item("MnuEditarCortar"), 2, 3, "a\xE9<Bold:\xC7z>\xFF"},
        {[this] { pastePicture(); }, 2, 3, "a\xE9<picture><Bold:\xC7z>\xFF"},
    };
    struct State {
        RichText text;
        qsizetype start, end;
        bool operator==(const State &) const = default;
    };
    const auto state = [this] { return State{pane().richText(), pane().SelStart(), pane().selEnd()}; };
    for (const auto &c : cases) {
        put("a\xE9Ya \xC7z\xFF", 5, 2);
        choose("MnuFormatarEstiloNegrito");
        ASSERT_EQ(shown(), document);
        select(c.start, c.length);
        const State before = state();
        c.act();
        const State after = state();
        EXPECT_EQ(shown(), c.after);
        EXPECT_NE(after.text, before.text);
        for (int round = 0; round < 2; ++round) {
            call(m_window, "EditarAnularintrodução");
            EXPECT_EQ(state(), before) << c.after;
            call(m_window, "EditarAnularintrodução");
            EXPECT_EQ(state(), after) << c.after;
        }
    }
}

TEST_F(GraphicalEdition, CaseCommandsRefusePicturesAndTheWordPict) {
    put("a picture b", 11, 0);
    pastePicture();
    for (const char *command : {"Mai", "Min", "Inverter", "RetAcent"}) {
        const QString item = QStringLiteral("MnuFormatarMaiusculasminusculas") + QString::fromUtf8(command);
        for (const auto &[start, length] : {std::pair<qsizetype, qsizetype>{2, 4}, {10, 2}, {11, 1}}) {
            select(start, length);
            Answer ok(QMessageBox::Ok);
            choose(qPrintable(item));
            EXPECT_EQ(ok.text(), QStringLiteral("This format is not suitable for graphical objects.\r\n"
                                                "Please select text only"));
            EXPECT_EQ(shown(), "a picture b<picture>");
        }
        select(0, 0); // nothing selected: nothing to change
        choose(qPrintable(item));
        EXPECT_EQ(shown(), "a picture b<picture>");
    }
    select(3, 8);
    choose("MnuFormatarMaiusculasminusculasMai");
    EXPECT_EQ(shown(), "a pICTURE B<picture>");
}

TEST_F(GraphicalEdition, TheTextSizeIsThatOfTheWholeDocument) {
    put("ab\r\nc", 2, 0);
    pastePicture();
    pane().setSelStart(1);
    pressTool("Bold"); // for what is typed next
    const auto expectSize = [this](int points) {
        const RichText document = pane().richText();
        for (const Paragraph &paragraph : document.paragraphs)
            for (const zolt::Run &run : paragraph.runs)
                EXPECT_EQ(run.format.halfPoints, 2 * points);
        EXPECT_EQ(pane().SelFontSize(), points) << "what is typed next";
        EXPECT_EQ(shared::settings.TFntSize, points);
        EXPECT_EQ(control<QComboBox>(loaded<MDIFrm>(), "Combo3")->currentText(), QString::number(points));
        EXPECT_EQ(pane().SelStart(), 1);
    };
    for (const int points : {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72}) {
        choose(qPrintable(QStringLiteral("MnuFormatarTamanhodaletra%1").arg(points)));
        expectSize(points);
    }
    QTest::keyClick(control<QComboBox>(loaded<MDIFrm>(), "Combo3"), Qt::Key_Up);
    expectSize(48);
    EXPECT_EQ(shown(), "ab<picture>\r\nc");
    put("", 0, 0);
    choose("MnuFormatarTamanhodaletra24");
    QTest::keyClicks(&pane(), QStringLiteral("x"));
    EXPECT_EQ(pane().SelFontSize(), 24);
    leave();
    begin();
    EXPECT_EQ(pane().SelFontSize(), 24);
}

TEST_F(GraphicalEdition, SchemesAndColoursGoToTheWholeTextAndLeaveTheStyles) {
    const auto expectLook = [this](QColor background, Colour text) {
        for (const int number : {1, 2})
            EXPECT_EQ(m_window->richPane(number).palette().color(QPalette::Base), background);
        const RichText document = pane().richText();
        for (const zolt::Run &run : document.paragraphs[0].runs)
            EXPECT_EQ(run.format.colour, text);
        EXPECT_EQ(shown(), "a<Bold:bc>d");
    };
    put("abcd", 1, 2);
    pressTool("Bold");
    choose("MnuFormatarAltocontraste");
    expectLook(Qt::black, 0x80FF80);
    choose("MnuFormatarHp48");
    expectLook(QColor(0x3D, 0x60, 0x3C), 0);
    EXPECT_EQ(shared::settings.TFntBckC, "3956797");
    EXPECT_EQ(shared::settings.TFntColr, "0");
    chooseColour("EscolherCorForeground", QColor(1, 2, 3));
    chooseColour("EscolherCorBackground", QColor(4, 5, 6));
    chooseColour("EscolherCorForeground", Qt::red, false);
    chooseColour("EscolherCorBackground", Qt::red, false);
    expectLook(QColor(4, 5, 6), 0x030201);
    EXPECT_EQ(pane().SelStart(), 1);
    EXPECT_EQ(pane().SelText(), "bc");
    choose("MnuFormatarTamanhodaletra24");
    choose("MnuFormatarPadrão");
    expectLook(Qt::white, kWindowText);
    EXPECT_EQ(pane().SelFontSize(), 10);
    EXPECT_EQ(shared::settings.TFntColr, "-2147483640");
    // A font that means nothing to the calculator is no style.
    open("other.zlg",
         "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red9\\green0\\blue0;}\\f0\\fs40\\cf1\\b\\strike x}");
    choose("MnuFormatarPadrão");
    EXPECT_EQ(pane().richText(), oneRun("x"));
}

TEST_F(GraphicalEdition, AChangeOfLooksAloneIsAskedAbout) {
    put("abc", 1, 1);
    saveAs("saved.zlg");
    pressTool("Bold");
    EXPECT_TRUE(waitFor([] { return loaded<MDIFrm>()->windowTitle().startsWith(u'*'); }));
    Answer cancel(QMessageBox::Cancel);
    m_window->close();
    EXPECT_EQ(cancel.text(), QStringLiteral("Save changes to saved.zlg?"));
    pressTool("Normal");
    EXPECT_TRUE(waitFor([] { return !loaded<MDIFrm>()->windowTitle().startsWith(u'*'); }));
    EXPECT_TRUE(m_window->close());
}

TEST_F(GraphicalEdition, WhatToolsInsertLooksLikeTheTextThere) {
    const std::function<std::string()> tools[] = {
        [] {
            control<QToolButton>(loaded<MDIFrm>(), "Command1_0")->click();
            return std::string("\x8C");
        },
        [this] {
            call(m_window, "VerTabeladecaracteres");
            auto *grid = control<QTableWidget>(loaded<CaracterTableFrm>(), "Grid1");
            const QPoint cell = grid->visualItemRect(grid->item(0, 1)).center();
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
            return std::string("!");
        },
        [this] {
            choose("MnuInserirDataehora");
            const std::string date =
                control<QListWidget>(loaded<DateTimeFrm>(), "List1")->currentItem()->text().toStdString();
            press(loaded<DateTimeFrm>(), "Command1");
            return date;
        },
        [this] {
            choose("MnuEditarLocalizar");
            control<QLineEdit>(loaded<EditTextFindFrm>(), "Text1")->setText(QStringLiteral("BC"));
            control<QLineEdit>(loaded<EditTextFindFrm>(), "Text2")->setText(QStringLiteral("longer"));
            Answer ok(QMessageBox::Ok);
            press(loaded<EditTextFindFrm>(), "Command5");
            return std::string("longer");
        },
    };
    for (const auto &insert : tools) {
        put("abcd", 1, 2);
        pressTool("Inverso");
        const RichText before = pane().richText();
        const std::string inserted = insert();
        EXPECT_EQ(shown(), "a<Inverse:" + inserted + ">d");
        call(m_window, "EditarAnularintrodução");
        EXPECT_EQ(pane().richText(), before);
    }
    put("ab", 1, 0);
    pressTool("Underline");
    tools[0]();
    EXPECT_EQ(shown(), "a<Underline:\x8C>b");
}

/// Every byte in every font, and a picture of each kind.
RichText everything() {
    RichTextBuilder builder;
    for (int style = 0; style < kStyleCount; ++style) {
        const CharFormat format{.font = builder.text().fontIndex(fontOfStyle(static_cast<Style>(style))),
                                .halfPoints = static_cast<std::uint16_t>(20 + style)};
        std::string bytes = everyByte();
        std::swap(bytes['\r'], bytes['\n']); // no line end
        builder.append(bytes, format);
        builder.append(samplePicture(static_cast<RichPicture::Kind>(style % 3)), format);
        builder.endParagraph();
    }
    return builder.text();
}

TEST_F(GraphicalEdition, AFileSavedAndOpenedAgainIsTheSame) {
    const RichText wanted = withFontsInOrder(everything());
    open("all.zlg", rtfFromRichText(wanted));
    EXPECT_EQ(withFontsInOrder(pane().richText()), wanted);
    call(m_window, "EditarTranslinearpalavras");
    saveAs("again");
    EXPECT_EQ(withFontsInOrder(richTextFromRtf(fileBytes("again"))), wanted);
    open("other.zlg", "{\\rtf1 x}");
    EXPECT_EQ(pane().Text(), "x");
    open("again", fileBytes("again"));
    EXPECT_EQ(withFontsInOrder(pane().richText()), wanted);
}

TEST_F(GraphicalEdition, AFileThatIsNeitherRichNorPlainTextIsRefused) {
    put("text", 1, 2);
    pressTool("Bold");
    saveAs("mine.zlg");
    open("picture.png", pngFile());
    EXPECT_TRUE(statusMessage().endsWith(QStringLiteral(": it is neither rich text (RTF) nor plain text")));
    EXPECT_EQ(shown(), "t<Bold:ex>t");
    EXPECT_EQ(m_window->caption(), QStringLiteral("mine.zlg"));
    call(m_window, "FicheiroGuardar");
    EXPECT_EQ(fileBytes("picture.png"), pngFile());
}

} // namespace
} // namespace zolt
