#include "platform/pane_drawing.h"

#include "hp48/fold.h"
#include "images/image_text.h"
#include "platform/held_text.h"
#include "platform/pane_layout.h"

#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <algorithm>
#include <cmath>
#include <vector>

namespace zolt {

namespace {

/// Paragraphs through which a fold in front of a line end is followed.
constexpr std::size_t kFollowedParagraphs = 64;

std::string bytesOfBlock(const QTextBlock &block) {
    return bytesOfHeldText(block.text());
}

bool hasDoubleSize(std::string_view line) {
    return line.find(std::string{kStyleMark, 'D'}) != std::string_view::npos;
}

/// Whether a line is a picture's: cells side by side, or cells and blanks alone. A symbol
/// in a text is a cell too.
bool belongsToPicture(std::string_view line) {
    bool hasCells = false;
    bool hasText = false;
    for (std::size_t i = 0; i < line.size();) {
        if (!beginsWithCell(line.substr(i))) {
            hasText = hasText || line[i] != ' ';
            ++i;
            continue;
        }
        hasCells = true;
        i += kCellLength;
        if (beginsWithCell(line.substr(i)))
            return true;
    }
    return hasCells && !hasText;
}

QImage imageOf(const DotSurface &surface, const QColor &colour) {
    QImage image(surface.width(), surface.height(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QRgb dot = qPremultiply(colour.rgba());
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.width(); ++x)
            if (surface.dot(x, y))
                image.setPixel(x, y, dot);
    return image;
}

} // namespace

void PaneDrawing::draw(const QTextBlock &block, QPointF place) {
    const PaneShows &shows = m_layout.look().shows();
    if (!PaneLook::isShort(block)) {
        m_column = 1;
        return;
    }
    const std::string bytes = bytesOfBlock(block);
    if (shows.limit)
        drawLimit(block, place, bytes);
    const QTextLayout &layout = *block.layout();
    const bool isRow = m_layout.wraps() && PaneLook::isPictureRow(block);
    for (const QTextLayout::FormatRange &range : layout.formats())
        if (PaneLook::isPicture(range) && !(isRow && drawWhole(block, place)))
            drawPicture(layout, place,
                        std::string_view(bytes).substr(static_cast<std::size_t>(range.start),
                                                       static_cast<std::size_t>(range.length)),
                        range.start);
}

void PaneDrawing::drawLimit(const QTextBlock &block, QPointF place, const std::string &bytes) {
    const LineFolds folds = foldsOfLine(bytes, m_column ? *m_column : columnOf(block));
    m_column = folds.columnBehind;
    if (belongsToPicture(bytes))
        return;
    // Of a long line only what is seen: its places take time.
    const QTextLayout &layout = *block.layout();
    const QTextLine last = layout.lineAt(layout.lineCount() - 1);
    const bool isOneLine = layout.lineCount() == 1;
    const auto from = isOneLine ? static_cast<std::size_t>(last.xToCursor(m_part.left() - place.x())) : 0;
    const auto to = isOneLine ? static_cast<std::size_t>(last.xToCursor(m_part.right() - place.x()))
                              : folds.places.back();
    for (const std::size_t fold : folds.places)
        if (fold >= std::min(from, bytes.size()) && (fold <= to || to >= bytes.size()))
            drawLimitAt(layout, place, fold, bytes.size());
}

void PaneDrawing::drawLimitAt(const QTextLayout &layout, QPointF place, std::size_t fold,
                              std::size_t length) {
    const int inText = static_cast<int>(std::min(fold, length));
    const QTextLine line =
        length == 0 ? layout.lineAt(0) : layout.lineForTextPosition(std::max(0, inText - 1));
    if (!line.isValid() || !isInPart(line, place))
        return;
    const qreal x = line.cursorToX(inText) +
                    static_cast<qreal>(fold - static_cast<std::size_t>(inText)) * m_layout.columnWidth();
    m_painter.fillRect(QRectF(std::floor(place.x() + x), place.y() + line.y(), 1, line.height()),
                       m_layout.look().limitColour());
}

void PaneDrawing::drawPicture(const QTextLayout &layout, QPointF place, std::string_view cells, int start) {
    const int end = start + static_cast<int>(cells.size());
    const auto cellsBefore = [&](int position) {
        return (static_cast<std::size_t>(position - start) + kCellLength - 1) / kCellLength;
    };
    const qreal column = m_layout.columnWidth();
    for (QTextLine line = layout.lineForTextPosition(start); line.isValid() && line.textStart() < end;
         line = line.lineNumber() + 1 < layout.lineCount() ? layout.lineAt(line.lineNumber() + 1)
                                                           : QTextLine()) {
        if (!isInPart(line, place))
            continue;
        const int from = std::max(start, line.textStart());
        const int to = std::min(end, line.textStart() + line.textLength());
        const qreal left = place.x() + line.cursorToX(from);
        const qreal room = place.x() + line.cursorToX(to) - left;
        // Those that begin in this display line and are seen, side by side from there.
        const std::size_t first = cellsBefore(from);
        const auto fitting = static_cast<std::size_t>(
            std::max<qreal>(0, std::floor(std::min(room, m_part.right() + column - left) / column + 0.01)));
        const std::size_t count = std::min(cellsBefore(to) - first, fitting);
        drawCells(cells.substr(first * kCellLength, count * kCellLength),
                  {left, place.y() + line.y(), static_cast<qreal>(count) * column, line.height()});
    }
}

bool PaneDrawing::drawWhole(const QTextBlock &row, QPointF place) {
    if (row.blockNumber() <= m_drawn)
        return true;
    QTextBlock first = row;
    for (int rows = 1; PaneLook::isPictureRow(first.previous()); ++rows) {
        if (rows == PaneLook::kMostRows)
            return false;
        first = first.previous();
        place.ry() -= m_layout.blockBoundingRect(first).height();
    }
    const QTextLine line = row.layout()->lineAt(0);
    const qreal column = m_layout.columnWidth();
    const auto fitting = static_cast<std::size_t>(std::max<qreal>(m_layout.lineWidth() / column, 1));
    QRectF cells(place + line.position(), QSizeF(0, line.height()));
    for (QTextBlock block = first; PaneLook::isPictureRow(block) && cells.top() <= m_part.bottom();
         block = block.next()) {
        if (cells.bottom() >= m_part.top()) {
            const std::string bytes = bytesOfBlock(block);
            const std::size_t count = std::min(bytes.size() / kCellLength, fitting);
            cells.setWidth(static_cast<qreal>(count) * column);
            drawCells(std::string_view(bytes).substr(0, count * kCellLength), cells);
        }
        m_drawn = block.blockNumber();
        cells.translate(0, line.height());
    }
    return true;
}

void PaneDrawing::drawCells(std::string_view cells, QRectF place) {
    if (const PictureOfText picture = VerVelda(cells); !picture.surface.isEmpty())
        m_painter.drawImage(place, imageOf(picture.surface, m_text));
}

bool PaneDrawing::isInPart(const QTextLine &line, QPointF place) const {
    const qreal top = place.y() + line.y();
    return top <= m_part.bottom() && top + line.height() >= m_part.top();
}

std::ptrdiff_t PaneDrawing::columnOf(const QTextBlock &block) const {
    // Only a code of double size makes a line begin at another column than 1.
    std::vector<std::string> lines;
    for (QTextBlock before = block.previous();
         before.isValid() && PaneLook::isShort(before) && lines.size() < kFollowedParagraphs;
         before = before.previous()) {
        std::string line = bytesOfBlock(before);
        if (!hasDoubleSize(line))
            break;
        lines.push_back(std::move(line));
    }
    std::ptrdiff_t column = 1;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        column = foldsOfLine(*line, column).columnBehind;
    return column;
}

} // namespace zolt
