#include "shell/edit_text_frm_tables.h"

#include "shell/mdi_frm_tables.h"

namespace zolt {

namespace {

const QList<MenuRow> kFileRows{
    {0, "MnuFicheiro", "&File"},
    {1, "MnuFicheiroNovo", "&New...", "FicheiroNovo", "Ctrl+O", "new"},
    {1, "MnuFicheiroAbrir", "&Open...", "FicheiroAbrir", "Ctrl+A", "open"},
    {1, "MnuFicheiroFechar", "&Close", "FicheiroFechar"},
    {1, "MnuFicheiroSeparador1", "-"},
    {1, "MnuFicheiroGuardar", "&Save", "FicheiroGuardar", "Ctrl+G", "save"},
    {1, "MnuFicheiroGuardarcomo", "Save &As", "FicheiroGuardarComo"},
    {1, "MnuFicheiroSeparador2", "-"},
    {1, "MnuFicheiroGuardarcomoficheiroHP", "&Integrity Test", "TesteDeIntegridade", nullptr,
     "integrity-test"},
    {1, "MnuFicheiroSeparador5", "-"},
    {1, "MnuFicheiroSair", "E&xit", "AbandonarPrograma"},
};

const QList<MenuRow> kEditRows{
    {0, "MnuEditar", "&Edit"},
    {1, "MnuEditarAnularintrodução", "&Undo", "EditarAnularintrodução", nullptr, "undo"},
    {1, "MnuEditarSeparador1", "-"},
    {1, "MnuEditarCortar", "Cu&t", "EditarCortar", nullptr, "cut"},
    {1, "MnuEditarCopiar", "&Copy", "EditarCopiar", nullptr, "copy"},
    {1, "MnuEditarColar", "&Paste", "EditarColar", nullptr, "paste"},
    {1, "MnuEditarSeparador2", "-"},
    {1, "MnuEditarSeleccionartudo", "Select &All", "EditarSeleccionarTudo"},
    {1, "MnuEditarSeparador3", "-"},
    {1, "MnuEditarTranslinearpalavras", "&Word Wrap", "EditarTranslinearpalavras", nullptr, nullptr,
     MenuRow::Unchecked},
};

const QList<MenuRow> kViewRows{
    {0, "MnuVer", "&View"},
    {1, "MnuVerBarradeestado", "&Status Bar", "MnuVerBarradeestado", nullptr, nullptr, MenuRow::Checked},
    {1, "MnuVerBarrasdeferramentas", "&Toolbar"},
    {2, "MnuVerBarrasdeferramentasPadrão", "Default", "MnuVerBarrasdeferramentasPadrão", nullptr, nullptr,
     MenuRow::Checked},
    {2, "MnuVerBarrasdeferramentasFormatação", "Format", "MnuVerBarrasdeferramentasFormatação", nullptr,
     nullptr, MenuRow::Checked},
    {1, "MnuVerSeparador1", "-"},
    {1, "MnuVerSemprenotopo", "Always on Top", "MnuVerSemprenotopo", nullptr, nullptr, MenuRow::Unchecked},
};

const QList<MenuRow> kInsertRows{
    {0, "MnuInserir", "&Insert"},
    {1, "MnuInserirImagem", "&Image"},
    {2, "MnuInserirImagemBmpgifjpg", "&BMP GIF JPG ...", "MnuInserirImagemBmpgifjpg", nullptr,
     "insert-picture"},
    {2, "MnuInserirImagemGrob", "&HP GROB", "MnuInserirImagemGrob", nullptr, "insert-grob"},
    {2, "MnuInserirImagemFormatovelda", "&ZOLT Image", "MnuInserirImagemFormatovelda", nullptr,
     "insert-zolt-image"},
    {2, "MnuInserirImagemNovodesenho", "&New drawing"},
};

const QList<MenuRow> kToolRows{
    {0, "MnuFerramentas", "&Tools"},
    {1, "MnuFerramentasConverterformatos", "&Convert image formats", "MnuFerramentasConverterformatos",
     nullptr, "convert-image"},
};

const QList<MenuRow> kHelpRows{
    {0, "MnuAjuda", "&Help"},
    {1, "MnuAjudadozolt", "Help", "MnuAjudadozolt", "F1", "help"},
    {1, "MnuAjudaSeparador1", "-"},
    {1, "MnuAcercadozolt", "&About ZOLT", "MnuAcercadozolt"},
};

} // namespace

const QList<MenuRow> &textMenuTable() {
    static const QList<MenuRow> table =
        kFileRows + kEditRows + kViewRows + kInsertRows + kToolRows + windowMenuRows(true) + kHelpRows;
    return table;
}

const QList<MenuRow> &textPopUpTable() {
    static const QList<MenuRow> table{
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
        {3, "MnuPopUpInserirImagemBmpgifjpg", "&BMP GIF JPG ICO CUR", "MnuInserirImagemBmpgifjpg", nullptr,
         "insert-picture"},
        {3, "MnuPopUpInserirImagemGrob", "&HP GROB", "MnuInserirImagemGrob", nullptr, "insert-grob"},
        {3, "MnuPopUpInserirImagemFormatovelda", "&ZOLT Image", "MnuInserirImagemFormatovelda", nullptr,
         "insert-zolt-image"},
    };
    return table;
}

const QList<ToolRow> &textStandardToolbarTable() {
    static const QList<ToolRow> table{
        {"Novo", "New", "new", "FicheiroNovo"},
        {"Abrir", "Open", "open", "FicheiroAbrir"},
        {"Guardar", "Save", "save", "FicheiroGuardar"},
        {"", "", nullptr},
        {"Translinear palavras", "Word Wrap", "word-wrap", "EditarTranslinearpalavras"},
        {"", "", nullptr},
        {"Cortar", "Cut", "cut", "EditarCortar"},
        {"Copiar", "Copy", "copy", "EditarCopiar"},
        {"Colar", "Paste", "paste", "EditarColar"},
        {"Anular Introdução", "Undo", "undo", "EditarAnularintrodução"},
        {"Refazer Introdução", "Redo", "redo", "EditarAnularintrodução"},
        {"", "", nullptr},
        {"Teste de integridade", "Integrity test", "integrity-test", "TesteDeIntegridade"},
        {"Ajuda", "Help", "help", "MnuAjudadozolt"},
    };
    return table;
}

const QList<ToolRow> &textFormatToolbarTable() {
    static const QList<ToolRow> table{
        {"Inserir imagem BMP", "Insert BMP GIF JPG ...", "insert-picture", "MnuInserirImagemBmpgifjpg"},
        {"Inserir imagem GROB", "Insert GROB image", "insert-grob", "MnuInserirImagemGrob"},
        {"Inserir imagem VELDA", "Insert ZOLT image", "insert-zolt-image", "MnuInserirImagemFormatovelda"},
        {"", "", nullptr},
        {"Converter formatos de imagem", "Convert image formats", "convert-image",
         "MnuFerramentasConverterformatos"},
    };
    return table;
}

} // namespace zolt
