#include "platform/text_pane.h"

#include "core/find.h"
#include "platform/byte_mime.h"
#include "platform/held_text.h"
#include "platform/long_line.h"
#include "platform/pane_drawing.h"
#include "platform/pane_layout.h"

#include <QAbstractTextDocumentLayout>
#include <QFontInfo>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>
#include <algorithm>
#include <set>
#include <utility>

namespace zolt {

namespace {

constexpr QChar kHeldCr(kHeldByte + '\r');
constexpr QChar kHeldLf(kHeldByte + '\n');
/// A text up to so many bytes is put in at one go, a longer one by stretches of some
/// milliseconds' work.
constexpr std::size_t kAtOnce = 1 << 18;
constexpr std::size_t kStretch = 1 << 16;
/// In milliseconds, so that the window is painted first.
constexpr int kBeforeRest = 100;

std::string_view commonStart(std::string_view a, std::string_view b) {
    const auto size = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    const auto end = std::mismatch(a.begin(), a.begin() + size, b.begin()).first;
    return a.substr(0, static_cast<std::size_t>(end - a.begin()));
}

std::string_view commonEnd(std::string_view a, std::string_view b) {
    const auto size = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    const auto end = std::mismatch(a.rbegin(), a.rbegin() + size, b.rbegin()).first;
    return a.substr(a.size() - static_cast<std::size_t>(end - a.rbegin()));
}

/// Where a stretch ends: behind a line, or with the text.
std::size_t stretchEnd(std::string_view bytes, std::size_t begin) {
    if (bytes.size() - begin <= kStretch)
        return bytes.size();
    const std::size_t lineEnd = bytes.find("\r\n", begin + kStretch);
    return lineEnd == std::string_view::npos ? bytes.size() : lineEnd + 2;
}

} // namespace

TextPane::TextPane(bool wraps, QWidget *parent) : PaneControl(parent), m_restTimer(new QTimer(this)) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(wraps ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    setLineWrapMode(wraps ? WidgetWidth : NoWrap);

    auto *paneDocument = new QTextDocument(this);
    m_layout = new PaneLayout(paneDocument, viewport(), wraps);
    paneDocument->setDocumentLayout(m_layout);
    m_layout->setPaintDevice(viewport());
    setDocument(paneDocument);
    setPaneFont(font());

    followDocument();
    connect(m_restTimer, &QTimer::timeout, this, [this] {
        m_restTimer->setInterval(0);
        putStretch();
        m_rest ? noteFilled(static_cast<qsizetype>(m_rest->begin)) : forgetFill();
    });
    connect(this, &TextPane::cursorPositionChanged, this, &TextPane::followCaret);
    connect(this, &TextPane::selectionChanged, this, &TextPane::followCaret);
}

std::string TextPane::bytesOf(QStringView characters) const {
    return bytesOfHeldText(characters);
}

QString TextPane::characters(std::string_view bytes) const {
    return heldText(bytes);
}

QString TextPane::held() const {
    fillNow();
    return document()->toRawText();
}

void TextPane::setText(std::string_view bytes, const Progress &progress) {
    forgetFill();
    endText();
    const HeldChange hold(*this);
    const std::size_t end = bytes.size() > kAtOnce ? stretchEnd(bytes, 0) : bytes.size();
    document()->setPlainText(heldText(bytes.substr(0, end)));
    placeCaret(0);
    beginHistory();
    goOn(progress, end, bytes.size());
    if (end == bytes.size())
        return;
    document()->setUndoRedoEnabled(false);
    m_rest = {std::string(bytes), end, progress};
    fillRestLater([this] { putRest(); }, static_cast<qsizetype>(bytes.size()));
    noteFilled(static_cast<qsizetype>(end));
    m_restTimer->start(kBeforeRest);
}

void TextPane::putStretch() {
    if (!m_layout->isGettingText()) {
        m_layout->beginText(m_rest->text);
        viewport()->update(); // a run may end behind what was in
    }
    const QSignalBlocker silent(&events()); // it is no change of the text
    const HeldChange hold(*this);
    const std::size_t end = stretchEnd(m_rest->text, m_rest->begin);
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(heldText(std::string_view(m_rest->text).substr(m_rest->begin, end - m_rest->begin)));
    beginHistory();
    m_rest->begin = end;
    goOn(m_rest->progress, end, m_rest->text.size());
    if (end == m_rest->text.size())
        endText();
}

void TextPane::endText() {
    m_rest.reset();
    m_restTimer->stop();
    m_layout->endText();
    document()->setUndoRedoEnabled(true);
}

void TextPane::putRest() {
    while (m_rest)
        putStretch();
}

void TextPane::setTextLater(std::string bytes, qsizetype selStart, qsizetype selLength) {
    {
        const QSignalBlocker silent(&events());
        setText({});
    }
    fillLater([this, bytes = std::move(bytes), selStart, selLength] {
        setText(bytes);
        setSelStart(selStart);
        setSelLength(selLength);
    });
}

void TextPane::replaceText(std::string_view bytes) {
    const std::string old = Text();
    std::string_view start = commonStart(old, bytes);
    std::string_view end = commonEnd(std::string_view(old).substr(start.size()), bytes.substr(start.size()));
    // A pair of CR and LF is edited whole.
    if (start.ends_with('\r'))
        start.remove_suffix(1);
    if (end.starts_with('\n'))
        end.remove_prefix(1);

    const int from = positionOfOffset(static_cast<qsizetype>(start.size()));
    const int to = positionOfOffset(static_cast<qsizetype>(old.size() - end.size()));
    if (old == bytes)
        placeCaret(0);
    else
        replaceRange(from, to, bytes.substr(start.size(), bytes.size() - start.size() - end.size()), 0);
}

void TextPane::setSelText(std::string_view bytes) {
    const QTextCursor cursor = textCursor();
    replaceRange(cursor.selectionStart(), cursor.selectionEnd(), bytes, std::nullopt);
}

void TextPane::replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                           std::string_view replacement) {
    replaceText(textWithReplaced(Text(), offsets, length, replacement));
}

