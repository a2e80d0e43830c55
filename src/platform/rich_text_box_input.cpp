#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/held_keys.h"
#include "platform/held_text.h"
#include "platform/rich_text_box.h"
#include "platform/rich_text_document.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QMouseEvent>

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
        QKeyEvent held = heldKey(*event);
        QTextEdit::keyPressEvent(&held);
        event->setAccepted(held.isAccepted());
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
    QInputMethodEvent held(event->preeditString(), event->attributes());
    held.setCommitString(heldOutsideText(event->commitString()), event->replacementStart(),
                         event->replacementLength());
    QTextEdit::inputMethodEvent(&held);
    event->setAccepted(held.isAccepted());
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
    return !rtfOf(*source).isEmpty() || source->hasImage() || source->hasText();
}

void RichTextBox::insertFromMimeData(const QMimeData *source) {
    if (isReadOnly() || !source)
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
