#include "shell/document/graphic/edit_graph_frm_tables.h"

#include "shell/base/shared_values.h"
#include "shell/document/document_tables.h"
#include "shell/frame/mdi_frm_tables.h"

namespace zolt {

namespace {

/// A size as the menu offers it.
struct SizeCommand {
    const char *item;
    const char *caption;
    void (*prepare)();
};

template <int points> void setSize() {
    shared::TamanhoDaLetra = points;
}

constexpr SizeCommand kSizes[] = {
    {"MnuFormatarTamanhodaletra8", "8", setSize<8>},    {"MnuFormatarTamanhodaletra9", "9", setSize<9>},
    {"MnuFormatarTamanhodaletra10", "10", setSize<10>}, {"MnuFormatarTamanhodaletra11", "11", setSize<11>},
    {"MnuFormatarTamanhodaletra12", "12", setSize<12>}, {"MnuFormatarTamanhodaletra14", "14", setSize<14>},
    {"MnuFormatarTamanhodaletra16", "16", setSize<16>}, {"MnuFormatarTamanhodaletra18", "18", setSize<18>},
    {"MnuFormatarTamanhodaletra20", "20", setSize<20>}, {"MnuFormatarTamanhodaletra22", "22", setSize<22>},
    {"MnuFormatarTamanhodaletra24", "24", setSize<24>}, {"MnuFormatarTamanhodaletra26", "26", setSize<26>},
    {"MnuFormatarTamanhodaletra28", "28", setSize<28>}, {"MnuFormatarTamanhodaletra36", "36", setSize<36>},
    {"MnuFormatarTamanhodaletra48", "48", setSize<48>}, {"MnuFormatarTamanhodaletra72", "72", setSize<72>},
};

QList<MenuRow> sizeRows() {
    QList<MenuRow> rows{{1, "MnuFormatarTamanhodaletra", "Font si&ze"}};
    for (const SizeCommand &size : kSizes)
        rows << MenuRow{2,       size.item, size.caption,   "EscolherTamanhoDaLetra",
                        nullptr, nullptr,   MenuRow::Plain, size.prepare};
    return rows;
}

const QList<MenuRow> kHpFileRows{
    {1, "MnuFicheiroGuardaremformatoHP", "Save As &HP File", "MnuFicheiroGuardaremformatoHP", nullptr,
     "save-hp"},
    {1, "MnuFicheiroSeparador2", "-"},
};

const QList<MenuRow> kSendRows = sendRows({
    {2, "MnuFicheiroEnviarparaEdicaotextual", "Textual edition", "MnuFicheiroEnviarparaEdicaotextual",
     nullptr, "send-text"},
    {2, "MnuFicheiroEnviarparaEdicaotextualCF", "Textual edition (source-code)",
     "EnviarCódigoFonteParaEdiçãoTextual", nullptr, "send-text-source"},
});

const QList<MenuRow> kPreviewRows{
    {1, "MnuVerPrévisualizar", "Preview source-code", "MnuVerPrévisualizar"},
    {1, "MnuVerPrévisualizarSelecçao", "Preview selected (source-code)", "MnuVerPrévisualizarSelecçao",
     nullptr, "preview-source"},
};

} // namespace

const QList<MenuRow> &graphMenuTable() {
    static const QList<MenuRow> table =
        fileRows() + kHpFileRows + printRows() + kSendRows + exitRows() + editRows() + viewRows() +
        kPreviewRows + fullScreenRows() +
        QList<MenuRow>{
            {0, "MnuInserir", "&Insert"},
            {1, "MnuInserirDataehora", "&Date and time...", "MostrarDateTimeFrm"},
            {1, "MnuInserirSeparador1", "-"},
            {1, "MnuInserirImagem", "&Image"},
        } +
        imageRows(2, NamesOf::MenuBar, RowsOf::Graphical) +
        QList<MenuRow>{
            {2, "MnuInserirImagemNovodesenho", "&New drawing"},
            {1, "MnuInserirSeparador2", "-"},
            {1, "MnuInserirLinhahorizontal", "&Horizontal line", "MnuInserirLinhahorizontal"},
            {0, "MnuFormatar", "F&ormat"},
        } +
        sizeRows() + styleRows(NamesOf::MenuBar, RowsOf::Graphical) + caseAndColourRows() +
        QList<MenuRow>{
            {0, "MnuFerramentas", "&Tools"},
            {1, "MnuFerramentasConverterformatos", "&Convert image formats", "MostrarEditTextConvImgFrm",
             nullptr, "convert-image"},
            {1, "MnuFerramentasSeparador1", "-"},
            {1, "MnuFerramentasContarpalavras", "&Count words", "MostrarEditTextWordCountFrm"},
        } +
        optionsRows() + windowMenuRows(true) + helpRows();
    return table;
}

const QList<MenuRow> &graphPopUpTable() {
    static const QList<MenuRow> table =
        popUpRows() + imageRows(3, NamesOf::PopUp, RowsOf::Graphical) +
        QList<MenuRow>{
            {2, "MnuPopUpInserirLinhahorizontal", "&Horizontal line", "MnuInserirLinhahorizontal"},
            {1, "MnuPopUpPrévisualizar", "Preview selected (source-code)", "MnuVerPrévisualizarSelecçao",
             nullptr, "preview-source"},
        } +
        styleRows(NamesOf::PopUp, RowsOf::Graphical);
    return table;
}

const QList<ToolRow> &graphStandardToolbarTable() {
    static const QList<ToolRow> table =
        fileButtons() +
        QList<ToolRow>{
            {"Guardar como ficheiro HP", "Save as HP file", "save-hp", "MnuFicheiroGuardaremformatoHP"},
        } +
        printButtons() + editButtons() +
        QList<ToolRow>{
            {"Pré-visualizar código fonte da selecção", "Preview selection source-code", "preview-source",
             "MnuVerPrévisualizarSelecçao"},
        } +
        fullScreenButtons() +
        QList<ToolRow>{
            {"Enviar para edição textual", "Send to Textual Edition", "send-text",
             "MnuFicheiroEnviarparaEdicaotextual"},
            {"Enviar para edição textual código fonte", "Send to Textual Edition (source-code)",
             "send-text-source", "EnviarCódigoFonteParaEdiçãoTextual"},
            {"", "", nullptr},
            {"Ajuda", "Help", "help", "MnuAjudadozolt"},
        };
    return table;
}

const QList<ToolRow> &graphFormatToolbarTable() {
    static const QList<ToolRow> table =
        formatButtons(RowsOf::Graphical) + QList<ToolRow>{
                                               {"", "", nullptr},
                                               {"Converter formatos de imagem", "Convert image formats",
                                                "convert-image", "MostrarEditTextConvImgFrm"},
                                           };
    return table;
}

} // namespace zolt
