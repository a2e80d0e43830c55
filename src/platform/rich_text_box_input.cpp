#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/held_keys.h"
#include "platform/held_text.h"
#include "platform/rich_text_box.h"
#include "platform/rich_text_document.h"

#include <QImage>
#include <QMimeData>
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

} // namespace

/// Qt would give characters typed over a selection the look of what stands in front of
/// the caret.
void RichTextBox::takeKey(QKeyEvent &key) {
    if (!hasSelection() || !typesCharacters(key) || isReadOnly())
        return PaneControl::takeKey(key);
    QTextCursor cursor = textCursor();
    cursor.insertText(key.text(), textFormat(firstFormat()));
    placeCaret(cursor.position());
}

QMimeData *RichTextBox::createMimeDataFromSelection() const {
    auto *mimeData = new QMimeData;
    mimeData->setData(QString::fromLatin1(kRtfTypes[0]), QByteArray::fromStdString(SelRTF()));
    mimeData->setText(outsideText(SelText()));
    const QTextCursor selected = textCursor();
    if (const QImage picture = m_document->pictureBetween(selected.selectionStart(), selected.selectionEnd());
        !picture.isNull())
        mimeData->setImageData(picture);
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
