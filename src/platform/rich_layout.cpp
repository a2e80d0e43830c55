#include "platform/rich_layout.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextLayout>
#include <QTextObjectInterface>
#include <algorithm>
#include <climits>
#include <cmath>

namespace zolt {

namespace {

constexpr qreal kUnlimited = INT_MAX;
constexpr int kMeasureFor = 5; // milliseconds in one turn of the event loop

/// The height of a paragraph that is laid out.
int heightOf(const QTextLayout &layout) {
    const QTextLine last = layout.lineAt(layout.lineCount() - 1);
    return static_cast<int>(std::ceil(last.y() + last.height()));
}

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

RichLayout::RichLayout(QTextDocument *document) : QAbstractTextDocumentLayout(document) {
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &RichLayout::measureSome);
}

bool RichLayout::wraps() const {
    return document()->pageSize().width() > 0;
}

qreal RichLayout::textWidth() const {
    return wraps() ? std::max<qreal>(document()->pageSize().width() - 2 * document()->documentMargin(), 1)
                   : kUnlimited;
}

void RichLayout::layOut(const QTextBlock &block) const {
    QTextLayout *layout = block.layout();
    if (layout->lineCount() == 0) {
        QTextOption option = document()->defaultTextOption();
        option.setTextDirection(Qt::LeftToRight);
        if (!wraps())
            option.setWrapMode(QTextOption::ManualWrap);
        layout->setTextOption(option);
        qreal y = 0;
        layout->beginLayout();
        for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
            line.setLeadingIncluded(true);
            line.setLineWidth(textWidth());
            line.setPosition({0, y});
            y += std::ceil(line.height());
            m_widest = std::max(m_widest, line.naturalTextWidth());
        }
        layout->endLayout();
    }
    note(block, {heightOf(*layout), layout->lineCount(), true});
}

void RichLayout::note(const QTextBlock &block, Size size) const {
    const auto number = static_cast<std::size_t>(block.blockNumber());
    if (number >= m_sizes.size())
        return;
    Size &known = m_sizes[number];
    const int difference = size.height - known.height;
    if (difference != 0) {
        const qreal bottom = static_cast<qreal>(top(block.blockNumber()) + known.height);
        m_height += difference;
        m_summed = std::min(m_summed, number);
        known = size;
        emit heightFound(bottom, difference);
    }
    known = size;
}

int RichLayout::heightOfFormat(const QTextBlock &block, int index, const QTextCharFormat &format) const {
    if (auto *object = dynamic_cast<QTextObjectInterface *>(handlerForObject(format.objectType())))
        return static_cast<int>(
            std::ceil(object->intrinsicSize(document(), block.position(), format).height()));
    const auto [found, isNew] = m_formatHeights.try_emplace(index);
    if (isNew) {
        const QFontMetricsF metrics(format.font(), paintDevice());
        found->second = static_cast<int>(std::ceil(metrics.ascent() + metrics.descent()));
        m_formatWidths[index] = metrics.averageCharWidth();
    }
    return found->second;
}

RichLayout::Size RichLayout::estimated(const QTextBlock &block) const {
    Size size{heightOfFormat(block, block.charFormatIndex(), block.charFormat()), 1, false};
    qreal width = 0;
    bool empty = true;
    for (auto it = block.begin(); !it.atEnd(); ++it, empty = false) {
        const QTextFragment fragment = it.fragment();
        const int index = fragment.charFormatIndex();
        const int height = heightOfFormat(block, index, fragment.charFormat());
        size.height = empty ? height : std::max(size.height, height);
        if (const auto found = m_formatWidths.find(index); found != m_formatWidths.end())
            width += found->second * fragment.length();
    }
    if (wraps() && width > textWidth()) {
        size.lines = static_cast<int>(std::ceil(width / textWidth()));
        size.height *= size.lines;
    }
    return size;
}

void RichLayout::documentChanged(int from, int /*removed*/, int added) {
    const QTextBlock behind = document()->findBlock(from + added);
    const int first = std::max(document()->findBlock(from).blockNumber(), 0);
    const int last = behind.isValid() ? behind.blockNumber() : document()->blockCount() - 1;
    const qint64 oldTotal = m_height;

    // The paragraphs that changed, before and now.
    const auto at = [this](int number) { return m_sizes.begin() + number; };
    const int more = document()->blockCount() - static_cast<int>(m_sizes.size());
    const int lastBefore = std::clamp(last - more, first - 1, static_cast<int>(m_sizes.size()) - 1);
    for (auto it = at(std::min<int>(first, m_sizes.size())); it < at(lastBefore + 1); ++it)
        m_height -= it->height;
    if (more > 0)
        m_sizes.insert(at(lastBefore + 1), static_cast<std::size_t>(more), Size{});
    else if (more < 0)
        m_sizes.erase(at(lastBefore + 1 + more), at(lastBefore + 1));
    m_tops.resize(m_sizes.size() + 1);
    m_summed = std::min(m_summed, static_cast<std::size_t>(first));
    m_measured = std::min(m_measured, first);

    const bool one = first == last;
    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last; ++number, block = block.next()) {
        block.clearLayout();
        m_sizes[static_cast<std::size_t>(number)] = estimated(block);
        m_height += m_sizes[static_cast<std::size_t>(number)].height;
    }
    if (one)
        layOut(document()->findBlockByNumber(first));
    m_idle.start();

    reportSize();
    if (one && m_height == oldTotal && more == 0)
        emit updateBlock(document()->findBlockByNumber(first));
    else
        emit update(QRectF(0, static_cast<qreal>(top(first)), kUnlimited, kUnlimited));
}

