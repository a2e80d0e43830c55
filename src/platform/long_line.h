#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QTextLayout>

class QPainter;
class QTextBlock;

namespace zolt {

/// Whether a paragraph that stands in one display line is so long that it is worth while
/// to draw no more of it than is seen. Qt shapes and draws a display line whole, and where
/// its fonts alternate the time grows with the square of its length.
bool isLongLine(const QTextBlock &block);

/// Draws of such a paragraph, which is laid out at a place of the view, the characters
/// within a part of the view, as its layout would. Selections count from its start.
void drawLongLine(QPainter &painter, const QTextBlock &block, QPointF place,
                  const QList<QTextLayout::FormatRange> &selections, const QRectF &part);

} // namespace zolt
