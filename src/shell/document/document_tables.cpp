#include "shell/document/document_tables.h"

#include "core/codes.h"
#include "shell/base/shared_values.h"

#include <iterator>

namespace zolt {

namespace {

constexpr char kSeparator[] = "";

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
    /// What the command hands to AplicarEstilosDeLetra in each edition. The textual
    /// edition's Normal is a command of its own.
    void (*letter)();
    void (*font)();
    Style style;
};

template <char letter> void setStyle() {
    shared::EstiloDeLetra = letter;
}
template <Style style> void setStyleFont() {
    shared::FonteDeEstilo = fontOfStyle(style);
}

constexpr StyleCommand kStyles[] = {
    {"MnuFormatarEstiloNormal", "MnuPopUpEstiloNormal", "&Normal (clean)", "Normal", "Normal (clean)",
     "normal", 3, nullptr, setStyleFont<Style::Plain>, Style::Plain},
    {"MnuFormatarEstiloNegrito", "MnuPopUpEstiloNegrito", "&Bold", "Bold", "Bold", "bold", 0, setStyle<'B'>,
     setStyleFont<Style::Bold>, Style::Bold},
    {"MnuFormatarEstiloItálico", "MnuPopUpEstiloItálico", "&Italic", "Itálico à direita", "Italic", "italic",
     1, setStyle<'/'>, setStyleFont<Style::ItalicRight>, Style::ItalicRight},
    {"MnuFormatarEstiloSublinhado", "MnuPopUpEstiloSublinhado", "&Underline", "Underline", "Underline",
     "underline", 2, setStyle<'U'>, setStyleFont<Style::Underline>, Style::Underline},
    {"MnuFormatarEstiloItálicoàesquerda", "MnuPopUpEstiloItálicoàesquerda", "&Left italic",
     "Itálico à esquerda", "Left italic", "left-italic", 5, setStyle<'|'>, setStyleFont<Style::ItalicLeft>,
     Style::ItalicLeft},
    {"MnuFormatarEstiloDuplalargura", "MnuPopUpEstiloDuplalargura", "&Double size", "Dupla largura",
     "Double size", "double-size", 6, setStyle<'D'>, setStyleFont<Style::Double>, Style::Double},
    {"MnuFormatarEstiloInverso", "MnuPopUpEstiloInverso", "&Invert", "Inverso", "Invert", "inverse", 4,
     setStyle<'V'>, setStyleFont<Style::Inverse>, Style::Inverse},
    {"MnuFormatarEstiloSuperioràlinha", "MnuPopUpEstiloSuperioràlinha", "&Exponent", "Superior à linha",
     "Exponent", "exponent", 7, setStyle<'E'>, setStyleFont<Style::Exponent>, Style::Exponent},
    {"MnuFormatarEstiloInferioràlinha", "MnuPopUpEstiloInferioràlinha", "&Index", "Inferior à linha", "Index",
     "index", 8, setStyle<'I'>, setStyleFont<Style::Index>, Style::Index},
};

const char *slotOf(const StyleCommand &style, RowsOf edition) {
    return edition == RowsOf::Textual && !style.letter ? "LimparEstilosDeLetra" : "AplicarEstilosDeLetra";
}

void (*valueOf(const StyleCommand &style, RowsOf edition))() {
    return edition == RowsOf::Textual ? style.letter : style.font;
}

/// A source of pictures as the menus and the format toolbar offer it.
struct ImageCommand {
    const char *menuItem;
    const char *menuCaption;
    const char *popUpItem;
    const char *popUpCaption;
    const char *key;
    const char *toolTip;
    const char *icon;
    const char *textSlot;
    const char *graphSlot;
};

constexpr ImageCommand kImages[] = {
    {"MnuInserirImagemBmpgifjpg", "&BMP GIF JPG ...", "MnuPopUpInserirImagemBmpgifjpg",
     "&BMP GIF JPG ICO CUR", "Inserir imagem BMP", "Insert BMP GIF JPG ...", "insert-picture",
     "MostrarEditTextInsertImageFrm", "MostrarEditGraphInsertImageFrm"},
    {"MnuInserirImagemGrob", "&HP GROB", "MnuPopUpInserirImagemGrob", "&HP GROB", "Inserir imagem GROB",
     "Insert GROB image", "insert-grob", "MostrarEditTextInsertGrobFrm", "MostrarEditGraphInsertGrobFrm"},
    {"MnuInserirImagemFormatovelda", "&ZOLT Image", "MnuPopUpInserirImagemFormatovelda", "&ZOLT Image",
     "Inserir imagem VELDA", "Insert ZOLT image", "insert-zolt-image", "MostrarEditTextInsertVeldaFrm",
     "MostrarEditGraphInsertVeldaFrm"},
};

const char *slotOf(const ImageCommand &image, RowsOf edition) {
    return edition == RowsOf::Textual ? image.textSlot : image.graphSlot;
}

} // namespace