void RichLayout::reportSize() {
    if (const QSizeF size = documentSize(); size != m_reported) {
        m_reported = size;
        emit documentSizeChanged(size);
    }
}

void RichLayout::measureSome() {
    QElapsedTimer clock;
    clock.start();
    const int count = static_cast<int>(m_sizes.size());
    for (QTextBlock block = document()->findBlockByNumber(m_measured);
         m_measured < count && clock.elapsed() < kMeasureFor; ++m_measured, block = block.next()) {
        if (m_sizes[static_cast<std::size_t>(m_measured)].exact)
            continue;
        layOut(block);
        block.clearLayout(); // a layout takes much memory: those that show keep theirs
    }
    if (m_measured == count)
        m_idle.stop();
    reportSize();
}

qint64 RichLayout::top(int number) const {
    const auto wanted = std::min(static_cast<std::size_t>(std::max(number, 0)), m_sizes.size());
    for (; m_summed < wanted; ++m_summed)
        m_tops[m_summed + 1] = m_tops[m_summed] + m_sizes[m_summed].height;
    return m_tops.empty() ? 0 : m_tops[wanted];
}

QTextBlock RichLayout::blockAt(qreal y) const {
    top(static_cast<int>(m_sizes.size()));
    const auto place = static_cast<qint64>(std::floor(y - document()->documentMargin()));
    const auto above = std::upper_bound(m_tops.begin() + 1, m_tops.end(), place) - (m_tops.begin() + 1);
    return document()->findBlockByNumber(
        std::clamp(static_cast<int>(above), 0, static_cast<int>(m_sizes.size()) - 1));
}

QSizeF RichLayout::documentSize() const {
    const qreal margins = 2 * document()->documentMargin();
    const qreal width = wraps() ? document()->pageSize().width() : m_widest + margins;
    return {std::ceil(width), static_cast<qreal>(m_height) + margins};
}

QRectF RichLayout::frameBoundingRect(QTextFrame *) const {
    return {QPointF(), documentSize()};
}

QRectF RichLayout::blockBoundingRect(const QTextBlock &block) const {
    if (!block.isValid())
        return {};
    layOut(block);
    const qreal margin = document()->documentMargin();
    const int number = block.blockNumber();
    return {margin, margin + static_cast<qreal>(top(number)),
            wraps() ? textWidth() : std::max(m_widest, qreal(1)),
            qreal(m_sizes[static_cast<std::size_t>(number)].height)};
}

int RichLayout::hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const {
    const QTextBlock block = blockAt(point.y());
    const QPointF inBlock = point - blockBoundingRect(block).topLeft();
    const QTextLayout *layout = block.layout();
    QTextLine line = layout->lineAt(0);
    for (int i = 1; i < layout->lineCount() && layout->lineAt(i).y() <= inBlock.y(); ++i)
        line = layout->lineAt(i);
    if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inBlock))
        return -1;
    return block.position() + line.xToCursor(inBlock.x());
}

int RichLayout::lineOfPosition(int position) {
    const QTextBlock block = document()->findBlock(position);
    if (!wraps())
        return block.blockNumber();
    int lines = 0;
    for (QTextBlock above = document()->begin(); above != block; above = above.next()) {
        const Size &size = m_sizes[static_cast<std::size_t>(above.blockNumber())];
        if (!size.exact)
            layOut(above);
        lines += size.lines;
    }
    layOut(block);
    return lines + block.layout()->lineForTextPosition(position - block.position()).lineNumber();
}

int RichLayout::lineStart(int position) {
    const QTextBlock block = document()->findBlock(position);
    layOut(block);
    return block.position() + block.layout()->lineForTextPosition(position - block.position()).textStart();
}

void RichLayout::draw(QPainter *painter, const PaintContext &context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF({}, documentSize());
    for (QTextBlock block = blockAt(clip.top()); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingRect(block);
        if (place.top() > clip.bottom())
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

} // namespace zolt
