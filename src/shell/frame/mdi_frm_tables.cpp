#include "shell/frame/mdi_frm_tables.h"

namespace zolt {

QList<MenuRow> windowMenuRows(bool enabled) {
    QList<MenuRow> rows{
        {0, "MnuJanela", "&Window"},
        {1, "MnuJanelaMosaicovertical", "Tile Vertically", "tileVertically"},
        {1, "MnuJanelaMosaicohorizontal", "Tile &Horizontally", "tileHorizontally"},
        {1, "MnuJanelaCascata", "&Cascade", "cascade"},
        {1, "MnuJanelaSeparador1", "-"},
        {1, "MnuJanelaMinimizartudo", "&Minimize All", "minimizeAll"},
        {1, "MnuJanelaRestaurartudo", "&Restore All ", "restoreAll"},
        {1, "MnuJanelaFechartudo", "Close &All", "closeAll"},
        {1, "MnuJanelaSeparador2", "-"},
    };
    if (!enabled)
        for (MenuRow &row : rows)
            row.slot = nullptr;
    return rows;
}

const QList<MenuRow> &frameMenuTable() {
    static const QList<MenuRow> table =
        QList<MenuRow>{
            {0, "MnuFicheiro", "&File"},
            {1, "MnuFicheiroNovo", "&New...", "MnuFicheiroNovo", "Ctrl+O", "new"},
            {1, "MnuFicheiroAbrir", "&Open...", nullptr, "Ctrl+A", "open"},
            {1, "MnuFicheiroFechar", "&Close"},
            {1, "MnuFicheiroRecentFiles", "Recent &files"},
            {2, "MnuFicheiroRecentFilesNone", "(None)"},
            {1, "MnuFicheiroSeparador1", "-"},
            {1, "MnuFicheiroGuardar", "&Save", nullptr, "Ctrl+G", "save"},
            {1, "MnuFicheiroGuardarcomo", "Save &As"},
            {1, "MnuFicheiroSeparador2", "-"},
            {1, "MnuFicheiroImprimir", "&Print...", nullptr, "Ctrl+P", "print"},
            {1, "MnuFicheiroSeparador3", "-"},
            {1, "MnuFicheiroSair", "E&xit", "MnuFicheiroSair"},
            {0, "MnuVer", "&View"},
            {1, "MnuVerBarradeferramentas", "&Toolbar", "MnuVerBarradeferramentas", nullptr, nullptr,
             MenuRow::Checked},
        } +
        windowMenuRows(false) +
        QList<MenuRow>{
            {0, "MnuAjuda", "&Help"},
            {1, "MnuAjudadozolt", "Help", "MnuAjudadozolt", "F1", "help"},
            {1, "MnuAjudaSeparador1", "-"},
            {1, "MnuAjudaAcercadoZOLT", "&About ZOLT", "MnuAjudaAcercadoZOLT"},
        };
    return table;
}

const QList<ToolRow> &frameToolbarTable() {
    static const QList<ToolRow> table{
        {"New", "New", "new", "MnuFicheiroNovo"},
        {"Open", "Open", "open"},
        {"Save", "Save", "save"},
        {"Print", "Print", "print"},
        {"Help", "Help", "help", "MnuAjudadozolt"},
    };
    return table;
}

} // namespace zolt
