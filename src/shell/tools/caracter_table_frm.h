#pragma once

#include "shell/base/tool_frm.h"

class QComboBox;
class QFrame;
class QTableWidget;

namespace zolt {

/// All characters from 32 on in any installed font; a click inserts one.
class CaracterTableFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit CaracterTableFrm(QWidget *owner);

    /// Shows the window and leaves the keyboard where it is.
    void showBesideDocument();

public slots:
    /// Takes the font that Combo1 shows.
    void takeFont();
    /// Inserts the character of the selected cell.
    void insertCharacter();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fillGrid();
    /// Gives the grid a font and everything the size that the cells then need.
    void showFont(const QString &name);

    QFrame *Picture1;
    QTableWidget *Grid1;
    QComboBox *Combo1;
};

} // namespace zolt
