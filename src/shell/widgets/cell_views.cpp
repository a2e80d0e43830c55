#include "shell/widgets/cell_views.h"

#include "platform/colours.h"
#include "shell/base/windows.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace zolt {

namespace {

/// Neighbours share the line between them.
constexpr int kSquareSize = pixels(495);
constexpr int kSquarePitch = pixels(480);
constexpr int kPixelsPerDot = 2;

/// The system's window colour; on a dark desktop black dots need paper instead.
QColor offColour() {
    const QColor window = qtColour(kSystemWindow, QPalette::Base);
    return window.lightness() < 128 ? QColor(Qt::white) : window;
}

} // namespace

class CellGrid::Square : public QWidget {
public:
    Square(int number, CellGrid *grid) : QWidget(grid), m_grid(grid), m_number(number) {
        setObjectName(QStringLiteral("Picture%1").arg(number));
        const int column = (number - 1) % kCellWidth;
        const int row = (number - 1) / kCellWidth;
        const int edge = grid->frameWidth();
        setGeometry(edge + column * kSquarePitch, edge + row * kSquarePitch, kSquareSize, kSquareSize);
    }

protected:
    void mousePressEvent(QMouseEvent *) override {}
    void mouseReleaseEvent(QMouseEvent *event) override {
        if (rect().contains(event->position().toPoint()))
            m_grid->changeSquare(m_number);
    }
    void mouseDoubleClickEvent(QMouseEvent *) override {}

    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(squareIsOn(m_grid->m_dots, m_number) ? QColor(Qt::black) : offColour());
        painter.drawRect(0, 0, width() - 1, height() - 1);
        if (m_grid->hasFocus() && m_grid->m_mark == m_number) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(3, 3, width() - 6, height() - 6);
        }
    }

private:
    CellGrid *m_grid;
    int m_number;
};

CellGrid::CellGrid(QWidget *parent) : QFrame(parent), m_dots{}, m_squares{} {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::StrongFocus);
    for (int number = 1; number <= kCellSquares; ++number)
        m_squares[static_cast<std::size_t>(number - 1)] = new Square(number, this);
    const int edges = 2 * frameWidth() + kSquareSize - kSquarePitch;
    setFixedSize(kCellWidth * kSquarePitch + edges, kCellHeight * kSquarePitch + edges);
}

void CellGrid::setDots(const CellDots &dots) {
    m_dots = dots;
    redraw();
}

void CellGrid::redraw() {
    for (Square *square : m_squares)
        square->update();
}

void CellGrid::changeSquare(int number) {
    toggleSquare(m_dots, number);
    m_mark = number;
    setFocus();
    redraw();
    emit drawn();
}

void CellGrid::moveMark(int columns, int rows) {
    const int column = std::clamp((m_mark - 1) % kCellWidth + columns, 0, kCellWidth - 1);
    const int row = std::clamp((m_mark - 1) / kCellWidth + rows, 0, kCellHeight - 1);
    m_mark = row * kCellWidth + column + 1;
    redraw();
}

void CellGrid::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Left:
        return moveMark(-1, 0);
    case Qt::Key_Right:
        return moveMark(1, 0);
    case Qt::Key_Up:
        return moveMark(0, -1);
    case Qt::Key_Down:
        return moveMark(0, 1);
    case Qt::Key_Space:
        return changeSquare(m_mark);
    default:
        return QFrame::keyPressEvent(event);
    }
}

void CellGrid::focusInEvent(QFocusEvent *event) {
    QFrame::focusInEvent(event);
    redraw();
}

void CellGrid::focusOutEvent(QFocusEvent *event) {
    QFrame::focusOutEvent(event);
    redraw();
}

CellPreview::CellPreview(QWidget *parent) : QWidget(parent), m_dots{} {
    setFixedSize(pixels(120), pixels(180));
}

void CellPreview::setDots(const CellDots &dots) {
    m_dots = dots;
    update();
}

void CellPreview::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    for (int square = 1; square <= kCellSquares; ++square)
        if (squareIsOn(m_dots, square))
            painter.fillRect((square - 1) % kCellWidth * kPixelsPerDot,
                             (square - 1) / kCellWidth * kPixelsPerDot, kPixelsPerDot, kPixelsPerDot,
                             Qt::black);
}

} // namespace zolt
