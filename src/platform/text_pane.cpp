#include "platform/text_pane.h"

#include "platform/held_text.h"
#include "platform/pane_layout.h"
#include "platform/text_offsets.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <set>
#include <utility>

namespace zolt {

namespace {

constexpr QChar kHeldCr(kHeldByte + '\r');
constexpr QChar kHeldLf(kHeldByte + '\n');

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

} // namespace

TextPane::TextPane(bool wraps, QWidget *parent) : QPlainTextEdit(parent) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(wraps ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    setLineWrapMode(wraps ? WidgetWidth : NoWrap);

    auto *paneDocument = new QTextDocument(this);
    m_layout = new PaneLayout(paneDocument, viewport(), wraps);
    paneDocument->setDocumentLayout(m_layout);
    m_layout->setPaintDevice(viewport());
    setDocument(paneDocument);
    setPaneFont(font());

    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TextPane::followSelection);
    connect(this, &QPlainTextEdit::selectionChanged, this, &TextPane::followSelection);
    connect(document(), &QTextDocument::contentsChange, this, &TextPane::followContents);
    connect(this, &QPlainTextEdit::textChanged, this, &TextPane::reportChange);
    connect(this, &TextPane::Change, m_events, &PaneEvents::Change);
    connect(this, &TextPane::keyDown, m_events, &PaneEvents::keyDown);
    connect(this, &TextPane::keyUp, m_events, &PaneEvents::keyUp);
    connect(this, &TextPane::mouseDown, m_events, &PaneEvents::mouseDown);
    connect(this, &TextPane::mouseUp, m_events, &PaneEvents::mouseUp);
    connect(this, &TextPane::click, m_events, &PaneEvents::click);
    connect(this, &TextPane::selectionChanged, m_events, &PaneEvents::selectionMoved);
}

std::string TextPane::Text() const {
    return bytesOfHeldText(document()->toRawText());
}

void TextPane::setText(std::string_view bytes) {
    {
        const QScopedValueRollback held(m_holdsChange, true);
        document()->setPlainText(heldText(bytes));
        select({0, 0});
    }
    m_undoSelections.clear();
    m_lastSelection = selection();
    m_lastStepUndid = false;
    emit Change();
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
        select({0, 0});
    else
        replaceRange(from, to, bytes.substr(start.size(), bytes.size() - start.size() - end.size()), 0);
}

void TextPane::replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                           std::string_view replacement) {
    const std::string old = Text();
    std::string text;
    std::size_t done = 0;
    for (const std::size_t offset : offsets) {
        text.append(old, done, offset - done).append(replacement);
        done = offset + length;
    }
    replaceText(text.append(old, done));
}

qsizetype TextPane::length() const {
    return textLength(*document());
}

qsizetype TextPane::SelStart() const {
    return offsetOfPosition(textCursor().selectionStart());
}

void TextPane::setSelStart(qsizetype offset) {
    const int position = positionOfOffset(offset);
    select({position, position});
}

void TextPane::setSelLength(qsizetype length) {
    const qsizetype start = SelStart();
    const qsizetype room = this->length() - start;
    select({textCursor().selectionStart(), positionOfOffset(start + std::clamp<qsizetype>(length, 0, room))});
}

qsizetype TextPane::selEnd() const {
    return offsetOfPosition(textCursor().selectionEnd());
}

std::string TextPane::SelText() const {
    return bytesOfHeldText(textCursor().selectedText());
}

void TextPane::setSelText(std::string_view bytes) {
    const QTextCursor cursor = textCursor();
    replaceRange(cursor.selectionStart(), cursor.selectionEnd(), bytes, std::nullopt);
}

int TextPane::lineOfOffset(qsizetype offset) const {
    return lineOfPosition(positionOfOffset(offset));
}

int TextPane::displayLineCount() const {
    return document()->lineCount();
}

qsizetype TextPane::lineStartOfCaret() const {
    const int position = textCursor().position();
    const QTextBlock block = document()->findBlock(position);
    return offsetOfPosition(block.position() + lineOfBlock(block, position).textStart());
}

