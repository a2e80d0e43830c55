#include "platform/pane_layout.h"

#include "platform/held_text.h"

#include <QTextDocument>
#include <QTextLayout>
#include <QWidget>
#include <algorithm>
#include <climits>
#include <cmath>

namespace zolt {

namespace {

constexpr qreal kUnitsPerPixel = 64; // the precision of Qt's own layout
constexpr qreal kUnlimited = INT_MAX;
constexpr int kLongParagraph = 10'000; // characters

int toUnits(qreal pixels) {
    return static_cast<int>(std::lround(pixels * kUnitsPerPixel));
}

/// The text that a paragraph shows: with what an input method is composing.
QString shownText(const QTextBlock &block) {
    QString text = block.text();
    const QTextLayout *layout = block.layout();
    if (!layout->preeditAreaText().isEmpty())
        text.insert(layout->preeditAreaPosition(), layout->preeditAreaText());
    return text;
}

} // namespace

PaneLayout::PaneLayout(QTextDocument *document, const QWidget *view, bool wraps)
    : QPlainTextDocumentLayout(document), m_view(view), m_wraps(wraps) {}

void PaneLayout::layOut(const QTextBlock &block) const {
    QTextLayout *layout = block.layout();
    if (layout->lineCount() > 0)
        return;
    QTextOption option = document()->defaultTextOption();
    option.setWrapMode(m_wraps ? QTextOption::WrapAnywhere : QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight);
    layout->setTextOption(option);

    const QString text = m_wraps ? shownText(block) : QString();
    const qreal width = availableWidth() / kUnitsPerPixel;
    QPointF place(document()->documentMargin(), 0);
    qsizetype start = 0;
    // Qt shapes a paragraph anew for each drawing, or keeps the shapes in memory.
    layout->setCacheEnabled(block.length() > kLongParagraph);
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        if (m_wraps)
            line.setNumColumns(static_cast<int>(std::max<qsizetype>(1, lineEnd(text, start) - start)), width);
        else
            line.setLineWidth(kUnlimited);
        line.setPosition(place);
        place.ry() += line.height();
        start = line.textStart() + line.textLength();
    }
    layout->endLayout();
}

void PaneLayout::countAllLines() {
    m_widestLine = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        count(block);
    m_reportedSize = documentSize();
    emit documentSizeChanged(m_reportedSize);
}

QRectF PaneLayout::blockBoundingRect(const QTextBlock &block) const {
    if (block.isValid())
        layOut(block);
    return QPlainTextDocumentLayout::blockBoundingRect(block);
}

QSizeF PaneLayout::documentSize() const {
    const qreal width =
        m_wraps ? m_view->width()
                : static_cast<qreal>(m_widestLine) / kUnitsPerPixel + 2 * document()->documentMargin();
    return QSizeF(width, document()->lineCount());
}

QRectF PaneLayout::frameBoundingRect(QTextFrame *) const {
    return QRectF(0, 0, std::max<qreal>(m_view->width(), documentSize().width()), qreal(INT_MAX));
}

void PaneLayout::documentChanged(int from, int /*removed*/, int added) {
    if (m_font != document()->defaultFont())
        measureFont();

    const QTextBlock first = document()->findBlock(from);
    const QTextBlock behind = document()->findBlock(from + added);
    const QTextBlock last = behind.isValid() ? behind : document()->lastBlock();
    if (first == last) {
        countLaidOut(first);
    } else {
        for (QTextBlock block = first; block != last; block = block.next())
            count(block);
        count(last);
    }

    if (const QSizeF size = documentSize(); size != m_reportedSize) {
        m_reportedSize = size;
        emit documentSizeChanged(size);
        requestUpdate();
    } else if (first == last) {
        emit updateBlock(first);
    } else {
        requestUpdate();
    }
}

void PaneLayout::measureFont() {
    m_font = document()->defaultFont();
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    QTextLayout layout(heldText(bytes), *m_font, paintDevice());
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(kUnlimited);
    layout.endLayout();
    for (int code = 0; code < 256; ++code)
        m_byteWidths[static_cast<std::size_t>(code)] =
            toUnits(line.cursorToX(code + 1) - line.cursorToX(code));
    m_greatestByteWidth = *std::max_element(m_byteWidths.begin(), m_byteWidths.end());
}

int PaneLayout::widthOf(QChar character) const {
    return m_byteWidths[byteOfHeldCharacter(character)];
}

int PaneLayout::availableWidth() const {
    return toUnits(m_view->width() - 2 * document()->documentMargin());
}

qsizetype PaneLayout::lineEnd(QStringView text, qsizetype start) const {
    const int available = availableWidth();
    int width = 0;
    qsizetype behindBlank = start;
    for (qsizetype i = start; i < text.size(); ++i) {
        width += widthOf(text[i]);
        if (text[i] == u' ')
            behindBlank = i + 1;
        else if (width > available && i > start)
            return behindBlank > start ? behindBlank : i;
    }
    return text.size();
}

int PaneLayout::countLines(const QTextBlock &block) const {
    const qint64 length = block.length() - 1;
    if (!m_wraps || length * m_greatestByteWidth <= availableWidth())
        return 1;
    const QString text = block.text();
    int lines = 0;
    for (qsizetype start = 0; start < text.size(); start = lineEnd(text, start))
        ++lines;
    return lines;
}

void PaneLayout::count(QTextBlock block) {
    block.clearLayout();
    const int lines = countLines(block);
    if (block.lineCount() != lines)
        block.setLineCount(lines);
    if (!m_wraps)
        noteWidth(block);
}

void PaneLayout::countLaidOut(QTextBlock block) {
    block.clearLayout();
    layOut(block);
    block.setLineCount(block.layout()->lineCount());
    if (!m_wraps)
        noteWidth(block);
}

void PaneLayout::noteWidth(const QTextBlock &block) {
    if (qint64{block.length()} * m_greatestByteWidth <= m_widestLine)
        return;
    qint64 width = 0;
    for (const QChar character : block.text())
        width += widthOf(character);
    m_widestLine = std::max(m_widestLine, width);
}

} // namespace zolt
