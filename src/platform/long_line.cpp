#include "platform/long_line.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextOption>
#include <algorithm>
#include <climits>

namespace zolt {

namespace {

constexpr int kLong = 1'000; // characters
/// Characters beside the part, of which a slanted one may reach into it.
constexpr int kBeside = 4;

/// What formats say of the characters between two places, counted from the first of them.
QList<QTextLayout::FormatRange> between(int from, int to, const QList<QTextLayout::FormatRange> &formats) {
    QList<QTextLayout::FormatRange> found;
    for (const QTextLayout::FormatRange &range : formats) {
        const int begin = std::max(range.start, from);
        const int end = std::min(range.start + range.length, to);
        if (begin < end)
            found.append({begin - from, end - begin, range.format});
    }
    return found;
}

} // namespace

bool isLongLine(const QTextBlock &block) {
    // What an input method is composing isn't in the text.
    return block.length() > kLong && block.layout()->lineCount() == 1 &&
           block.layout()->preeditAreaText().isEmpty();
}

void drawLongLine(QPainter &painter, const QTextBlock &block, QPointF place,
                  const QList<QTextLayout::FormatRange> &selections, const QRectF &part) {
    const QTextLine whole = block.layout()->lineAt(0);
    const int from = std::max(0, whole.xToCursor(part.left() - place.x()) - kBeside);
    const int to = std::min(block.length() - 1, whole.xToCursor(part.right() - place.x()) + kBeside);

    QTextLayout layout(block.text().sliced(from, std::max(0, to - from)), block.document()->defaultFont(),
                       painter.device());
    layout.setTextOption(block.layout()->textOption());
    layout.setFormats(between(from, to, block.layout()->formats()));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(INT_MAX);
        line.setPosition({whole.cursorToX(from), whole.y()});
    }
    layout.endLayout();
    layout.draw(&painter, place, between(from, to, selections), part);
}

} // namespace zolt
