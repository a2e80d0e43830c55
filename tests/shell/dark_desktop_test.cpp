#include "platform/pane.h"
#include "platform/rich_text_box.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "support/contrast.h"
#include "support/program.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>

namespace zolt {
namespace {

using namespace test;

constexpr double kLegible = 4; // of 21; pure red on a dark window has 4.2

QPalette darkPalette() {
    QPalette dark(QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::black);
    return dark;
}

struct Sight {
    const char *name;
    const char *window; // the one that the operations open, or the document's
    std::vector<const char *> operations;
    int edition = 1;
};

class DarkDesktop : public ProgramTest {
protected:
    DarkDesktop() { QApplication::setPalette(darkPalette()); }
    ~DarkDesktop() override {
        leave();
        QApplication::setPalette(m_before);
    }

    QPalette m_before = QApplication::palette();
};

class DarkWindow : public DarkDesktop, public testing::WithParamInterface<Sight> {};

TEST_P(DarkWindow, AllTextsAreLegible) {
    DocumentFrm &document = startEdition(GetParam().edition);
    document.activePane().setSelText("Hi\r\n*entry");
    for (const char *operation : GetParam().operations)
        call(&document, operation);
    QWidget *window = &document;
    for (QWidget *shown : QApplication::topLevelWidgets())
        if (shown->objectName() == QString::fromUtf8(GetParam().window))
            window = shown;
    ASSERT_EQ(window->objectName(), QString::fromUtf8(GetParam().window));
    int seen = 0;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (!widget->inherits("zolt::TextPane") && !widget->inherits("zolt::RichTextBox") &&
            !widget->inherits("QAbstractItemView") && !widget->inherits("QLineEdit"))
            continue;
        ++seen;
        const QPalette colours = widget->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const QColor base = colours.color(group, QPalette::Base);
            const std::string name = widget->objectName().toStdString();
            EXPECT_GT(contrast(colours.color(group, QPalette::Text), base), kLegible) << name;
            const QColor selected = colours.color(group, QPalette::Highlight);
            EXPECT_GT(contrast(colours.color(group, QPalette::HighlightedText), selected), kLegible) << name;
            EXPECT_GT(contrast(selected, base), 1.5) << name << ": what is selected shows";
        }
    }
    EXPECT_GT(seen, 0);
}

INSTANTIATE_TEST_SUITE_P(
    All, DarkWindow,
    testing::Values(
        Sight{"Document", "EditTextFrm", {}}, Sight{"DefaultColours", "EditTextFrm", {"MnuFormatarPadrão"}},
        Sight{"HighContrast", "EditTextFrm", {"MnuFormatarAltocontraste"}},
        Sight{"IntegrityTest", "EditTextGuardarHPFrm", {"TesteDeIntegridade"}},
        Sight{"IntegrityTestOfHighContrast",
              "EditTextGuardarHPFrm",
              {"MnuFormatarAltocontraste", "TesteDeIntegridade"}},
        Sight{"PreviewHp48", "EditTextPreviewFrm", {"MnuVerPrévisualizartudoEstiloHP48"}},
        Sight{"PreviewNormal", "EditTextPreviewNormalFrm", {"MnuVerPrévisualizartudoNormal"}},
        Sight{"FullScreen", "EditTextFullscreenFrm", {"MnuFormatarAltocontraste", "MnuVerEcrainteiro"}},
        Sight{"GraphicalFullScreen",
              "EditGraphFullscreenFrm",
              {"MnuFormatarAltocontraste", "MnuVerEcrainteiro"},
              2},
        Sight{"Find", "EditTextFindFrm", {"EditarLocalizar"}},
        Sight{"CharacterTable", "CaracterTableFrm", {"VerTabeladecaracteres"}},
        Sight{"GraphicalDocument", "EditGraphFrm", {}, 2},
        Sight{"GraphicalDefaultColours", "EditGraphFrm", {"MnuFormatarPadrão"}, 2}),
    [](const auto &sight) { return sight.param.name; });

TEST_F(DarkDesktop, TheWebPageLooksLikeThePane) {
    EditTextFrm &document = startTextEdition();
    document.activeTextPane().setText("Hi");
    answerFileDialog(path("page.htm"));
    call(&document, "ExportarHTML");
    EXPECT_NE(fileBytes("page.htm").find("<body text=\"#000000\" bgcolor=\"#FFFFFF\">"), std::string::npos);
}

} // namespace
} // namespace zolt