int TextPane::lineOfOffset(qsizetype offset) const {
    return lineOfPosition(positionOfOffset(offset));
}

int TextPane::displayLineCount() const {
    fillNow();
    return document()->lineCount();
}

qsizetype TextPane::lineStartOfCaret() const {
    const int position = textCursor().position();
    const QTextBlock block = document()->findBlock(position);
    return offsetOfPosition(block.position() + lineOfBlock(block, position).textStart());
}

std::pair<std::string, std::string> TextPane::caretLine() const {
    const int position = textCursor().position();
    const QTextBlock block = document()->findBlock(position);
    const QTextLine line = lineOfBlock(block, position);
    const int begin = block.position() + line.textStart();
    const int end = std::min(begin + line.textLength(), block.position() + block.length() - 1);
    return {bytesBetween(begin, position), bytesBetween(position, std::max(position, end))};
}

void TextPane::setPaneFont(const QFont &font) {
    QFont paneFont = font;
    // The desktop's own font may bear an alias, which a list of families doesn't resolve.
    QStringList families = font.families();
    if (const QString found = QFontInfo(font).family();
        families.isEmpty() || families.first().compare(found, Qt::CaseInsensitive) != 0)
        families.prepend(found);
    if (!families.contains(QStringLiteral("ZOLT")))
        families.append(QStringLiteral("ZOLT"));
    paneFont.setFamilies(families);
    paneFont.setKerning(false);
    setFont(paneFont);
}

void TextPane::setColours(const QColor &text, const QColor &background) {
    QPalette colours = palette();
    colours.setColor(QPalette::Text, text);
    colours.setColor(QPalette::Base, background);
    setPalette(colours);
}

void TextPane::setShows(const PaneShows &shows) {
    if (shows == m_layout->look().shows())
        return;
    fillRest();
    m_layout->setShows(shows);
    viewport()->update();
}

QTextLine TextPane::lineOfBlock(const QTextBlock &block, int position) const {
    m_layout->layOut(block);
    const QTextLayout *layout = block.layout();
    const QTextLine line = layout->lineForTextPosition(position - block.position());
    return line.isValid() ? line : layout->lineAt(layout->lineCount() - 1);
}

int TextPane::lineOfPosition(int position) const {
    const QTextBlock block = document()->findBlock(position);
    return block.firstLineNumber() + lineOfBlock(block, position).lineNumber();
}

void TextPane::replaceRange(int from, int to, std::string_view bytes, std::optional<int> caret) {
    if (from == to && bytes.empty())
        return;
    fillNow();
    const HeldChange hold(*this);
    QTextCursor cursor = cursorOver(from, to);
    cursor.insertText(heldText(bytes));
    finishChange(); // before the caret stands, which a new line end might shift
    endStep();
    placeCaret(caret.value_or(cursor.position()));
}

void TextPane::resizeEvent(QResizeEvent *event) {
    const int top = cursorForPosition({0, 0}).position();
    QPlainTextEdit::resizeEvent(event);
    if (!m_layout->wraps() || event->oldSize().width() == event->size().width())
        return;
    m_layout->countAllLines();
    verticalScrollBar()->setValue(lineOfPosition(top));
}

void TextPane::paintEvent(QPaintEvent *event) {
    if (m_layout->look().shows() != PaneShows{})
        drawBeneath(event->rect());
    drawText(event->rect());
    if (m_layout->hasGrown())
        QMetaObject::invokeMethod(m_layout, &PaneLayout::reportSize, Qt::QueuedConnection);
}

