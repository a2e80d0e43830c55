#include "platform/pane_control.h"

#include "core/codes.h"
#include "platform/held_keys.h"
#include "platform/held_text.h"
#include "platform/text_offsets.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <limits>
#include <utility>

namespace zolt {

namespace {

constexpr int kNoByte = 256; // a typed number from here on

/// Qt looks each line up in its tree; a copy of the whole text takes less time than this
/// part of it line by line.
constexpr int kPartToCopy = 32;

} // namespace

template <class Edit>
PaneControl<Edit>::PaneControl(QWidget *parent) : Edit(parent), m_events(new PaneEvents(this)) {
    QObject::connect(this, &Edit::cursorPositionChanged, this, &PaneControl::followSelection);
    QObject::connect(this, &Edit::selectionChanged, this, &PaneControl::followSelection);
    QObject::connect(this, &Edit::textChanged, this, &PaneControl::followChange);
}

template <class Edit> void PaneControl<Edit>::followDocument() {
    QObject::connect(this->document(), &QTextDocument::contentsChange, this, &PaneControl::followContents);
}

template <class Edit> void PaneControl<Edit>::fillLater(std::function<void()> fill) {
    m_waiting = {.fill = std::move(fill)};
    if (this->isVisible())
        fillNow();
}

template <class Edit> void PaneControl<Edit>::fillRestLater(std::function<void()> fill, qsizetype length) {
    m_waiting = {.fill = std::move(fill), .length = length};
}

template <class Edit> void PaneControl<Edit>::fillNow() const {
    fillUpTo(std::numeric_limits<qsizetype>::max());
}

template <class Edit> void PaneControl<Edit>::fillRest() const {
    if (m_waiting && m_waiting->filled > 0)
        fillNow();
}

template <class Edit> void PaneControl<Edit>::fillUpTo(qsizetype bytes) const {
    // A hidden pane's text may come bit by bit in its turn.
    while (m_waiting && m_waiting->filled < bytes) {
        const QSignalBlocker silent(m_events);
        std::exchange(m_waiting, std::nullopt)->fill();
    }
}

template <class Edit> std::string PaneControl<Edit>::Text() const {
    fillNow();
    return bytesBetween(0, this->document()->characterCount() - 1);
}

template <class Edit> std::string PaneControl<Edit>::bytesBetween(int from, int to) const {
    const QTextDocument &document = *this->document();
    if (to - from > document.characterCount() / kPartToCopy)
        return bytesOf(QStringView(document.toRawText()).sliced(from, to - from));
    std::string bytes;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        const int begin = std::max(from - block.position(), 0);
        const int end = std::min(to - block.position(), block.length() - 1);
        bytes += bytesOf(QStringView(block.text()).sliced(begin, std::max(end - begin, 0)));
        if (block.position() + block.length() <= to)
            bytes += kLineEnd;
    }
    return bytes;
}

template <class Edit> Pane::Reader PaneControl<Edit>::reader() const {
    fillNow(); // the copy is to be one of all
    return [this, whole = QString(), spent = 0](std::size_t offset, std::size_t length) mutable {
        const auto begin = std::min(static_cast<qsizetype>(offset), this->length());
        const qsizetype end = begin + std::min(static_cast<qsizetype>(length), this->length() - begin);
        // Whole line ends, of which a CR or an LF may be too much.
        const int from = positionOfOffset(begin);
        const int to = positionOfOffset(end + 1);
        const int size = this->document()->characterCount();
        spent += std::max(to - from, this->document()->findBlock(from).length());
        if (whole.isNull() && spent > size / kPartToCopy)
            whole = this->document()->toRawText();
        return (whole.isNull() ? bytesBetween(from, to) : bytesOf(QStringView(whole).sliced(from, to - from)))
            .substr(static_cast<std::size_t>(begin - offsetOfPosition(from)),
                    static_cast<std::size_t>(end - begin));
    };
}

template <class Edit> qsizetype PaneControl<Edit>::length() const {
    if (m_waiting && m_waiting->filled > 0)
        return m_waiting->length;
    fillNow();
    return textLength(*this->document());
}

template <class Edit> qsizetype PaneControl<Edit>::SelStart() const {
    return offsetOfPosition(this->textCursor().selectionStart());
}

template <class Edit> void PaneControl<Edit>::setSelStart(qsizetype offset) {
    placeCaret(positionOfOffset(offset));
}

template <class Edit> void PaneControl<Edit>::setSelLength(qsizetype length) {
    const int from = this->textCursor().selectionStart();
    const qsizetype start = offsetOfPosition(from);
    const qsizetype room = this->length() - start;
    select({from, positionOfSelectionEnd(start + std::clamp<qsizetype>(length, 0, room))});
}

template <class Edit> qsizetype PaneControl<Edit>::selEnd() const {
    return offsetOfPosition(this->textCursor().selectionEnd());
}

template <class Edit> bool PaneControl<Edit>::hasSelection() const {
    return this->textCursor().hasSelection();
}

