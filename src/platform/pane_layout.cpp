#include "platform/pane_layout.h"

#include "platform/held_text.h"

#include <QPalette>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextLayout>
#include <QWidget>
#include <algorithm>
#include <climits>
#include <cmath>
#include <list>
#include <utility>

namespace zolt {

namespace {

constexpr qreal kUnitsPerPixel = 64; // the precision of Qt's own layout
constexpr std::size_t kRememberedFonts = 8;
constexpr qreal kUnlimited = INT_MAX;
constexpr int kLongParagraph = 10'000; // characters
constexpr qsizetype kManyFormats = 50; // of a paragraph

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

/// Qt counts a ligature as one column.
void setCharacters(QTextLine &line, int characters, qreal width) {
    int columns = characters;
    do
        line.setNumColumns(columns, width);
    while (line.textLength() > characters && --columns > 0);
}

using ByteWidths = std::array<int, 256>;

ByteWidths measuredByteWidths(const QFont &font, QPaintDevice *device) {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    QTextLayout layout(heldText(bytes), font, device);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(kUnlimited);
    layout.endLayout();
    ByteWidths widths;
    for (int code = 0; code < 256; ++code)
        widths[static_cast<std::size_t>(code)] = toUnits(line.cursorToX(code + 1) - line.cursorToX(code));
    return widths;
}

/// The widths of the bytes' characters on a device, without one on the screen. The last
/// fonts are remembered: the panes of a window have one font.
const ByteWidths &byteWidths(const QFont &font, QPaintDevice *device) {
    struct Measured {
        QFont font;
        int dpi;
        qreal scale;
        ByteWidths widths;
    };
    static std::list<Measured> remembered;
    const int dpi = device ? device->logicalDpiX() : 0;
    const qreal scale = device ? device->devicePixelRatio() : 1;
    const auto known = std::find_if(remembered.begin(), remembered.end(), [&](const Measured &each) {
        return each.font == font && each.dpi == dpi && each.scale == scale;
    });
    if (known != remembered.end())
        return known->widths;
    if (remembered.size() == kRememberedFonts)
        remembered.pop_back();
    return remembered.emplace_front(Measured{font, dpi, scale, measuredByteWidths(font, device)}).widths;
}

} // namespace

PaneLayout::PaneLayout(QTextDocument *document, const QWidget *view, bool wraps)
    : QPlainTextDocumentLayout(document), m_view(view), m_wraps(wraps), m_look(*document, wraps) {
    connect(document, &QTextDocument::contentsChange, this, &PaneLayout::noteContents);
}

void PaneLayout::setShows(const PaneShows &shows) {
    m_look.setShows(shows);
    countAllLines();
}

void PaneLayout::layOut(const QTextBlock &block) const {
    if (block.layout()->lineCount() > 0)
        return;
    for (const auto width : {PaneLook::Natural, PaneLook::Squeezed, PaneLook::Plain}) {
        setFormats(block, lookOf(block, width));
        if (makeLines(block))
            break;
    }
    if (!m_wraps)
        noteLookWidth(block);
}

void PaneLayout::refresh(QTextBlock block) const {
    const PaneLook::Formats formats = block.layout()->formats();
    for (const auto width : {PaneLook::Natural, PaneLook::Squeezed, PaneLook::Plain}) {
        if (formats == lookOf(block, width))
            return;
        if (!m_wraps)
            break;
    }
    block.clearLayout();
    layOut(block);
}

PaneLook::Formats PaneLayout::lookOf(const QTextBlock &block, PaneLook::Width width) const {
    // An input method has formats of its own there; an edit under way isn't known yet.
    if (!block.layout()->preeditAreaText().isEmpty() || !m_look.isUpToDate())
        return block.layout()->formats();
    const QPalette &colours = m_view->palette();
    m_look.setGround(document()->defaultFont(), colours.color(QPalette::Text), colours.color(QPalette::Base));
    return m_look.formatsOf(block, width);
}

void PaneLayout::setFormats(const QTextBlock &block, const PaneLook::Formats &formats) const {
    if (block.layout()->formats() == formats)
        return;
    block.layout()->setFormats(formats);
    // Qt takes that for a change, which would add itself to the next one that it tells of.
    if (m_isInChange)
        return;
    const QScopedValueRollback marking(m_marked,
                                       std::optional(PaneStretch{block.position(), block.length()}));
    document()->markContentsDirty(block.position(), block.length());
}

bool PaneLayout::makeLines(const QTextBlock &block) const {
    QTextLayout *layout = block.layout();
    QTextOption option = document()->defaultTextOption();
    option.setWrapMode(m_wraps ? QTextOption::WrapAnywhere : QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight);
    layout->setTextOption(option);

    const QString text = m_wraps ? shownText(block) : QString();
    const qreal width = availableWidth() / kUnitsPerPixel;
    QPointF place(document()->documentMargin(), 0);
    qsizetype start = 0;
    bool fits = true;
    // Qt shapes a paragraph anew for each drawing, or keeps the shapes in memory.
    layout->setCacheEnabled(block.length() > kLongParagraph || layout->formats().size() > kManyFormats);
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        if (m_wraps) {
            const int columns = static_cast<int>(std::max<qsizetype>(1, lineEnd(text, start) - start));
            setCharacters(line, columns, width);
            fits = fits && (line.textLength() == columns || text.isEmpty());
        } else {
            line.setLineWidth(kUnlimited);
        }
        line.setPosition(place);
        place.ry() += line.height();
        start = line.textStart() + line.textLength();
    }
    layout->endLayout();
    return fits;
}

void PaneLayout::noteLookWidth(const QTextBlock &block) const {
    if (block.layout()->formats().isEmpty())
        return;
    const auto width = static_cast<qint64>(toUnits(block.layout()->lineAt(0).naturalTextWidth()));
    m_widestLine = std::max(m_widestLine, width);
}

void PaneLayout::countAllLines() {
    m_widestLine = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        count(block);
    m_reportedSize = documentSize();
    emit documentSizeChanged(m_reportedSize);
}

bool PaneLayout::hasGrown() const {
    return documentSize() != m_reportedSize;
}

bool PaneLayout::reportSize() {
    if (!hasGrown())
        return false;
    m_reportedSize = documentSize();
    emit documentSizeChanged(m_reportedSize);
    return true;
}

qreal PaneLayout::lineWidth() const {
    return availableWidth() / kUnitsPerPixel;
}

qreal PaneLayout::columnWidth() const {
    return widthOf(u'0') / kUnitsPerPixel;
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

void PaneLayout::noteContents(int from, int removed, int added) {
    m_isInChange = true;
    m_lookChanged = m_look.followChange(from, removed, added);
}

void PaneLayout::documentChanged(int from, int removed, int added) {
    if (m_marked == PaneStretch{from, added} && removed == added)
        return;
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

    const bool changedLook = std::exchange(m_lookChanged, false);
    if (reportSize() || first != last || changedLook)
        requestUpdate();
    else
        emit updateBlock(first);
    m_isInChange = false;
}

void PaneLayout::measureFont() {
    m_font = document()->defaultFont();
    m_byteWidths = byteWidths(*m_font, paintDevice());
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
