#include "platform/rich_text_box.h"

#include "core/file.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/colours.h"
#include "platform/rich_layout.h"
#include "platform/rich_text_characters.h"
#include "platform/rich_text_document.h"
#include "platform/text_offsets.h"

#include <QBuffer>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>

namespace zolt {

namespace {

constexpr int kTwipsAPixel = 15;

/// The format of the line end behind a block: Qt keeps it with the block that it begins.
QTextCharFormat lineEndFormat(const QTextBlock &block) {
    return block.next().isValid() ? block.next().charFormat() : block.charFormat();
}

} // namespace

RichTextBox::RichTextBox(bool wraps, QWidget *parent) : QTextEdit(parent) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(wraps ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    setLineWrapMode(wraps ? WidgetWidth : NoWrap);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    take(RichTextDocument::make({}).release());
    connect(this, &QTextEdit::textChanged, this, &RichTextBox::reportChange);
}

RichTextBox::~RichTextBox() = default;

void RichTextBox::reportChange() {
    if (m_holds > 0)
        m_changed = true;
    else
        emit Change();
}

void RichTextBox::take(RichTextDocument *document) {
    RichTextDocument *old = m_document;
    m_document = document;
    m_document->setWhiteIsClear(m_whiteIsClear);
    m_document->setParent(this);
    setDocument(m_document);
    delete old;
    connect(&m_document->layout(), &RichLayout::heightFound, this, [this](qreal bottom, qreal difference) {
        // What shows stays where it is.
        QScrollBar *bar = verticalScrollBar();
        if (bottom <= bar->value())
            bar->setValue(bar->value() + static_cast<int>(difference));
    });
}

RichText RichTextBox::richText() const {
    return m_document->richText();
}

bool RichTextBox::setRichText(const RichText &text, const Progress &progress) {
    std::unique_ptr<RichTextDocument> made = RichTextDocument::make(text, progress);
    if (!made)
        return false;
    take(made.release());
    return true;
}

RichText RichTextBox::selRichText() const {
    const QTextCursor cursor = textCursor();
    return m_document->richText(cursor.selectionStart(), cursor.selectionEnd());
}

void RichTextBox::setSelRichText(const RichText &text) {
    QTextCursor cursor = textCursor();
    m_document->insert(cursor, text);
    placeCaret(cursor.position());
}

std::string RichTextBox::TextRTF() const {
    return rtfFromRichText(richText());
}

void RichTextBox::setTextRTF(std::string_view rtf) {
    setRichText(richTextFromRtf(rtf));
}

std::string RichTextBox::SelRTF() const {
    return rtfFromRichText(selRichText());
}

void RichTextBox::setSelRTF(std::string_view rtf) {
    setSelRichText(richTextFromRtf(rtf));
}

std::string RichTextBox::Text() const {
    return m_document->plainBytes(0, m_document->characterCount() - 1);
}

void RichTextBox::setText(std::string_view bytes) {
    QTextCursor start(m_document);
    start.setPosition(std::min(1, m_document->characterCount() - 1));
    const QTextCharFormat first = start.charFormat();
    RichText text = richTextFromPlainText(bytes, charFormatOf(first));
    text.fonts = {fontNameOf(first)};
    setRichText(text);
}

qsizetype RichTextBox::length() const {
    return textLength(*m_document);
}

qsizetype RichTextBox::SelStart() const {
    return offsetOfPosition(*m_document, textCursor().selectionStart());
}

void RichTextBox::setSelStart(qsizetype offset) {
    const int position = positionOfOffset(*m_document, offset);
    select(position, position);
}

qsizetype RichTextBox::SelLength() const {
    return selEnd() - SelStart();
}

void RichTextBox::setSelLength(qsizetype length) {
    const qsizetype start = SelStart();
    const qsizetype end = start + std::clamp<qsizetype>(length, 0, this->length() - start);
    int position = positionOfOffset(*m_document, end);
    // Only an end between CR and LF gives a position of a smaller offset.
    if (offsetOfPosition(*m_document, position) < end)
        ++position;
    select(textCursor().selectionStart(), position);
}

qsizetype RichTextBox::selEnd() const {
    return offsetOfPosition(*m_document, textCursor().selectionEnd());
}

std::string RichTextBox::SelText() const {
    const QTextCursor cursor = textCursor();
    return m_document->plainBytes(cursor.selectionStart(), cursor.selectionEnd());
}

void RichTextBox::setSelText(std::string_view bytes) {
    QTextCursor cursor = textCursor();
    const QTextCharFormat format = textFormat(firstFormat());
    cursor.insertText(shownText(bytes, fontKindOf(format)), format);
    placeCaret(cursor.position());
}

QTextCharFormat RichTextBox::firstFormat() const {
    const QTextCursor selection = textCursor();
    if (!selection.hasSelection())
        return currentCharFormat();
    const int start = selection.selectionStart();
    const QTextBlock block = m_document->findBlock(start);
    if (start == block.position() + block.length() - 1)
        return lineEndFormat(block);
    QTextCursor cursor(m_document);
    cursor.setPosition(start + 1);
    return cursor.charFormat();
}

template <class Visitor> void RichTextBox::visitFormats(Visitor visit) const {
    if (!visit(firstFormat()))
        return;
    const QTextCursor selection = textCursor();
    const int from = selection.selectionStart();
    const int to = selection.selectionEnd();
    for (QTextBlock block = m_document->findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const bool selected = fragment.position() < to && fragment.position() + fragment.length() > from;
            if (selected && !visit(fragment.charFormat()))
                return;
        }
    }
}