void TextPane::drawBeneath(const QRect &part) {
    m_layout->setSelection({textCursor().selectionStart(), textCursor().selectionEnd()});
    if (part.contains(viewport()->rect()))
        m_showsCells = false;
    QPainter painter(viewport());
    PaneDrawing drawing(painter, *m_layout, palette().color(QPalette::Text), part);
    QPointF place = contentOffset();
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && place.y() <= part.bottom();
         block = block.next()) {
        const qreal bottom = place.y() + blockBoundingRect(block).height();
        if (bottom >= part.top()) {
            m_layout->refresh(block);
            drawing.draw(block, place);
            m_showsCells = m_showsCells || PaneLook::hasCells(block);
        }
        place.setY(bottom);
    }
}

void TextPane::drawText(const QRect &part) {
    // Qt draws what stands between long lines.
    int drawn = part.top();
    const auto drawAsQt = [&](int bottom) {
        QPaintEvent event(QRect(part.left(), drawn, part.width(), bottom - drawn));
        if (drawn < bottom)
            QPlainTextEdit::paintEvent(&event);
    };
    const int end = part.top() + part.height();
    QPointF place = contentOffset();
    for (QTextBlock block = firstVisibleBlock(); !m_layout->wraps() && block.isValid() && place.y() < end;
         block = block.next()) {
        const QRectF room = blockBoundingRect(block).translated(place);
        const int top = std::max(part.top(), static_cast<int>(room.top()));
        const int bottom = std::min(end, static_cast<int>(room.bottom()));
        if (isLongLine(block) && top < bottom) {
            drawAsQt(top);
            drawLine(block, place, QRect(part.left(), top, part.width(), bottom - top));
            drawn = bottom;
        }
        place.ry() += room.height();
    }
    drawAsQt(end);
}

void TextPane::drawLine(const QTextBlock &block, QPointF place, const QRect &part) {
    const QAbstractTextDocumentLayout::PaintContext context = getPaintContext();
    QList<QTextLayout::FormatRange> selections;
    for (const auto &selection : context.selections)
        selections.append({selection.cursor.selectionStart() - block.position(),
                           selection.cursor.selectionEnd() - selection.cursor.selectionStart(),
                           selection.format});
    QPainter painter(viewport());
    painter.setClipRect(part);
    painter.setPen(context.palette.text().color());
    drawLongLine(painter, block, place, selections, part);
    if (block.contains(context.cursorPosition))
        block.layout()->drawCursor(&painter, place, context.cursorPosition - block.position(), cursorWidth());
}

void TextPane::followCaret() {
    if (m_showsCells && m_layout->look().shows().pictures)
        viewport()->update(); // the cells around the caret show as characters
    if (!m_layout->wraps() && m_layout->look().shows().styles) {
        m_layout->layOut(textCursor().block());
        if (m_layout->reportSize())
            ensureCursorVisible();
    }
}

void TextPane::noteContents(int from, int end) {
    for (const int position : std::set{from, end}) {
        if (document()->characterAt(position - 1) == kHeldCr && document()->characterAt(position) == kHeldLf)
            m_splitLineEnds.push_back(position - 1);
    }
}

void TextPane::finishChange() {
    if (!m_splitLineEnds.empty())
        joinLineEnds(std::exchange(m_splitLineEnds, {}));
}

void TextPane::joinLineEnds(const std::vector<int> &positions) {
    extendStep([&positions](QTextCursor &cursor) {
        // From the last on, so that the others stay where they are.
        for (auto position = positions.rbegin(); position != positions.rend(); ++position) {
            cursor.setPosition(*position);
            cursor.setPosition(*position + 2, QTextCursor::KeepAnchor);
            cursor.insertBlock();
        }
    });
}

void TextPane::moveSelection(int place) {
    const int from = textCursor().selectionStart();
    const int to = textCursor().selectionEnd();
    const std::string bytes = SelText();
    if (place < from)
        replaceRange(place, to, bytes + bytesBetween(place, from),
                     place + static_cast<int>(heldText(bytes).size()));
    else
        replaceRange(from, place, bytesBetween(to, place) + bytes, std::nullopt);
}

QMimeData *TextPane::createMimeDataFromSelection() const {
    return mimeOfBytes(SelText());
}

bool TextPane::canInsertFromMimeData(const QMimeData *source) const {
    return offersBytes(*source);
}

void TextPane::insertFromMimeData(const QMimeData *source) {
    if (!isReadOnly() && source && offersBytes(*source))
        setSelText(bytesOfMime(*source));
}

} // namespace zolt
