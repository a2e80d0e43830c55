#include "platform/colours.h"
#include "platform/common_dialog.h"
#include "shell/base/dialog_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontDialog>
#include <QMenu>
#include <QToolBar>

namespace zolt {
namespace {

using namespace test;

class FormatCommands : public TextEditionTest {
protected:
    void put(const std::string &text, qsizetype start, qsizetype length) {
        pane().setText(text);
        pane().setSelStart(start);
        pane().setSelLength(length);
    }
    void choose(const char *menuItem) { m_window->menuItem(menuItem)->trigger(); }
    void pressTool(const char *key) {
        loaded<MDIFrm>()->toolbar(3)->findChild<QAction *>(QString::fromUtf8(key))->trigger();
    }
    /// The document after an undo, with the selection between angle brackets.
    std::string undone() {
        call(m_window, "EditarAnularintrodução");
        return pane()
            .Text()
            .insert(static_cast<std::size_t>(pane().selEnd()), ">")
            .insert(static_cast<std::size_t>(pane().SelStart()), "<");
    }
    QColor background(int number) { return m_window->textPane(number).palette().color(QPalette::Base); }
    QColor textColour(int number) { return m_window->textPane(number).palette().color(QPalette::Text); }
};

TEST_F(FormatCommands, AStyleHasOneLetterInBothMenusAndOnTheToolbar) {
    const struct {
        const char *item;
        const char *key;
        const char *letter;
    } styles[] = {{"Negrito", "Bold", "B"},
                  {"Itálico", "Itálico à direita", "/"},
                  {"Sublinhado", "Underline", "U"},
                  {"Itálicoàesquerda", "Itálico à esquerda", "|"},
                  {"Duplalargura", "Dupla largura", "D"},
                  {"Inverso", "Inverso", "V"},
                  {"Superioràlinha", "Superior à linha", "E"},
                  {"Inferioràlinha", "Inferior à linha", "I"}};
    for (const auto &style : styles) {
        const std::string code = std::string("\v") + style.letter;
        const QString item = QString::fromUtf8(style.item);
        const std::function<void()> ways[] = {
            [&] { choose(qPrintable(QStringLiteral("MnuFormatarEstilo") + item)); },
            [&] {
                m_window->popUp()->findChild<QAction *>(QStringLiteral("MnuPopUpEstilo") + item)->trigger();
            },
            [&] { pressTool(style.key); }};
        for (const auto &way : ways) {
            put("one two", 4, 3);
            way();
            EXPECT_EQ(pane().Text(), "one " + code + "two" + code) << style.item;
        }
        pane().setSelStart(0);
        pane().setSelLength(pane().length());
        pressTool("Normal");
        EXPECT_EQ(pane().Text(), "one two");
    }
}

TEST_F(FormatCommands, ARefusedStyleIsSaidAndChangesNothing) {
    const std::string text = "first\r\n" + std::string(17, 'x');
    for (int wrap = 0; wrap < 2; ++wrap) {
        put(text, 7, 17);
        Answer ok(QMessageBox::Ok);
        choose("MnuFormatarEstiloDuplalargura");
        EXPECT_EQ(ok.text(),
                  QStringLiteral(
                      "This formatting can only be aplied as far as the 16\u00BACharacter in each line."));
        EXPECT_EQ(pane().Text(), text);
        call(m_window, "EditarTranslinearpalavras");
    }
}

TEST_F(FormatCommands, AnUndoBringsBackTextAndSelection) {
    const struct {
        const char *item;
        std::string text;
        std::string after;
    } cases[] = {
        {"MnuFormatarEstiloNegrito", "a<bcd>e", "a\vBbcd\vBe"},
        {"MnuFormatarEstiloNormal", "<\vBa\vB\vUb\vU>", "ab"},
        {"MnuFormatarMaiusculasminusculasMai", "a<b\xE7z>e", "aB\xC7Ze"},
        {"MnuFormatarMaiusculasminusculasMin", "a<B\xC7Z>e", "ab\xE7ze"},
        {"MnuFormatarMaiusculasminusculasInverter", "a<bC>e", "aBce"},
        {"MnuFormatarMaiusculasminusculasRetAcent", "<\xE7\xC0>o", "cAo"},
        {"MnuInserirLinhahorizontal", "a<b>c", "a" + std::string(33, '-') + "\r\nc"},
        {"MnuFerramentasOptimizarimagensTotal", withMarks("a#000000b<#000000>\r\n"), "a b\r\n"},
        {"MnuFerramentasOptimizarselecçãoparcialmente", withMarks("<a#000000>b"), "ab"},
    };
    for (const auto &test : cases) {
        std::string text = test.text;
        const std::size_t start = text.find('<');
        const std::size_t end = text.find('>') - 1;
        text.erase(end + 1, 1).erase(start, 1);
        put(text, static_cast<qsizetype>(start), static_cast<qsizetype>(end - start));
        Answer ok(QMessageBox::Ok);
        choose(test.item);
        EXPECT_EQ(pane().Text(), test.after) << test.item;
        EXPECT_EQ(undone(), test.text) << test.item;
    }
}

TEST_F(FormatCommands, OptimisationAlwaysEndsWithItsMessage) {
    const std::string cell = withMarks("#000000");
    for (const auto &[key, after] :
         {std::pair{"Optimizar imagens parcial", cell + "x"}, {"Optimizar imagens total", " x"}}) {
        for (const bool empty : {false, true}) {
            put(empty ? "" : cell + "x" + cell, 0, empty ? 0 : 15);
            Answer ok(QMessageBox::Ok);
            pressTool(key);
            EXPECT_EQ(ok.text(), QStringLiteral("Optimization finished"));
            EXPECT_EQ(pane().Text(), empty ? "" : after) << key;
        }
    }
}

TEST_F(FormatCommands, SchemesAndFontsHoldAfterARestart) {
    choose("MnuFormatarAltocontraste");
    for (const int number : {1, 2}) {
        EXPECT_EQ(background(number), QColor(Qt::black));
        EXPECT_EQ(textColour(number), QColor(0x80, 0xFF, 0x80));
    }
    choose("MnuFormatarHp48");
    EXPECT_EQ(shared::settings.TFntBckC, "3956797");
    whenModal("QFontDialog", [](QWidget *dialog) {
        auto *fonts = qobject_cast<QFontDialog *>(dialog);
        QFont font(QStringLiteral("A font that is nowhere"));
        font.setPointSizeF(17.6);
        font.setItalic(true);
        fonts->setCurrentFont(font);
        fonts->accept();
    });
    choose("MnuFormatarTipodeletra");
    EXPECT_EQ(shared::settings.TFntSize, 18);
    EXPECT_EQ(shared::settings.TFntItal, "True");
    const std::string name = shared::settings.TFntName;

    restart();
    EXPECT_EQ(m_window->textPane(2).palette().color(QPalette::Base), QColor(0x3D, 0x60, 0x3C));
    EXPECT_EQ(shared::settings.TFntName, name);
    EXPECT_EQ(m_window->textPane(2).font().pointSizeF(), 18);
    EXPECT_TRUE(m_window->textPane(1).font().italic());
    EXPECT_EQ(control<QComboBox>(loaded<MDIFrm>(), "Combo2")->currentText(), QStringLiteral("18"));
}

TEST_F(FormatCommands, AFontThatIsNotInstalledIsKeptByName) {
    shared::settings.TFntName = "A font that is nowhere";
    restart();
    EXPECT_EQ(shared::settings.TFntName, "A font that is nowhere");
    EXPECT_EQ(control<QComboBox>(loaded<MDIFrm>(), "Combo1")->currentText(), QString());
    EXPECT_TRUE(m_window->textPane(1).font().families().contains(QStringLiteral("ZOLT")));
    m_window->textPane(1).setText("a\x8C");
    EXPECT_EQ(m_window->textPane(1).Text(), "a\x8C");
}

TEST_F(FormatCommands, DefaultLeavesThePaneWithoutWrapToTheDesktop) {
    QPalette desktop = QApplication::palette();
    const QPalette before = desktop;
    desktop.setColor(QPalette::Base, QColor(1, 2, 3));
    desktop.setColor(QPalette::Text, QColor(250, 251, 252));
    QApplication::setPalette(desktop);
    shared::settings.TFntBold = "True";
    choose("MnuFormatarPadrão");
    EXPECT_EQ(background(1), QColor(Qt::white));
    EXPECT_EQ(textColour(1), QColor(Qt::black)); // the desktop's can't be read on white
    EXPECT_EQ(background(2), QColor(1, 2, 3));
    EXPECT_EQ(textColour(2), QColor(250, 251, 252));
    EXPECT_EQ(shared::settings.TFntBckC, "16777215");
    EXPECT_EQ(shared::settings.TFntColr, "-2147483640");
    EXPECT_EQ(shared::settings.TFntName, "ZOLT");
    EXPECT_FALSE(m_window->textPane(1).font().bold());
    // Another text colour leaves that as it is.
    whenModal("QColorDialog", [](QWidget *window) { qobject_cast<QColorDialog *>(window)->accept(); });
    pressTool("Cor do texto");
    EXPECT_EQ(background(2), QColor(1, 2, 3));
    QApplication::setPalette(before);
}

TEST_F(FormatCommands, AChosenColourGoesToBothPanesAndACancelNowhere) {
    const auto answer = [](bool accept) {
        whenModal("QColorDialog", [accept](QWidget *window) {
            auto *dialog = qobject_cast<QColorDialog *>(window);
            dialog->setCurrentColor(QColor(1, 2, 3));
            accept ? dialog->accept() : dialog->reject();
        });
    };
    const std::string colourBefore = shared::settings.TFntColr;
    answer(false);
    pressTool("Cor do texto");
    EXPECT_EQ(shared::settings.TFntColr, colourBefore);
    answer(true);
    pressTool("Cor de fundo");
    EXPECT_EQ(background(1), QColor(1, 2, 3));
    EXPECT_EQ(background(2), QColor(1, 2, 3));
    EXPECT_EQ(shared::settings.TFntBckC, std::to_string(1 + 2 * 256 + 3 * 65536));
}

} // namespace
} // namespace zolt