template <class Edit> std::string PaneControl<Edit>::SelText() const {
    const QTextCursor cursor = this->textCursor();
    return bytesBetween(cursor.selectionStart(), cursor.selectionEnd());
}

template <class Edit> void PaneControl<Edit>::cut() {
    fillNow();
    const HeldChange hold(*this);
    Edit::cut();
    endStep();
}

template <class Edit> void PaneControl<Edit>::copy() {
    Edit::copy();
}

template <class Edit> void PaneControl<Edit>::paste() {
    fillNow();
    const HeldChange hold(*this);
    Edit::paste();
}

template <class Edit> bool PaneControl<Edit>::canPaste() const {
    return Edit::canPaste();
}

template <class Edit> void PaneControl<Edit>::undo() {
    walkHistory(&Edit::undo, &UndoSelections::undoneTo);
}

template <class Edit> void PaneControl<Edit>::redo() {
    walkHistory(&Edit::redo, &UndoSelections::redoneTo);
}

template <class Edit> void PaneControl<Edit>::undoToggle() {
    m_lastStepUndid ? redo() : undo();
}

template <class Edit> bool PaneControl<Edit>::canUndoToggle() const {
    return m_lastStepUndid || (this->document()->isUndoAvailable() && !this->isReadOnly());
}

template <class Edit>
void PaneControl<Edit>::walkHistory(void (Edit::*step)(),
                                    std::optional<PaneSelection> (UndoSelections::*selectionAt)(int)) {
    if (this->isReadOnly())
        return;
    fillNow();
    const HeldChange hold(*this);
    const int depth = this->document()->availableUndoSteps();
    {
        const QScopedValueRollback walking(m_walksHistory, true);
        (this->*step)();
    }
    const int reached = this->document()->availableUndoSteps();
    if (reached == depth)
        return;
    m_changed = true;
    m_lastStepUndid = step == &Edit::undo;
    if (const auto there = (m_undoSelections.*selectionAt)(reached))
        select(*there);
}

template <class Edit> void PaneControl<Edit>::beginHistory() {
    m_undoSelections.clear();
    m_lastStepUndid = false;
    m_changed = true;
}

template <class Edit>
void PaneControl<Edit>::extendStep(const std::function<void(QTextCursor &cursor)> &edit) {
    const QScopedValueRollback extending(m_extendsStep, true);
    QTextCursor cursor(this->document());
    cursor.joinPreviousEditBlock();
    edit(cursor);
    cursor.endEditBlock();
}

template <class Edit> void PaneControl<Edit>::endStep() {
    this->document()->setModified(false);
}

template <class Edit> int PaneControl<Edit>::positionOfOffset(qsizetype offset) const {
    fillUpTo(offset + 1);
    return zolt::positionOfOffset(*this->document(), offset);
}

template <class Edit> qsizetype PaneControl<Edit>::offsetOfPosition(int position) const {
    return zolt::offsetOfPosition(*this->document(), position);
}

template <class Edit> QTextCursor PaneControl<Edit>::cursorOver(int from, int to) const {
    QTextCursor cursor(this->document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return cursor;
}

template <class Edit> PaneSelection PaneControl<Edit>::selection() const {
    const QTextCursor cursor = Edit::textCursor();
    return {cursor.anchor(), cursor.position()};
}

template <class Edit> void PaneControl<Edit>::select(PaneSelection selection) {
    this->setTextCursor(cursorOver(selection.anchor, selection.caret));
    this->ensureCursorVisible();
}

template <class Edit> void PaneControl<Edit>::followSelection() {
    if (m_holds == 0 && !m_changed)
        tell();
}

template <class Edit> void PaneControl<Edit>::followContents(int from, int removed, int added) {
    const int depth = this->document()->availableUndoSteps();
    // What an input method is composing is no text yet.
    if (!m_walksHistory && !m_extendsStep && depth == m_undoSelections.depth() && removed == added)
        return;
    m_changed = true;
    if (m_walksHistory)
        return;
    if (m_extendsStep) {
        m_undoSelections.extendLatest(depth, selection());
        return;
    }
    m_lastStepUndid = false;
    m_undoSelections.recordChange(depth, m_toldSelection, selection());
    noteContents(from, from + added);
}

template <class Edit> void PaneControl<Edit>::followChange() {
    if (m_holds == 0)
        tell();
}

template <class Edit> void PaneControl<Edit>::tell() {
    if (m_changed) {
        const QScopedValueRollback held(m_holds, 1);
        finishChange();
    }
    const PaneSelection now = selection();
    const bool changed = std::exchange(m_changed, false);
    const bool moved = std::exchange(m_toldSelection, now) != now;
    if (changed) {
        m_undoSelections.setLatestAfter(now);
        emit m_events->Change();
    }
    if (moved)
        emit m_events->selectionMoved();
}

template <class Edit> bool PaneControl<Edit>::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (isByteDigit(key) || belongsToWindow(key)) {
            event->setAccepted(isByteDigit(key));
            return event->isAccepted();
        }
    }
    return Edit::event(event);
}