QList<MenuRow> fileRows() {
    return {
        {0, "MnuFicheiro", "&File"},
        {1, "MnuFicheiroNovo", "&New...", "FicheiroNovo", "Ctrl+O", "new"},
        {1, "MnuFicheiroAbrir", "&Open...", "FicheiroAbrir", "Ctrl+A", "open"},
        {1, "MnuFicheiroFechar", "&Close", "FicheiroFechar"},
        {1, "MnuFicheiroRecuperartexto", "&Recover text...", "MostrarRecoverFrm"},
        {1, "MnuFicheiroRecentFiles", "Recent &files"},
        {2, "MnuFicheiroRecentFilesNone", "(None)"},
        {1, "MnuFicheiroSeparador1", "-"},
        {1, "MnuFicheiroGuardar", "&Save", "FicheiroGuardar", "Ctrl+G; Ctrl+S", "save"},
        {1, "MnuFicheiroGuardarcomo", "Save &As", "FicheiroGuardarComo"},
    };
}

QList<MenuRow> printRows() {
    return {
        {1, "MnuFicheiroConfigurarpágina", "Page Set&up", "MostrarEditPageSetupFrm"},
        {1, "MnuFicheiroImprimir", "&Print...", "Imprimir", "Ctrl+P", "print"},
        {1, "MnuFicheiroSeparador6", "-"},
    };
}

QList<MenuRow> sendRows(const QList<MenuRow> &editions) {
    return QList<MenuRow>{{1, "MnuFicheiroEnviarpara", "&Send to"}} + editions +
           QList<MenuRow>{{2, "MnuFicheiroEnviarparaMicrosoftword", "Microsoft Word"}};
}

QList<MenuRow> exitRows() {
    return {
        {1, "MnuFicheiroSeparador5", "-"},
        {1, "MnuFicheiroSair", "E&xit", "AbandonarPrograma"},
    };
}

QList<MenuRow> editRows() {
    return {
        {0, "MnuEditar", "&Edit"},
        {1, "MnuEditarAnularintrodução", "&Undo", "EditarAnularintrodução", "Ctrl+Z", "undo"},
        {1, "MnuEditarSeparador1", "-"},
        {1, "MnuEditarCortar", "Cu&t", "EditarCortar", "Ctrl+X", "cut"},
        {1, "MnuEditarCopiar", "&Copy", "EditarCopiar", "Ctrl+C", "copy"},
        {1, "MnuEditarColar", "&Paste", "EditarColar", "Ctrl+V", "paste"},
        {1, "MnuEditarSeparador2", "-"},
        {1, "MnuEditarSeleccionartudo", "Select &All", "EditarSeleccionarTudo", "Ctrl+Shift+A"},
        {1, "MnuEditarLocalizar", "&Find and replace", "EditarLocalizarESubstituir", "Ctrl+F",
         "find-replace"},
        {1, "MnuEditarSeparador3", "-"},
        {1, "MnuEditarTranslinearpalavras", "&Word Wrap", "EditarTranslinearpalavras", nullptr, nullptr,
         MenuRow::Unchecked},
    };
}

QList<MenuRow> viewRows() {
    return {
        {0, "MnuVer", "&View"},
        {1, "MnuVerBarradeestado", "&Status Bar", "MnuVerBarradeestado", nullptr, nullptr, MenuRow::Checked},
        {1, "MnuVerBarradecaracteres", "&Quick bar", "VerBarradecaracteres", nullptr, "quick-bar"},
        {1, "MnuVerTabeladecaracteres", "&Character table", "VerTabeladecaracteres", nullptr,
         "character-table"},
        {1, "MnuVerBarrasdeferramentas", "&Toolbar"},
        {2, "MnuVerBarrasdeferramentasPadrão", "Default", "MnuVerBarrasdeferramentasPadrão", nullptr, nullptr,
         MenuRow::Checked},
        {2, "MnuVerBarrasdeferramentasFormatação", "Format", "MnuVerBarrasdeferramentasFormatação", nullptr,
         nullptr, MenuRow::Checked},
        {1, "MnuVerSeparador1", "-"},
        {1, "MnuVerSemprenotopo", "Always on Top", "MnuVerSemprenotopo", nullptr, nullptr,
         MenuRow::Unchecked},
        {1, "MnuVerLivePreview", "&Live preview", "MnuVerLivePreview", nullptr, nullptr, MenuRow::Unchecked},
        {1, "MnuVerSeparador2", "-"},
    };
}

QList<MenuRow> fullScreenRows() {
    return {{1, "MnuVerEcrainteiro", "F&ull Screen", "MnuVerEcrainteiro", "F11", "full-screen"}};
}

