#include "platform/byte_line.h"

#include "platform/byte_mime.h"
#include "platform/fonts.h"
#include "platform/held_text.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QValidator>

namespace zolt {

namespace {

constexpr double kPoints = 10;

/// Bytes as a line holds them: a private character for each that another character
/// than its own could stand for, so that a typed one is known for what it is.
QString lineText(std::string_view bytes) {
    QString held = heldText(bytes);
    for (QChar &character : held) {
        const unsigned char byte = byteOfHeldCharacter(character);
        if (character == QChar::ParagraphSeparator)
            character = u' ';
        else if (character != QChar(byte))
            character = QChar(kHeldByte + byte);
    }
    return held;
}

/// What a line makes of a text; its own characters stay.
QString heldInLine(QStringView text) {
    return lineText(bytesOfOutsideText(text));
}

/// Holds each character as its bytes', and refuses nothing.
class ByteHolder : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString &text, int &caret) const override {
        const QString held = heldInLine(text);
        if (held != text) {
            caret = static_cast<int>(heldInLine(QStringView(text).left(caret)).size());
            text = held;
        }
        return Acceptable;
    }
};

} // namespace

ByteLine::ByteLine(QWidget *parent) : QLineEdit(parent) {
    setFont(zoltFont(QStringLiteral("ZOLT"), kPoints));
    setValidator(new ByteHolder(this));
}

std::string ByteLine::Text() const {
    return bytesOfHeldText(text());
}

void ByteLine::setText(std::string_view bytes) {
    QLineEdit::setText(lineText(bytes));
}

void ByteLine::copyBytes() const {
    if (hasSelectedText())
        QApplication::clipboard()->setMimeData(mimeOfBytes(bytesOfHeldText(selectedText())));
}

void ByteLine::cutBytes() {
    copyBytes();
    if (hasSelectedText())
        del();
}

void ByteLine::pasteBytes() {
    const QMimeData *offered = QApplication::clipboard()->mimeData();
    if (offered && offersBytes(*offered))
        insert(lineText(bytesOfMime(*offered)));
}

void ByteLine::keyPressEvent(QKeyEvent *event) {
    if (event->matches(QKeySequence::Copy))
        copyBytes();
    else if (event->matches(QKeySequence::Cut))
        cutBytes();
    else if (event->matches(QKeySequence::Paste))
        pasteBytes();
    else
        QLineEdit::keyPressEvent(event);
}

void ByteLine::contextMenuEvent(QContextMenuEvent *event) {
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto route = [&](const QString &text, auto command) {
        for (QAction *action : menu->actions())
            if (action->text().startsWith(text)) { // the key follows
                action->disconnect(this);
                connect(action, &QAction::triggered, this, command);
            }
    };
    route(QLineEdit::tr("&Copy"), &ByteLine::copyBytes);
    route(QLineEdit::tr("Cu&t"), &ByteLine::cutBytes);
    route(QLineEdit::tr("&Paste"), &ByteLine::pasteBytes);
    menu->popup(event->globalPos());
}

void ByteLine::dragEnterEvent(QDragEnterEvent *event) {
    offersBytes(*event->mimeData()) ? QLineEdit::dragEnterEvent(event) : event->ignore();
}

void ByteLine::dropEvent(QDropEvent *event) {
    QMimeData held;
    held.setText(lineText(bytesOfMime(*event->mimeData())));
    QDropEvent heldDrop(event->position(), event->possibleActions(), &held, event->buttons(),
                        event->modifiers());
    heldDrop.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&heldDrop);
    event->setDropAction(heldDrop.dropAction());
    event->setAccepted(heldDrop.isAccepted());
}

} // namespace zolt
