#pragma once

#include "symbols/symbol_cell.h"

#include <QFrame>
#include <array>

namespace zolt {

/// The squares in which a symbol is drawn, 6 rows of 4: black ones are dots. A click
/// changes a square. With the focus, the arrow keys move a mark and the space bar
/// changes the square there.
class CellGrid : public QFrame {
    Q_OBJECT

public:
    /// Square `number`, from 1, bears the object name "Picture" and that number.
    explicit CellGrid(QWidget *parent = nullptr);

    const CellDots &dots() const { return m_dots; }
    void setDots(const CellDots &dots);

signals:
    /// The user changed a square.
    void drawn();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    class Square;

    void changeSquare(int number);
    void moveMark(int columns, int rows);
    void redraw();

    CellDots m_dots;
    int m_mark = 1;
    std::array<Square *, kCellSquares> m_squares;
};

/// A symbol at the calculator's size, two pixels to the dot.
class CellPreview : public QWidget {
    Q_OBJECT

public:
    explicit CellPreview(QWidget *parent = nullptr);

    const CellDots &dots() const { return m_dots; }
    void setDots(const CellDots &dots);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    CellDots m_dots;
};

} // namespace zolt