QList<MenuRow> imageRows(int level, NamesOf names, RowsOf edition) {
    QList<MenuRow> rows;
    const bool popUp = names == NamesOf::PopUp;
    for (const ImageCommand &image : kImages)
        rows << MenuRow{level,
                        popUp ? image.popUpItem : image.menuItem,
                        popUp ? image.popUpCaption : image.menuCaption,
                        slotOf(image, edition),
                        nullptr,
                        image.icon};
    return rows;
}

QList<MenuRow> styleRows(NamesOf names, RowsOf edition) {
    const bool popUp = names == NamesOf::PopUp;
    QList<MenuRow> rows{{1, popUp ? "MnuPopUpEstilo" : "MnuFormatarEstilo", "&Style"}};
    for (const StyleCommand &style : kStyles)
        rows << MenuRow{2,
                        popUp ? style.popUpItem : style.menuItem,
                        style.caption,
                        slotOf(style, edition),
                        nullptr,
                        style.icon,
                        MenuRow::Plain,
                        valueOf(style, edition)};
    return rows;
}

QList<MenuRow> caseAndColourRows() {
    return {
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
}

QList<MenuRow> optionsRows() {
    return {
        {1, "MnuFerramentasSeparador2", "-"},
        {1, "MnuFerramentasOpções", "&Options", "MostrarEditTextOptionsFrm"},
        {1, "MnuOpçõesAssociaçõesdeficheiros", "F&ile Associations", "MostrarFileAssFrm"},
    };
}

QList<MenuRow> helpRows() {
    return {
        {0, "MnuAjuda", "&Help"},
        {1, "MnuAjudadozolt", "Help", "MnuAjudadozolt", "F1", "help"},
        {1, "MnuAjudaSeparador1", "-"},
        {1, "MnuAcercadozolt", "&About ZOLT", "MnuAjudaAcercadoZOLT"},
    };
}

QList<MenuRow> popUpRows() {
    return {
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
    };
}

QList<ToolRow> fileButtons() {
    return {
        {"Novo", "New", "new", "FicheiroNovo"},
        {"Abrir", "Open", "open", "FicheiroAbrir"},
        {"Guardar", "Save", "save", "FicheiroGuardar"},
    };
}

QList<ToolRow> printButtons() {
    return {{"Imprimir", "Print", "print", "Imprimir"}};
}

QList<ToolRow> editButtons() {
    return {
        {kSeparator, "", nullptr},
        {"Localizar e substituir", "Find and replace", "find-replace", "EditarLocalizarESubstituir"},
        {"Translinear palavras", "Word Wrap", "word-wrap", "EditarTranslinearpalavras", nullptr,
         MenuRow::Unchecked},
        {kSeparator, "", nullptr},
        {"Cortar", "Cut", "cut", "EditarCortar"},
        {"Copiar", "Copy", "copy", "EditarCopiar"},
        {"Colar", "Paste", "paste", "EditarColar"},
        {"Anular Introdução", "Undo", "undo", "EditarAnularintrodução"},
        {"Refazer Introdução", "Redo", "redo", "EditarAnularintrodução"},
        {kSeparator, "", nullptr},
        {"Barra de caracteres", "Quick Bar", "quick-bar", "VerBarradecaracteres"},
        {"Tabela de caracteres", "Character table", "character-table", "VerTabeladecaracteres"},
        {kSeparator, "", nullptr},
    };
}

QList<ToolRow> fullScreenButtons() {
    return {
        {"Ecrã inteiro", "Full screen", "full-screen", "MnuVerEcrainteiro"},
        {kSeparator, "", nullptr},
    };
}

QList<StyleButton> styleButtons() {
    QList<StyleButton> buttons;
    for (const StyleCommand &style : kStyles)
        buttons << StyleButton{fontOfStyle(style.style), style.key};
    return buttons;
}

QList<ToolRow> formatButtons(RowsOf edition) {
    QList<ToolRow> rows(std::size(kStyles), ToolRow{});
    const MenuRow::Check check = edition == RowsOf::Textual ? MenuRow::Plain : MenuRow::Unchecked;
    for (const StyleCommand &style : kStyles)
        rows[style.toolbarPlace] = {
            style.key, style.toolTip, style.icon, slotOf(style, edition), valueOf(style, edition), check};
    rows << ToolRow{kSeparator, "", nullptr}
         << ToolRow{"Cor do texto", "Foreground color", "text-colour", "EscolherCorForeground"}
         << ToolRow{"Cor de fundo", "Background color", "background-colour", "EscolherCorBackground"}
         << ToolRow{kSeparator, "", nullptr};
    for (const ImageCommand &image : kImages)
        rows << ToolRow{image.key, image.toolTip, image.icon, slotOf(image, edition)};
    return rows;
}

} // namespace zolt