void TextPane::setPaneFont(const QFont &font) {
    QFont paneFont = font;
    // The desktop's own font may bear an alias, which a list of families doesn't resolve.
    QStringList families = font.families();
    if (families.isEmpty() || !QFontDatabase::hasFamily(families.first()))
        families.prepend(QFontInfo(font).family());
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

void TextPane::undo() {
    walkHistory(&QPlainTextEdit::undo, &UndoSelections::undoneTo);
}

void TextPane::redo() {
    walkHistory(&QPlainTextEdit::redo, &UndoSelections::redoneTo);
}

void TextPane::undoToggle() {
    m_lastStepUndid ? redo() : undo();
}

bool TextPane::canUndoToggle() const {
    return m_lastStepUndid || (document()->isUndoAvailable() && !isReadOnly());
}

void TextPane::walkHistory(void (QPlainTextEdit::*step)(),
                           std::optional<PaneSelection> (UndoSelections::*selectionAt)(int)) {
    const int depth = document()->availableUndoSteps();
    if (isReadOnly())
        return;
    {
        const QScopedValueRollback walking(m_walksHistory, true);
        const QScopedValueRollback held(m_holdsChange, true);
        (this->*step)();
    }
    if (document()->availableUndoSteps() == depth)
        return;
    m_lastStepUndid = step == &QPlainTextEdit::undo;
    if (const auto there = (m_undoSelections.*selectionAt)(document()->availableUndoSteps()))
        select(*there);
    emit Change();
}

int TextPane::positionOfOffset(qsizetype offset) const {
    return zolt::positionOfOffset(*document(), offset);
}

qsizetype TextPane::offsetOfPosition(int position) const {
    return zolt::offsetOfPosition(*document(), position);
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

PaneSelection TextPane::selection() const {
    const QTextCursor cursor = textCursor();
    return {cursor.anchor(), cursor.position()};
}

void TextPane::select(PaneSelection selection) {
    QTextCursor cursor(document());
    cursor.setPosition(selection.anchor);
    cursor.setPosition(selection.caret, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TextPane::replaceRange(int from, int to, std::string_view bytes, std::optional<int> caret) {
    if (from == to && bytes.empty())
        return;
    QTextCursor cursor(document());
    {
        const QScopedValueRollback held(m_holdsChange, true);
        cursor.beginEditBlock();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        cursor.insertText(heldText(bytes));
        cursor.endEditBlock();
    }
    // Qt joins typing to the last insertion of a modified document, and so would
    // make one undo step of both.
    document()->setModified(false);
    const int position = caret.value_or(cursor.position());
    select({position, position});
    m_undoSelections.setLatestAfter(selection());
    emit Change();
}

std::string TextPane::bytesBetween(int from, int to) const {
    QTextCursor cursor(document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return bytesOfHeldText(cursor.selectedText());
}

void TextPane::resizeEvent(QResizeEvent *event) {
    const int top = cursorForPosition({0, 0}).position();
    QPlainTextEdit::resizeEvent(event);
    if (!m_layout->wraps() || event->oldSize().width() == event->size().width())
        return;
    m_layout->countAllLines();
    verticalScrollBar()->setValue(lineOfPosition(top));
}

void TextPane::followSelection() {
    m_lastSelection = selection();
}

void TextPane::followContents(int from, int /*removed*/, int added) {
    if (m_walksHistory)
        return;
    const int depth = document()->availableUndoSteps();
    if (m_joinsLineEnd) {
        m_undoSelections.extendLatest(depth, selection());
        return;
    }
    m_lastStepUndid = false;
    m_undoSelections.recordChange(depth, m_lastSelection, selection());
    for (const int position : std::set{from, from + added}) {
        if (document()->characterAt(position - 1) == kHeldCr && document()->characterAt(position) == kHeldLf)
            m_splitLineEnds.push_back(position - 1);
    }
}

void TextPane::reportChange() {
    if (!m_splitLineEnds.empty()) {
        joinLineEnds(std::exchange(m_splitLineEnds, {})); // comes back here
        return;
    }
    if (!m_walksHistory)
        m_undoSelections.setLatestAfter(selection());
    if (!m_holdsChange)
        emit Change();
}

void TextPane::joinLineEnds(const std::vector<int> &positions) {
    const QScopedValueRollback joining(m_joinsLineEnd, true);
    QTextCursor cursor(document());
    cursor.joinPreviousEditBlock();
    // From the last on, so that the others stay where they are.
    for (auto position = positions.rbegin(); position != positions.rend(); ++position) {
        cursor.setPosition(*position);
        cursor.setPosition(*position + 2, QTextCursor::KeepAnchor);
        cursor.insertBlock();
    }
    cursor.endEditBlock();
}

} // namespace zolt