template <class Edit> void PaneControl<Edit>::showEvent(QShowEvent *event) {
    fillUpTo(1);
    Edit::showEvent(event);
}

template <class Edit> void PaneControl<Edit>::changeEvent(QEvent *event) {
    Edit::changeEvent(event);
    // A locked pane still has a caret and copies.
    if (event->type() == QEvent::ReadOnlyChange && this->isReadOnly())
        this->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

template <class Edit> void PaneControl<Edit>::keyPressEvent(QKeyEvent *event) {
    {
        const HeldChange hold(*this);
        takeKeyOrLeaveIt(*event);
    }
    emit m_events->keyDown();
}

template <class Edit> void PaneControl<Edit>::takeKeyOrLeaveIt(QKeyEvent &event) {
    const bool shift = event.modifiers() & Qt::ShiftModifier;
    const bool ctrl = event.modifiers() & Qt::ControlModifier && !(event.modifiers() & Qt::AltModifier);
    // Qt's locked controls page down at a blank.
    const bool refused = this->isReadOnly() && typesCharacters(event);
    event.accept();
    if (isByteDigit(event)) {
        m_typedNumber = std::min(m_typedNumber.value_or(0) * 10 + event.key() - Qt::Key_0, kNoByte);
    } else if (refused || belongsToWindow(event)) {
        event.ignore();
    } else if (ctrl && event.key() == Qt::Key_Z) {
        shift ? redo() : undo();
    } else if (ctrl && event.key() == Qt::Key_Y) {
        redo();
    } else {
        fillNow();
        QKeyEvent held = heldKey(event, [this](std::string_view bytes) { return characters(bytes); });
        takeKey(held);
        event.setAccepted(held.isAccepted());
    }
}

template <class Edit> void PaneControl<Edit>::keyReleaseEvent(QKeyEvent *event) {
    Edit::keyReleaseEvent(event);
    if (event->key() == Qt::Key_Alt) {
        if (const auto number = std::exchange(m_typedNumber, std::nullopt);
            number && number < kNoByte && !this->isReadOnly())
            setSelText(std::string(1, static_cast<char>(*number)));
    }
    emit m_events->keyUp();
}

template <class Edit> void PaneControl<Edit>::inputMethodEvent(QInputMethodEvent *event) {
    if (this->isReadOnly()) {
        event->ignore();
        return;
    }
    fillNow();
    const HeldChange hold(*this);
    QInputMethodEvent held(event->preeditString(), event->attributes());
    held.setCommitString(characters(bytesOfOutsideText(event->commitString())), event->replacementStart(),
                         event->replacementLength());
    Edit::inputMethodEvent(&held);
    event->setAccepted(held.isAccepted());
}

template <class Edit> void PaneControl<Edit>::mousePressEvent(QMouseEvent *event) {
    Edit::mousePressEvent(event);
    emit m_events->mouseDown(event->button());
}

template <class Edit> void PaneControl<Edit>::mouseReleaseEvent(QMouseEvent *event) {
    {
        const HeldChange hold(*this); // the middle button pastes where it is let go
        Edit::mouseReleaseEvent(event);
    }
    const Qt::MouseButton button = event->button();
    const bool inPane = this->viewport()->rect().contains(event->position().toPoint());
    emit m_events->mouseUp(button);
    if (button == Qt::LeftButton && inPane)
        emit m_events->click();
}

template <class Edit> void PaneControl<Edit>::mouseDoubleClickEvent(QMouseEvent *event) {
    Edit::mouseDoubleClickEvent(event);
    emit m_events->mouseDown(event->button());
}

template <class Edit> void PaneControl<Edit>::contextMenuEvent(QContextMenuEvent *event) {
    // The right press has been reported; the menu key is the window's.
    event->setAccepted(event->reason() == QContextMenuEvent::Mouse);
}

/// Qt would insert within an edit of its own, at whose end only the layout knows the
/// text, and Change would come before that.
template <class Edit> void PaneControl<Edit>::dropEvent(QDropEvent *event) {
    QDragLeaveEvent over; // takes away the mark of the place and stops the scrolling
    Edit::dragLeaveEvent(&over);
    if (this->isReadOnly() || !this->canInsertFromMimeData(event->mimeData())) {
        event->ignore();
        return;
    }
    const int place = this->cursorForPosition(event->position().toPoint()).position();
    const QTextCursor selected = this->textCursor();
    const HeldChange hold(*this);
    if (event->dropAction() != Qt::MoveAction || event->source() != this->viewport()) {
        placeCaret(place);
        this->insertFromMimeData(event->mimeData());
    } else if (place < selected.selectionStart() || place > selected.selectionEnd()) {
        moveSelection(place);
    }
    event->acceptProposedAction();
}

template class PaneControl<QPlainTextEdit>;
template class PaneControl<QTextEdit>;

} // namespace zolt
