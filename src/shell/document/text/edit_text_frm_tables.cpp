#include "shell/document/text/edit_text_frm_tables.h"

#include "shell/base/shared_values.h"
#include "shell/frame/mdi_frm_tables.h"

#include <iterator>

namespace zolt {

namespace {

/// A style as the Format menu, the pop-up menu and the format toolbar offer it.
struct StyleCommand {
    const char *menuItem;
    const char *popUpItem;
    const char *caption;
    const char *key;
    const char *toolTip;
    const char *icon;
    /// The toolbar has an order of its own; places from 0.
    int toolbarPlace;
    const char *slot;
    void (*prepare)();
};

template <char letter> void setStyle() {
    shared::EstiloDeLetra = letter;
}
template <int kind> void setOptimisation() {
    shared::TipoDeOptimização = kind;
}

constexpr char kApply[] = "AplicarEstilosDeLetra";

constexpr StyleCommand kStyles[] = {
    {"MnuFormatarEstiloNormal", "MnuPopUpEstiloNormal", "&Normal (clean)", "Normal", "Normal (clean)",
     "normal", 3, "LimparEstilosDeLetra", nullptr},
    {"MnuFormatarEstiloNegrito", "MnuPopUpEstiloNegrito", "&Bold", "Bold", "Bold", "bold", 0, kApply,
     setStyle<'B'>},
    {"MnuFormatarEstiloItálico", "MnuPopUpEstiloItálico", "&Italic", "Itálico à direita", "Italic", "italic",
     1, kApply, setStyle<'/'>},
    {"MnuFormatarEstiloSublinhado", "MnuPopUpEstiloSublinhado", "&Underline", "Underline", "Underline",
     "underline", 2, kApply, setStyle<'U'>},
    {"MnuFormatarEstiloItálicoàesquerda", "MnuPopUpEstiloItálicoàesquerda", "&Left italic",
     "Itálico à esquerda", "Left italic", "left-italic", 5, kApply, setStyle<'|'>},
    {"MnuFormatarEstiloDuplalargura", "MnuPopUpEstiloDuplalargura", "&Double size", "Dupla largura",
     "Double size", "double-size", 6, kApply, setStyle<'D'>},
    {"MnuFormatarEstiloInverso", "MnuPopUpEstiloInverso", "&Invert", "Inverso", "Invert", "inverse", 4,
     kApply, setStyle<'V'>},
    {"MnuFormatarEstiloSuperioràlinha", "MnuPopUpEstiloSuperioràlinha", "&Exponent", "Superior à linha",
     "Exponent", "exponent", 7, kApply, setStyle<'E'>},
    {"MnuFormatarEstiloInferioràlinha", "MnuPopUpEstiloInferioràlinha", "&Index", "Inferior à linha", "Index",
     "index", 8, kApply, setStyle<'I'>},
};

/// The nine items of a style menu, named by `item`, at `level`.
QList<MenuRow> styleRows(int level, const char *StyleCommand::*item) {
    QList<MenuRow> rows;
    for (const StyleCommand &style : kStyles)
        rows << MenuRow{level,   style.*item, style.caption,  style.slot,
                        nullptr, style.icon,  MenuRow::Plain, style.prepare};
    return rows;
}

QList<ToolRow> styleButtons() {
    QList<ToolRow> rows(std::size(kStyles), ToolRow{});
    for (const StyleCommand &style : kStyles)
        rows[style.toolbarPlace] = {style.key, style.toolTip, style.icon, style.slot, style.prepare};
    return rows;
}

const QList<MenuRow> kFileRows{
    {0, "MnuFicheiro", "&File"},
    {1, "MnuFicheiroNovo", "&New...", "FicheiroNovo", "Ctrl+O", "new"},
    {1, "MnuFicheiroAbrir", "&Open...", "FicheiroAbrir", "Ctrl+A", "open"},
    {1, "MnuFicheiroFechar", "&Close", "FicheiroFechar"},
    {1, "MnuFicheiroSeparador1", "-"},
    {1, "MnuFicheiroGuardar", "&Save", "FicheiroGuardar", "Ctrl+G; Ctrl+S", "save"},
    {1, "MnuFicheiroGuardarcomo", "Save &As", "FicheiroGuardarComo"},
    {1, "MnuFicheiroSeparador2", "-"},
    {1, "MnuFicheiroExportar", "Expor&t"},
    {2, "MnuFicheiroExportarHTML", "Web Page (HTML)", "ExportarHTML", nullptr, "export-web"},
    {2, "MnuFicheiroExportarPDF", "Adobe Portable Document Format (PDF)", "MostrarEditTextExportPDFFrm",
     nullptr, "export-pdf"},
    {1, "MnuFicheiroExportarPrevisualizarpaginaWeb", "Preview &Web Page",
     "FicheiroExportarPrevisualizarpaginaWeb", nullptr, "preview-web"},
    {1, "MnuFicheiroSeparador3", "-"},
    {1, "MnuFicheiroGuardarcomoficheiroHP", "&Integrity Test", "TesteDeIntegridade", nullptr,
     "integrity-test"},
    {1, "MnuFicheiroSeparador5", "-"},
    {1, "MnuFicheiroSair", "E&xit", "AbandonarPrograma"},
};

const QList<MenuRow> kEditRows{
    {0, "MnuEditar", "&Edit"},
    {1, "MnuEditarAnularintrodução", "&Undo", "EditarAnularintrodução", "Ctrl+Z", "undo"},
    {1, "MnuEditarSeparador1", "-"},
    {1, "MnuEditarCortar", "Cu&t", "EditarCortar", "Ctrl+X", "cut"},
    {1, "MnuEditarCopiar", "&Copy", "EditarCopiar", "Ctrl+C", "copy"},
    {1, "MnuEditarColar", "&Paste", "EditarColar", "Ctrl+V", "paste"},
    {1, "MnuEditarSeparador2", "-"},
    {1, "MnuEditarSeleccionartudo", "Select &All", "EditarSeleccionarTudo", "Ctrl+Shift+A"},
    {1, "MnuEditarLocalizar", "&Find and replace", "EditarLocalizarESubstituir", "Ctrl+F", "find-replace"},
    {1, "MnuEditarSeparador3", "-"},
    {1, "MnuEditarTranslinearpalavras", "&Word Wrap", "EditarTranslinearpalavras", nullptr, nullptr,
     MenuRow::Unchecked},
};

const QList<MenuRow> kViewRows{
    {0, "MnuVer", "&View"},
    {1, "MnuVerBarradeestado", "&Status Bar", "MnuVerBarradeestado", nullptr, nullptr, MenuRow::Checked},
    {1, "MnuVerBarradecaracteres", "&Quick bar", "VerBarradecaracteres", nullptr, "quick-bar"},
    {1, "MnuVerTabeladecaracteres", "&Character table", "VerTabeladecaracteres", nullptr, "character-table"},
    {1, "MnuVerBarrasdeferramentas", "&Toolbar"},
    {2, "MnuVerBarrasdeferramentasPadrão", "Default", "MnuVerBarrasdeferramentasPadrão", nullptr, nullptr,
     MenuRow::Checked},
    {2, "MnuVerBarrasdeferramentasFormatação", "Format", "MnuVerBarrasdeferramentasFormatação", nullptr,
     nullptr, MenuRow::Checked},
    {1, "MnuVerSeparador1", "-"},
    {1, "MnuVerSemprenotopo", "Always on Top", "MnuVerSemprenotopo", nullptr, nullptr, MenuRow::Unchecked},
    {1, "MnuVerSeparador2", "-"},
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

const QList<MenuRow> kInsertRows{
    {0, "MnuInserir", "&Insert"},
    {1, "MnuInserirDataehora", "&Date and time...", "MostrarDateTimeFrm"},
    {1, "MnuInserirSeparador1", "-"},
    {1, "MnuInserirSímbolo", "&Symbol"},
    {2, "MnuInserirListadesímbolos", "Symbol &list", "MnuInserirListadesímbolos", nullptr, "symbol-list"},
    {2, "MnuInserirCriarnovosímbolo", "&New symbol", "MnuInserirCriarnovosímbolo", nullptr, "new-symbol"},
    {1, "MnuInserirImagem", "&Image"},
    {2, "MnuInserirImagemBmpgifjpg", "&BMP GIF JPG ...", "MostrarEditTextInsertImageFrm", nullptr,
     "insert-picture"},
    {2, "MnuInserirImagemGrob", "&HP GROB", "MostrarEditTextInsertGrobFrm", nullptr, "insert-grob"},
    {2, "MnuInserirImagemFormatovelda", "&ZOLT Image", "MostrarEditTextInsertVeldaFrm", nullptr,
     "insert-zolt-image"},
    {2, "MnuInserirImagemNovodesenho", "&New drawing"},
    {1, "MnuInserirSeparador2", "-"},
    {1, "MnuInserirLinhahorizontal", "&Horizontal line", "MnuInserirLinhahorizontal"},
};

const QList<MenuRow> kFormatRows =
    QList<MenuRow>{
        {0, "MnuFormatar", "F&ormat"},
        {1, "MnuFormatarTipodeletra", "&Font", "EscolherFonte"},
        {1, "MnuFormatarEstilo", "&Style"},
    } +
    styleRows(2, &StyleCommand::menuItem) +
    QList<MenuRow>{
        {1, "MnuFormatarMaiusculasminusculas", "&Capital/small letters..."},
        {2, "MnuFormatarMaiusculasminusculasMai", "&Capital", "MnuFormatarMaiusculasminusculasMai"},
        {2, "MnuFormatarMaiusculasminusculasMin", "&Small", "MnuFormatarMaiusculasminusculasMin"},
        {2, "MnuFormatarMaiusculasminusculasInverter", "I&nvert", "MnuFormatarMaiusculasminusculasInverter"},
        {2, "MnuFormatarMaiusculasminusculasRetAcent", "Clean &accentuation",
         "MnuFormatarMaiusculasminusculasRetAcent"},
        {1, "MnuFormatarSeparador1", "-"},
        {1, "MnuFormatarCordefundo", "&Background color", "EscolherCorBackground", nullptr,
         "background-colour"},
        {1, "MnuFormatarCordotexto", "&Foreground color", "EscolherCorForeground", nullptr, "text-colour"},
        {1, "MnuFormatarSeparador2", "-"},
        {1, "MnuFormatarPadrão", "&Default", "MnuFormatarPadrão"},
        {1, "MnuFormatarAltocontraste", "H&igh contrast", "MnuFormatarAltocontraste"},
        {1, "MnuFormatarHp48", "&HP48", "MnuFormatarHp48"},
    };

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
    {1, "MnuFerramentasSeparador1", "-"},
    {1, "MnuFerramentasContarpalavras", "&Count words", "MostrarEditTextWordCountFrm"},
};

const QList<MenuRow> kHelpRows{
    {0, "MnuAjuda", "&Help"},
    {1, "MnuAjudadozolt", "Help", "MnuAjudadozolt", "F1", "help"},
    {1, "MnuAjudaSeparador1", "-"},
    {1, "MnuAcercadozolt", "&About ZOLT", "MnuAjudaAcercadoZOLT"},
};

} // namespace

const QList<MenuRow> &textMenuTable() {
    static const QList<MenuRow> table = kFileRows + kEditRows + kViewRows + kPreviewRows + kInsertRows +
                                        kFormatRows + kToolRows + windowMenuRows(true) + kHelpRows;
    return table;
}

const QList<MenuRow> &textPopUpTable() {
    static const QList<MenuRow> table =
        QList<MenuRow>{
            {0, "MnuPopUp", "PopUp"},
            {1, "MnuPopUpAnularintroducao", "&Undo", "EditarAnularintrodução", nullptr, "undo"},
            {1, "MnuPopUpSeparador1", "-"},
            {1, "MnuPopUpCortar", "Cu&t", "EditarCortar", nullptr, "cut"},
            {1, "MnuPopUpCopiar", "&Copy", "EditarCopiar", nullptr, "copy"},
            {1, "MnuPopUpColar", "&Paste", "EditarColar", nullptr, "paste"},
            {1, "MnuPopUpSeparador2", "-"},
            {1, "MnuPopUpSeleccionartudo", "Select &All", "EditarSeleccionarTudo"},
            {1, "MnuPopUpSeparador3", "-"},
            {1, "MnuPopUpInserir", "&Insert"},
            {2, "MnuPopUpInserirImagem", "&Image"},
            {3, "MnuPopUpInserirImagemBmpgifjpg", "&BMP GIF JPG ICO CUR", "MostrarEditTextInsertImageFrm",
             nullptr, "insert-picture"},
            {3, "MnuPopUpInserirImagemGrob", "&HP GROB", "MostrarEditTextInsertGrobFrm", nullptr,
             "insert-grob"},
            {3, "MnuPopUpInserirImagemFormatovelda", "&ZOLT Image", "MostrarEditTextInsertVeldaFrm", nullptr,
             "insert-zolt-image"},
            {2, "MnuPopUpInserirSímbolo", "&Symbol", "MnuInserirListadesímbolos", nullptr, "symbol-list"},
            {2, "MnuPopUpInserirLinhahorizontal", "&Horizontal line", "MnuInserirLinhahorizontal"},
        } +
        kPopUpPreviewRows + QList<MenuRow>{{1, "MnuPopUpEstilo", "&Style"}} +
        styleRows(2, &StyleCommand::popUpItem);
    return table;
}

const QList<ToolRow> &textStandardToolbarTable() {
    static const QList<ToolRow> table{
        {"Novo", "New", "new", "FicheiroNovo"},
        {"Abrir", "Open", "open", "FicheiroAbrir"},
        {"Guardar", "Save", "save", "FicheiroGuardar"},
        {"", "", nullptr},
        {"Localizar e substituir", "Find and replace", "find-replace", "EditarLocalizarESubstituir"},
        {"Translinear palavras", "Word Wrap", "word-wrap", "EditarTranslinearpalavras", nullptr,
         MenuRow::Unchecked},
        {"", "", nullptr},
        {"Cortar", "Cut", "cut", "EditarCortar"},
        {"Copiar", "Copy", "copy", "EditarCopiar"},
        {"Colar", "Paste", "paste", "EditarColar"},
        {"Anular Introdução", "Undo", "undo", "EditarAnularintrodução"},
        {"Refazer Introdução", "Redo", "redo", "EditarAnularintrodução"},
        {"", "", nullptr},
        {"Barra de caracteres", "Quick Bar", "quick-bar", "VerBarradecaracteres"},
        {"Tabela de caracteres", "Character table", "character-table", "VerTabeladecaracteres"},
        {"", "", nullptr},
        {"Pré-visualizar normal", "Preview normally", "preview-normal", "VerPrévisualizarselecçãoNormal"},
        {"Pré-visualizar com quebras de linha", "Preview with Word Wrap", "preview-wrap",
         "VerPrévisualizarselecçãoComquebrasdelinha"},
        {"Pré-visualizar HP48", "Preview in HP48 style", "preview-hp48",
         "VerPrévisualizarselecçãoEstiloHP48"},
        {"", "", nullptr},
        {"Pré-visualizar a página Web", "Preview Web page", "preview-web",
         "FicheiroExportarPrevisualizarpaginaWeb"},
        {"Nova página Web", "Save as Web page", "export-web", "ExportarHTML"},
        {"Pdf", "Export to Adobe Portable Document Format (PDF)", "export-pdf",
         "MostrarEditTextExportPDFFrm"},
        {"", "", nullptr},
        {"Teste de integridade", "Integrity test", "integrity-test", "TesteDeIntegridade"},
        {"Ajuda", "Help", "help", "MnuAjudadozolt"},
    };
    return table;
}

const QList<ToolRow> &textFormatToolbarTable() {
    static const QList<ToolRow> table =
        styleButtons() +
        QList<ToolRow>{
            {"", "", nullptr},
            {"Cor do texto", "Foreground color", "text-colour", "EscolherCorForeground"},
            {"Cor de fundo", "Background color", "background-colour", "EscolherCorBackground"},
            {"", "", nullptr},
            {"Inserir imagem BMP", "Insert BMP GIF JPG ...", "insert-picture",
             "MostrarEditTextInsertImageFrm"},
            {"Inserir imagem GROB", "Insert GROB image", "insert-grob", "MostrarEditTextInsertGrobFrm"},
            {"Inserir imagem VELDA", "Insert ZOLT image", "insert-zolt-image",
             "MostrarEditTextInsertVeldaFrm"},
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
