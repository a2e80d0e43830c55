#pragma once

#include "shell/base/tool_frm.h"
#include "symbols/symbol_cell.h"
#include "symbols/symbol_list.h"

#include <initializer_list>

class QGroupBox;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QTabWidget;

namespace zolt {

class ByteLine;
class CellGrid;
class CellPreview;

/// The list of symbols, drawn dot by dot and put into the text edition's document.
/// The list stands in memory while the window does; OK writes it to the current
/// file.
class SymbolFrm : public ToolFrm {
    Q_OBJECT

public:
    enum Page { ListPage, EditionPage };

    explicit SymbolFrm(QWidget *owner);

    void showPage(Page page);
    /// Makes a file the current one, as Open does; false if it gives no symbols.
    bool openFile(const std::string &path);

public slots:
    void openList();
    void saveList();
    /// Adds a file's symbols behind the list's.
    void importList();
    void cleanList();
    /// The selected symbol: onto the drawing, out of the list, once more, up and down.
    void editSymbol();
    void removeSymbol();
    void duplicateSymbol();
    void moveUp();
    void moveDown();

    void cleanDrawing();
    void fillDrawing();
    void invertDrawing();
    /// Begins a symbol: an empty drawing, and the next title.
    void newSymbol();
    /// Puts the drawing behind the list, or into the place of SimboloSeleccionado.
    void addSymbol();
    void replaceSymbol();

    /// Inserts the list's or the drawing's symbol, by the page.
    void insert();
    void saveAndClose();
    void cancel();

private:
    struct ButtonRow;

    QWidget *buildListPage();
    QWidget *buildEditionPage();
    QLayout *buildClosingButtons();
    QPushButton *newButton(const ButtonRow &row);
    QGroupBox *newButtonGroup(const char *name, const char *caption, std::initializer_list<ButtonRow> rows,
                              Qt::Orientation orientation);
    void buildPopUp();

    /// The symbol of the selected line, from 1; 0 if no line is selected.
    int selectedSymbol() const;
    void selectSymbol(int number);
    /// Shows the selected line's symbol, or none.
    void followSelection();
    void followPage();

    void ActualizarLista();
    void showCount();
    void showFileName();
    /// Exchanges the selected symbol with its neighbour, -1 above or 1 below.
    void moveSelected(int step);

    /// Brings the expression in Text1 onto the grid and its preview.
    void Transferir();
    /// Puts the drawing's expression into Text3, and the drawing into its preview.
    void Expressao();
    void draw(const CellDots &dots);

    /// Shows a file dialog that starts at the current file; the path, or nothing.
    std::string askForFile(const QString &title, int flags);
    /// False if the list stays as it was.
    bool loadList(const std::string &path);

    SymbolList m_symbols;
    /// The symbol that Replace works on, from 1: the one whose line was selected
    /// when the page was last changed; 0 for none.
    int SimboloSeleccionado = 0;

    QTabWidget *SSTab1;
    QLabel *Label1;
    QLabel *Label2;
    QListWidget *List1;
    ByteLine *Text1;
    ByteLine *Text2;
    ByteLine *Text3;
    CellGrid *Picture25;
    CellPreview *Picture26;
    CellPreview *Picture29;
    QMenu *MnuPopUpSymbol;
};

} // namespace zolt
