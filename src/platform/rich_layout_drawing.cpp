#include "platform/rich_layout.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace zolt {

namespace {

/// Qt marks selected text only; an object gets the colour of the selection over it.
void veilObjects(QPainter *painter, QPointF place, const QTextLayout &layout,
                 const QList<QTextLayout::FormatRange> &selections) {
    const QString text = layout.text();
    for (const QTextLayout::FormatRange &range : selections) {
        QColor colour = range.format.background().color();
        colour.setAlpha(128);
        const int from = std::max(range.start, 0);
        const int to = std::min(range.start + range.length, static_cast<int>(text.size()));
        for (auto i = text.indexOf(QChar::ObjectReplacementCharacter, from); i >= 0 && i < to;
             i = text.indexOf(QChar::ObjectReplacementCharacter, i + 1)) {
            const int at = static_cast<int>(i);
            const QTextLine line = layout.lineForTextPosition(at);
            const qreal left = line.cursorToX(at);
            const qreal right = line.cursorToX(at + 1);
            painter->fillRect(QRectF(left, line.y(), right - left, line.height()).translated(place), colour);
        }
    }
}

} // namespace

void RichLayout::draw(QPainter *painter, const PaintContext &context) {
    const QScopedValueRollback quiet(m_quiet, true);
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF({}, documentSize());
    const auto top = static_cast<qint64>(std::floor(clip.top() - document()->documentMargin()));
    for (QTextBlock block = blockAt(top); block.isValid(); block = block.next()) {
        if (blockBoundingRect(block).top() > clip.bottom())
            break;
        drawBlock(painter, context, block);
    }
    if (documentSize() != m_reported)
        m_idle.start(); // not while a window is painted
}

void RichLayout::drawBlock(QPainter *painter, const PaintContext &context, const QTextBlock &block) const {
    QList<QTextLayout::FormatRange> selections;
    for (const Selection &selection : context.selections) {
        const int start = selection.cursor.selectionStart() - block.position();
        const int end = selection.cursor.selectionEnd() - block.position();
        if (start >= block.length() || end <= 0 || end <= start)
            continue;
        selections << QTextLayout::FormatRange{start, end - start, selection.format};
    }
    const QPointF place = blockBoundingRect(block).topLeft();
    painter->setPen(context.palette.color(QPalette::Text));
    block.layout()->draw(painter, place, selections, context.clip);
    veilObjects(painter, place, *block.layout(), selections);

    int caret = context.cursorPosition;
    const bool composing = caret < -1 && !block.layout()->preeditAreaText().isEmpty();
    if (composing)
        caret = block.layout()->preeditAreaPosition() - (caret + 2);
    else
        caret -= block.position();
    if (composing || (context.cursorPosition >= 0 && caret >= 0 && caret < block.length())) {
        bool known = false;
        const int width = property("cursorWidth").toInt(&known);
        block.layout()->drawCursor(painter, place, caret, known ? width : 1);
    }
}

int RichLayout::hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const {
    const QTextBlock block =
        blockAt(static_cast<qint64>(std::floor(point.y() - document()->documentMargin())));
    const QPointF inBlock = point - blockBoundingRect(block).topLeft();
    const QTextLayout *layout = block.layout();
    QTextLine line = layout->lineAt(0);
    for (int i = 1; i < layout->lineCount() && layout->lineAt(i).y() <= inBlock.y(); ++i)
        line = layout->lineAt(i);
    if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inBlock))
        return -1;
    return block.position() + line.xToCursor(inBlock.x());
}

} // namespace zolt
