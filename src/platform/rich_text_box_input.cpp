#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/held_keys.h"
#include "platform/held_text.h"
#include "platform/rich_text_box.h"
#include "platform/rich_text_characters.h"
#include "platform/rich_text_document.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <algorithm>

namespace zolt {

namespace {

/// The names under which programs offer RTF, ours first.
constexpr const char *kRtfTypes[] = {"text/rtf", "application/rtf", "text/richtext"};

QByteArray rtfOf(const QMimeData &source) {
    for (const char *type : kRtfTypes) {
        if (source.hasFormat(QString::fromLatin1(type)))
            return source.data(QString::fromLatin1(type));
    }
    return {};
}

bool namesFiles(const QMimeData &source) {
    const QList<QUrl> addresses = source.urls();
    return std::any_of(addresses.begin(), addresses.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

/// A key whose characters, if it types any, are those of a font.
QKeyEvent shownKey(const QKeyEvent &event, FontKind kind) {
    const QKeyEvent held = heldKey(event);
    const QString text = typesCharacters(held) ? shownText(bytesOfHeldText(held.text()), kind) : held.text();
    return QKeyEvent(held.type(), held.key(), held.modifiers(), held.nativeScanCode(),
                     held.nativeVirtualKey(), held.nativeModifiers(), text, held.isAutoRepeat(),
                     static_cast<quint16>(held.count()));
}

} // namespace

bool RichTextBox::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && belongsToWindow(*static_cast<QKeyEvent *>(event))) {
        event->ignore();
        return false;
    }
    return QTextEdit::event(event);
}

void RichTextBox::changeEvent(QEvent *event) {
    QTextEdit::changeEvent(event);
    // A locked control still has a caret and copies.
    if (event->type() == QEvent::ReadOnlyChange && isReadOnly())
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void RichTextBox::keyPressEvent(QKeyEvent *event) {
    // A locked QTextEdit pages down at a blank.
    const bool refused = isReadOnly() && typesCharacters(*event);
    if (refused || belongsToWindow(*event)) {
        event->ignore();
    } else {
        const HeldChange hold(*this);
        QKeyEvent shown = shownKey(*event, fontKindOf(currentCharFormat()));
        QTextEdit::keyPressEvent(&shown);
        event->setAccepted(shown.isAccepted());
    }
    emit keyDown();
}

void RichTextBox::keyReleaseEvent(QKeyEvent *event) {
    QTextEdit::keyReleaseEvent(event);
    emit keyUp();
}

void RichTextBox::inputMethodEvent(QInputMethodEvent *event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    QInputMethodEvent shown(event->preeditString(), event->attributes());
    const QString committed =
        shownText(bytesOfOutsideText(event->commitString()), fontKindOf(currentCharFormat()));
    shown.setCommitString(committed, event->replacementStart(), event->replacementLength());
    QTextEdit::inputMethodEvent(&shown);
    event->setAccepted(shown.isAccepted());
}

void RichTextBox::dropEvent(QDropEvent *event) {
    m_takesDrop = true;
    QTextEdit::dropEvent(event);
    m_takesDrop = false;
}

void RichTextBox::mousePressEvent(QMouseEvent *event) {
    QTextEdit::mousePressEvent(event);
    emit mouseDown(event->button());
}

void RichTextBox::mouseReleaseEvent(QMouseEvent *event) {
    QTextEdit::mouseReleaseEvent(event);
    const Qt::MouseButton button = event->button();
    const bool inControl = viewport()->rect().contains(event->position().toPoint());
    emit mouseUp(button);
    if (button == Qt::LeftButton && inControl)
        emit click();
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent *event) {
    QTextEdit::mouseDoubleClickEvent(event);
    emit mouseDown(event->button());
}

void RichTextBox::contextMenuEvent(QContextMenuEvent *event) {
    // The right press has been reported; the menu key is the window's.
    event->setAccepted(event->reason() == QContextMenuEvent::Mouse);
}

QMimeData *RichTextBox::createMimeDataFromSelection() const {
    auto *mimeData = new QMimeData;
    mimeData->setData(QString::fromLatin1(kRtfTypes[0]), QByteArray::fromStdString(SelRTF()));
    mimeData->setText(outsideText(SelText()));
    return mimeData;
}

bool RichTextBox::canInsertFromMimeData(const QMimeData *source) const {
    return !rtfOf(*source).isEmpty() || source->hasImage() || (source->hasText() && !namesFiles(*source));
}

void RichTextBox::insertFromMimeData(const QMimeData *source) {
    if (isReadOnly() || !source || !canInsertFromMimeData(source))
        return;
    const QByteArray rtf = rtfOf(*source);
    if (isRtf({rtf.constData(), std::size_t(rtf.size())}))
        setSelRTF({rtf.constData(), std::size_t(rtf.size())});
    else if (source->hasImage())
        pastePicture(qvariant_cast<QImage>(source->imageData()));
    else if (source->hasText())
        setSelText(bytesOfOutsideText(source->text()));
}

} // namespace zolt
