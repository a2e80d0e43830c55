#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QTextLayout>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

class QPainter;
class QTextBlock;

namespace zolt {

class PaneLayout;

/// Draws what a text pane shows beneath its characters: dots of picture cells, and the
/// places where the calculator breaks lines.
class PaneDrawing {
public:
    /// Draws in a part of the view.
    PaneDrawing(QPainter &painter, const PaneLayout &layout, const QColor &text, const QRectF &part)
        : m_painter(painter), m_layout(layout), m_text(text), m_part(part) {}

    /// Draws for a paragraph that is laid out at a place of the view; paragraphs come in
    /// their order.
    void draw(const QTextBlock &block, QPointF place);

private:
    void drawLimit(const QTextBlock &block, QPointF place, const std::string &bytes);
    void drawLimitAt(const QTextLayout &layout, QPointF place, std::size_t fold, std::size_t length);
    void drawPicture(const QTextLayout &layout, QPointF place, std::string_view cells, int start);
    /// Draws the picture of which a paragraph is a row, its rows one below the other from
    /// the first one's place, however many display lines their cells take.
    /// False, with nothing drawn, for a picture of very many rows.
    bool drawWhole(const QTextBlock &row, QPointF place);
    void drawCells(std::string_view cells, QRectF place);
    bool isInPart(const QTextLine &line, QPointF place) const;
    /// The column at which the calculator begins a paragraph.
    std::ptrdiff_t columnOf(const QTextBlock &block) const;

    QPainter &m_painter;
    const PaneLayout &m_layout;
    QColor m_text;
    QRectF m_part;
    std::optional<std::ptrdiff_t> m_column; // behind the paragraph drawn last
    int m_drawn = -1;                       // up to this paragraph pictures are drawn whole
};

} // namespace zolt
