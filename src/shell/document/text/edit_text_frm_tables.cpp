#include "shell/document/text/edit_text_frm_tables.h"

#include "shell/base/shared_values.h"
#include "shell/document/document_tables.h"
#include "shell/frame/mdi_frm_tables.h"

namespace zolt {

namespace {

template <int kind> void setOptimisation() {
    shared::TipoDeOptimização = kind;
}

const QList<MenuRow> kExportRows{
    {1, "MnuFicheiroSeparador2", "-"},
    {1, "MnuFicheiroExportar", "Expor&t"},
    {2, "MnuFicheiroExportarHTML", "Web Page (HTML)", "ExportarHTML", nullptr, "export-web"},
    {2, "MnuFicheiroExportarPDF", "Adobe Portable Document Format (PDF)", "MostrarEditTextExportPDFFrm",
     nullptr, "export-pdf"},
    {1, "MnuFicheiroExportarPrevisualizarpaginaWeb", "Preview &Web Page",
     "FicheiroExportarPrevisualizarpaginaWeb", nullptr, "preview-web"},
    {1, "MnuFicheiroSeparador3", "-"},
};

const QList<MenuRow> kSendRows = sendRows({
    {2, "MnuFicheiroEnviarparaEdicaografica", "Graphical edition", "EnviarParaEdiçãoGráfica", nullptr,
     "send-graphic"},
});

const QList<MenuRow> kIntegrityRows{
    {1, "MnuFicheiroSeparador4", "-"},
    {1, "MnuFicheiroGuardarcomoficheiroHP", "&Integrity Test", "TesteDeIntegridade", nullptr,
     "integrity-test"},
};

const QList<MenuRow> kPreviewRows{
    {1, "MnuVerPrévisualizartudo", "Preview &all"},
    {2, "MnuVerPrévisualizartudoNormal", "Normal", "MnuVerPrévisualizartudoNormal", nullptr,
     "preview-normal"},
    {2, "MnuVerPrévisualizartudoComquebrasdelinha", "With Word Wrap",
     "MnuVerPrévisualizartudoComquebrasdelinha", nullptr, "preview-wrap"},
    {2, "MnuVerPrévisualizartudoEstiloHP48", "HP48 Style", "MnuVerPrévisualizartudoEstiloHP48", nullptr,
     "preview-hp48"},
    {1, "MnuVerPrévisualizarselecção", "Preview selection"},
    {2, "MnuVerPrévisualizarselecçãoNormal", "Normal", "VerPrévisualizarselecçãoNormal", nullptr,
     "preview-normal"},
    {2, "MnuVerPrévisualizarselecçãoComquebrasdelinha", "With Word Wrap",
     "VerPrévisualizarselecçãoComquebrasdelinha", nullptr, "preview-wrap"},
    {2, "MnuVerPrévisualizarselecçãoEstiloHP48", "HP48 Style", "VerPrévisualizarselecçãoEstiloHP48", nullptr,
     "preview-hp48"},
};

const QList<MenuRow> kPopUpPreviewRows{
    {1, "MnuPopUpPrévisualizarseleccao", "Preview &selection"},
    {2, "MnuPopUpPrevisualizarseleccaoNormal", "Normal", "VerPrévisualizarselecçãoNormal", nullptr,
     "preview-normal"},
    {2, "MnuPopUpPrevisualizarseleccaoComquebrasdelinha", "With Word Wrap",
     "VerPrévisualizarselecçãoComquebrasdelinha", nullptr, "preview-wrap"},
    {2, "MnuPopUpPrevisualizarseleccaoEstiloHP48", "HP48 Style", "VerPrévisualizarselecçãoEstiloHP48",
     nullptr, "preview-hp48"},
};

const QList<MenuRow> kShowRows{
    {1, "MnuVerSeparador3", "-"},
    {1, "MnuVerShowStyles", "Show st&yles", "MnuVerShowStyles", nullptr, nullptr, MenuRow::Checked},
    {1, "MnuVerShowPictures", "Show &pictures", "MnuVerShowPictures", nullptr, nullptr, MenuRow::Checked},
    {1, "MnuVerShowColumnLimit", "Show column li&mit", "MnuVerShowColumnLimit", nullptr, nullptr,
     MenuRow::Checked},
    {1, "MnuVerVisibleColumns", "&Visible columns", "MnuVerVisibleColumns", nullptr, nullptr,
     MenuRow::Checked},
};

const QList<MenuRow> kInsertRows =
    QList<MenuRow>{
        {0, "MnuInserir", "&Insert"},
        {1, "MnuInserirDataehora", "&Date and time...", "MostrarDateTimeFrm"},
        {1, "MnuInserirSeparador1", "-"},
        {1, "MnuInserirSímbolo", "&Symbol"},
        {2, "MnuInserirListadesímbolos", "Symbol &list", "MnuInserirListadesímbolos", nullptr, "symbol-list"},
        {2, "MnuInserirCriarnovosímbolo", "&New symbol", "MnuInserirCriarnovosímbolo", nullptr, "new-symbol"},
        {1, "MnuInserirImagem", "&Image"},
    } +
    imageRows(2, NamesOf::MenuBar, RowsOf::Textual) +
    QList<MenuRow>{
        {2, "MnuInserirImagemNovodesenho", "&New drawing"},
        {1, "MnuInserirSeparador2", "-"},
        {1, "MnuInserirLinhahorizontal", "&Horizontal line", "MnuInserirLinhahorizontal"},
    };

const QList<MenuRow> kFormatRows =
    QList<MenuRow>{
        {0, "MnuFormatar", "F&ormat"},
        {1, "MnuFormatarTipodeletra", "&Font", "EscolherFonte"},
    } +
    styleRows(NamesOf::MenuBar, RowsOf::Textual) + caseAndColourRows();

const QList<MenuRow> kToolRows{
    {0, "MnuFerramentas", "&Tools"},
    {1, "MnuFerramentasConverterformatos", "&Convert image formats", "MostrarEditTextConvImgFrm", nullptr,
     "convert-image"},
    {1, "MnuFerramentasOptimizarimagens", "&Optimize  images"},
    {2, "MnuFerramentasOptimizarimagensParcial", "&Partial optimization", "OptimizarImagens", nullptr,
     nullptr, MenuRow::Plain, setOptimisation<1>},
    {2, "MnuFerramentasOptimizarimagensTotal", "&Total optimization", "OptimizarImagens", nullptr, nullptr,
     MenuRow::Plain, setOptimisation<2>},
    {2, "MnuFerramentasOptimizarselecçãoparcialmente", "Optimize &selection partially",
     "OptimizarImagensSelecção", nullptr, "optimise-partial", MenuRow::Plain, setOptimisation<1>},
    {2, "MnuFerramentasOptimizarselecçãototalmente", "Optimize selection &totally",
     "OptimizarImagensSelecção", nullptr, "optimise-total", MenuRow::Plain, setOptimisation<2>},
    {1, "MnuFerramentasWrap", "&Wrap lines"},
    {2, "MnuFerramentasWrapAtWords", "&Wrap at words", "MnuFerramentasWrapAtWords"},
    {2, "MnuFerramentasWrapReflow", "&Reflow", "MnuFerramentasWrapReflow"},
    {1, "MnuFerramentasSeparador1", "-"},
    {1, "MnuFerramentasContarpalavras", "&Count words", "MostrarEditTextWordCountFrm"},
};

} // namespace

const QList<MenuRow> &textMenuTable() {
    static const QList<MenuRow> table = fileRows() + kExportRows + printRows() + kSendRows + kIntegrityRows +
                                        exitRows() + editRows() + viewRows() + kPreviewRows +
                                        fullScreenRows() + kShowRows + kInsertRows + kFormatRows + kToolRows +
                                        optionsRows() + windowMenuRows(true) + helpRows();
    return table;
}

const QList<MenuRow> &textPopUpTable() {
    static const QList<MenuRow> table =
        popUpRows() + imageRows(3, NamesOf::PopUp, RowsOf::Textual) +
        QList<MenuRow>{
            {2, "MnuPopUpInserirSímbolo", "&Symbol", "MnuInserirListadesímbolos", nullptr, "symbol-list"},
            {2, "MnuPopUpInserirLinhahorizontal", "&Horizontal line", "MnuInserirLinhahorizontal"},
        } +
        kPopUpPreviewRows + styleRows(NamesOf::PopUp, RowsOf::Textual);
    return table;
}

const QList<ToolRow> &textStandardToolbarTable() {
    static const QList<ToolRow> table =
        fileButtons() + printButtons() + editButtons() +
        QList<ToolRow>{
            {"Pré-visualizar normal", "Preview normally", "preview-normal", "VerPrévisualizarselecçãoNormal"},
            {"Pré-visualizar com quebras de linha", "Preview with Word Wrap", "preview-wrap",
             "VerPrévisualizarselecçãoComquebrasdelinha"},
            {"Pré-visualizar HP48", "Preview in HP48 style", "preview-hp48",
             "VerPrévisualizarselecçãoEstiloHP48"},
        } +
        fullScreenButtons() +
        QList<ToolRow>{
            {"Pré-visualizar a página Web", "Preview Web page", "preview-web",
             "FicheiroExportarPrevisualizarpaginaWeb"},
            {"Nova página Web", "Save as Web page", "export-web", "ExportarHTML"},
            {"Pdf", "Export to Adobe Portable Document Format (PDF)", "export-pdf",
             "MostrarEditTextExportPDFFrm"},
            {"", "", nullptr},
            {"Enviar para edição gráfica", "Send to Graphical Edition", "send-graphic",
             "EnviarParaEdiçãoGráfica"},
            {"Teste de integridade", "Integrity test", "integrity-test", "TesteDeIntegridade"},
            {"Ajuda", "Help", "help", "MnuAjudadozolt"},
        };
    return table;
}

const QList<ToolRow> &textFormatToolbarTable() {
    static const QList<ToolRow> table =
        formatButtons(RowsOf::Textual) +
        QList<ToolRow>{
            {"Lista de símbolos", "Symbol list", "symbol-list", "MnuInserirListadesímbolos"},
            {"Criar novo símbolo", "New symbol", "new-symbol", "MnuInserirCriarnovosímbolo"},
            {"", "", nullptr},
            {"Converter formatos de imagem", "Convert image formats", "convert-image",
             "MostrarEditTextConvImgFrm"},
            {"Optimizar imagens parcial", "Optimize selected images partially", "optimise-partial",
             "OptimizarImagensSelecção", setOptimisation<1>},
            {"Optimizar imagens total", "Optimize selected images totally", "optimise-total",
             "OptimizarImagensSelecção", setOptimisation<2>},
        };
    return table;
}

} // namespace zolt