template <class Value, class Getter> Value RichTextBox::common(Getter get, Value mixed) const {
    const Value first = get(firstFormat());
    Value result = first;
    visitFormats([&](const QTextCharFormat &format) {
        if (get(format) != first)
            result = mixed;
        return result == first;
    });
    return result;
}

std::string RichTextBox::SelFontName() const {
    return common<std::string>(fontNameOf, {});
}

double RichTextBox::SelFontSize() const {
    return common<double>(fontSizeOf, 0);
}

Colour RichTextBox::SelColor() const {
    return textColourOf(firstFormat());
}

bool RichTextBox::SelBold() const {
    return common<bool>([](const QTextCharFormat &format) { return charFormatOf(format).bold; }, false);
}

bool RichTextBox::SelItalic() const {
    return common<bool>([](const QTextCharFormat &format) { return format.fontItalic(); }, false);
}

bool RichTextBox::SelUnderline() const {
    return common<bool>([](const QTextCharFormat &format) { return format.fontUnderline(); }, false);
}

bool RichTextBox::SelStrikeThru() const {
    return common<bool>([](const QTextCharFormat &format) { return format.fontStrikeOut(); }, false);
}

void RichTextBox::setSelFontName(const std::string &name) {
    const HeldChange hold(*this);
    QTextCursor selection = textCursor();
    const int anchor = selection.anchor();
    const int caret = selection.position();
    selection.beginEditBlock();
    mergeCurrentCharFormat(qtFontName(name));
    m_document->reformTabs(std::min(anchor, caret), std::max(anchor, caret));
    selection.endEditBlock();
    if (anchor != caret)
        select(anchor, caret);
}

void RichTextBox::setSelFontSize(double points) {
    if (points > 0)
        mergeCurrentCharFormat(qtFontSize(points));
}

void RichTextBox::setSelColor(Colour colour) {
    mergeCurrentCharFormat(qtTextColour(colour));
}

void RichTextBox::setSelBold(bool on) {
    QTextCharFormat format;
    format.setFontWeight(on ? QFont::Bold : QFont::Normal);
    mergeCurrentCharFormat(format);
}

void RichTextBox::setSelItalic(bool on) {
    QTextCharFormat format;
    format.setFontItalic(on);
    mergeCurrentCharFormat(format);
}

void RichTextBox::setSelUnderline(bool on) {
    QTextCharFormat format;
    format.setFontUnderline(on);
    mergeCurrentCharFormat(format);
}

void RichTextBox::setSelStrikeThru(bool on) {
    QTextCharFormat format;
    format.setFontStrikeOut(on);
    mergeCurrentCharFormat(format);
}

std::string RichTextBox::LoadFile(const std::string &path) {
    const FileContents contents = readFile(path);
    if (!contents.ok())
        return contents.reason;
    if (!isRtf(contents.bytes) && !mayBePlainText(contents.bytes))
        return "The file is neither rich text (RTF) nor plain text.";
    setTextRTF(contents.bytes);
    return {};
}

std::string RichTextBox::SaveFile(const std::string &path) const {
    return writeFile(path, TextRTF());
}

void RichTextBox::pastePicture(const QImage &image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "PNG"))
        return;
    QTextCursor cursor = textCursor();
    const RichPicture picture{RichPicture::Kind::Png, png.toStdString(), image.width() * kTwipsAPixel,
                              image.height() * kTwipsAPixel};
    m_document->insert(cursor, picture, textFormat(firstFormat()));
    placeCaret(cursor.position());
}

int RichTextBox::lineOfOffset(qsizetype offset) const {
    const int position = positionOfOffset(*m_document, offset);
    return m_document->layout().lineOfPosition(position);
}

int RichTextBox::lineCount() const {
    return lineOfOffset(length()) + 1;
}

void RichTextBox::setBackColour(const QColor &colour) {
    QPalette colours = palette();
    colours.setColor(QPalette::Base, colour);
    colours.setColor(QPalette::Text, readableOn(colour));
    setPalette(colours);
}

void RichTextBox::setWhiteIsClear(bool on) {
    m_whiteIsClear = on;
    m_document->setWhiteIsClear(on);
    viewport()->update();
}

void RichTextBox::undo() {
    const HeldChange hold(*this);
    QTextEdit::undo();
}

void RichTextBox::redo() {
    const HeldChange hold(*this);
    QTextEdit::redo();
}

void RichTextBox::placeCaret(int position) {
    if (!m_takesDrop)
        select(position, position);
}

void RichTextBox::select(int anchor, int caret) {
    QTextCursor cursor(m_document);
    cursor.setPosition(anchor);
    cursor.setPosition(caret, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

} // namespace zolt
