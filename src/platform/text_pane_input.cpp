#include "platform/byte_mime.h"
#include "platform/held_keys.h"
#include "platform/held_text.h"
#include "platform/text_pane.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace zolt {

namespace {

constexpr int kNoByte = 256; // a typed number from here on

/// Alt and a digit of the keypad: a part of the number of a byte.
bool isByteDigit(const QKeyEvent &event) {
    return event.modifiers() == (Qt::AltModifier | Qt::KeypadModifier) && event.key() >= Qt::Key_0 &&
           event.key() <= Qt::Key_9;
}

} // namespace

bool TextPane::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (isByteDigit(key) || belongsToWindow(key)) {
            event->setAccepted(isByteDigit(key));
            return event->isAccepted();
        }
    }
    return QPlainTextEdit::event(event);
}

void TextPane::changeEvent(QEvent *event) {
    QPlainTextEdit::changeEvent(event);
    // A read-only pane still has a caret and copies.
    if (event->type() == QEvent::ReadOnlyChange && isReadOnly())
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TextPane::keyPressEvent(QKeyEvent *event) {
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool ctrl = event->modifiers() & Qt::ControlModifier && !(event->modifiers() & Qt::AltModifier);
    if (isByteDigit(*event)) {
        m_typedNumber = std::min(m_typedNumber.value_or(0) * 10 + event->key() - Qt::Key_0, kNoByte);
        event->accept();
    } else if (belongsToWindow(*event)) {
        event->ignore();
    } else if (ctrl && event->key() == Qt::Key_Z) {
        shift ? redo() : undo();
        event->accept();
    } else if (ctrl && event->key() == Qt::Key_Y) {
        redo();
        event->accept();
    } else {
        QKeyEvent held = heldKey(*event);
        QPlainTextEdit::keyPressEvent(&held);
        event->setAccepted(held.isAccepted());
    }
    emit keyDown();
}

void TextPane::keyReleaseEvent(QKeyEvent *event) {
    QPlainTextEdit::keyReleaseEvent(event);
    if (event->key() == Qt::Key_Alt) {
        if (const auto number = std::exchange(m_typedNumber, std::nullopt);
            number && number < kNoByte && !isReadOnly())
            setSelText(std::string(1, static_cast<char>(*number)));
    }
    emit keyUp();
}

void TextPane::inputMethodEvent(QInputMethodEvent *event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    QInputMethodEvent held(event->preeditString(), event->attributes());
    held.setCommitString(heldOutsideText(event->commitString()), event->replacementStart(),
                         event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&held);
    event->setAccepted(held.isAccepted());
}

void TextPane::mousePressEvent(QMouseEvent *event) {
    QPlainTextEdit::mousePressEvent(event);
    emit mouseDown(event->button());
}

void TextPane::mouseReleaseEvent(QMouseEvent *event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    const Qt::MouseButton button = event->button();
    const bool inPane = viewport()->rect().contains(event->position().toPoint());
    emit mouseUp(button);
    if (button == Qt::LeftButton && inPane)
        emit click();
}

void TextPane::mouseDoubleClickEvent(QMouseEvent *event) {
    QPlainTextEdit::mouseDoubleClickEvent(event);
    emit mouseDown(event->button());
}

void TextPane::contextMenuEvent(QContextMenuEvent *event) {
    // The right press has been reported; the menu key is the window's.
    event->setAccepted(event->reason() == QContextMenuEvent::Mouse);
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

/// Qt would insert within an edit of its own, at whose end only the layout knows the
/// text, and Change would come before that.
void TextPane::dropEvent(QDropEvent *event) {
    QDragLeaveEvent over; // takes away the mark of the place and stops the scrolling
    QPlainTextEdit::dragLeaveEvent(&over);
    if (isReadOnly() || !offersBytes(*event->mimeData())) {
        event->ignore();
        return;
    }
    const int place = cursorForPosition(event->position().toPoint()).position();
    const std::string bytes = bytesOfMime(*event->mimeData());
    if (event->dropAction() == Qt::MoveAction && event->source() == viewport())
        moveSelection(place, bytes);
    else
        replaceRange(place, place, bytes, std::nullopt);
    event->acceptProposedAction();
}

void TextPane::moveSelection(int place, const std::string &bytes) {
    const int from = textCursor().selectionStart();
    const int to = textCursor().selectionEnd();
    if (place < from)
        replaceRange(place, to, bytes + bytesBetween(place, from),
                     place + static_cast<int>(heldText(bytes).size()));
    else if (place > to)
        replaceRange(from, place, bytesBetween(to, place) + bytes, std::nullopt);
}

} // namespace zolt
