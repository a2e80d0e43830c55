#include "platform/rich_text_box.h"

#include "core/file.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "platform/colours.h"
#include "platform/rich_layout.h"
#include "platform/rich_text_characters.h"
#include "platform/rich_text_document.h"

#include <QBuffer>
#include <QImage>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <utility>

namespace zolt {

namespace {

constexpr int kTwipsAPixel = 15;

/// How many paragraphs are alike at the start and behind them at the end of two texts. At
/// least one of each text is left.
std::pair<int, int> commonParagraphs(const RichText &a, const RichText &b) {
    if (a.fonts != b.fonts) // the formats' numbers mean others
        return {0, 0};
    const auto room = static_cast<std::ptrdiff_t>(std::min(a.paragraphs.size(), b.paragraphs.size())) - 1;
    const auto frontEnd = a.paragraphs.begin() + room;
    const auto front =
        std::mismatch(a.paragraphs.begin(), frontEnd, b.paragraphs.begin()).first - a.paragraphs.begin();
    const auto backEnd = a.paragraphs.rbegin() + (room - front);
    const auto back =
        std::mismatch(a.paragraphs.rbegin(), backEnd, b.paragraphs.rbegin()).first - a.paragraphs.rbegin();
    return {static_cast<int>(front), static_cast<int>(back)};
}

} // namespace

RichTextBox::RichTextBox(bool wraps, QWidget *parent) : PaneControl(parent) {
    take(RichTextDocument::make({}).release());
    setAcceptRichText(false); // HTML
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(wraps ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    setLineWrapMode(wraps ? WidgetWidth : NoWrap);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

RichTextBox::~RichTextBox() = default;

void RichTextBox::take(RichTextDocument *document) {
    RichTextDocument *old = m_document;
    m_document = document;
    m_document->setWhiteIsClear(m_whiteIsClear);
    m_document->setParent(this);
    m_heldView.reset();
    setDocument(m_document);
    // Qt would go on in the format that was to be typed in the document before.
    setTextCursor(QTextCursor(m_document));
    delete old;
    followDocument();
    connect(&m_document->layout(), &RichLayout::aboutToMeasure, this, &RichTextBox::holdView);
    connect(&m_document->layout(), &RichLayout::measured, this, &RichTextBox::releaseView);
}

void RichTextBox::holdView() {
    const QScrollBar &bar = *verticalScrollBar();
    const bool hasRoom = bar.value() > m_document->layout().documentSize().height() - viewport()->height();
    m_heldView = {m_document->layout().placeAt(bar.value()), horizontalScrollBar()->value(), hasRoom};
}

void RichTextBox::releaseView(int firstParagraph, int lastParagraph) {
    if (!m_heldView)
        return;
    const RichLayout &layout = m_document->layout();
    QScrollBar &bar = *verticalScrollBar();
    const int top = layout.heightOf(m_heldView->top);
    if (m_heldView->hasRoom)
        bar.setMaximum(std::max(bar.maximum(), top));
    bar.setValue(top);
    const bool moved = bar.value() != top || horizontalScrollBar()->value() != m_heldView->left;
    const bool shows = lastParagraph >= m_heldView->top.paragraph &&
                       layout.heightOf({firstParagraph, 0}) < top + viewport()->height();
    m_heldView.reset();
    if (moved || (firstParagraph <= lastParagraph && shows))
        viewport()->update();
}

void RichTextBox::scrollContentsBy(int dx, int dy) {
    if (!m_heldView)
        QTextEdit::scrollContentsBy(dx, dy);
}

void RichTextBox::resizeEvent(QResizeEvent *event) {
    RichLayout &layout = m_document->layout();
    const int top = cursorForPosition({0, static_cast<int>(m_document->documentMargin())}).position();
    QTextEdit::resizeEvent(event);
    if (lineWrapMode() == NoWrap || event->oldSize().width() == event->size().width())
        return;
    const RichLayout::Place place = layout.placeOfLine(top);
    layout.layOutView(place, viewport()->height()); // or the bar wouldn't go there
    verticalScrollBar()->setValue(layout.heightOf(place));
}

void RichTextBox::paintEvent(QPaintEvent *event) {
    RichLayout &layout = m_document->layout();
    const int margin = static_cast<int>(m_document->documentMargin());
    layout.layOutView(layout.placeAt(verticalScrollBar()->value() - margin), viewport()->height());
    QTextEdit::paintEvent(event);
}

RichText RichTextBox::richText() const {
    fillNow();
    return m_document->richText();
}

RichText RichTextBox::richText(int from, int to) const {
    fillNow();
    return m_document->richText(from, std::min(to, positionCount()));
}

int RichTextBox::positionCount() const {
    fillNow();
    return m_document->characterCount() - 1;
}

bool RichTextBox::setRichText(const RichText &text, const Progress &progress) {
    std::unique_ptr<RichTextDocument> made = RichTextDocument::make(text, progress);
    if (!made)
        return false;
    forgetFill();
    const HeldChange hold(*this);
    take(made.release());
    beginHistory();
    return true;
}

void RichTextBox::setRichTextLater(RichText text, qsizetype selStart, qsizetype selLength) {
    {
        const QSignalBlocker silent(&events());
        setRichText({});
    }
    fillLater([this, text = std::move(text), selStart, selLength] {
        setRichText(text);
        setSelStart(selStart);
        setSelLength(selLength);
    });
}

RichText RichTextBox::selRichText() const {
    const QTextCursor cursor = textCursor();
    return m_document->richText(cursor.selectionStart(), cursor.selectionEnd());
}

template <class Insertion> void RichTextBox::replaceSelection(Insertion insert) {
    const HeldChange hold(*this);
    QTextCursor cursor = textCursor();
    insert(cursor);
    endStep();
    placeCaret(cursor.position());
}

void RichTextBox::setSelRichText(const RichText &text) {
    replaceSelection([&](QTextCursor &cursor) { m_document->insert(cursor, text); });
}

void RichTextBox::replaceRichText(const RichText &text) {
    const RichText old = richText();
    if (old == text)
        return placeCaret(0);
    const auto [front, back] = commonParagraphs(old, text);
    const RichText stretch{text.fonts, {text.paragraphs.begin() + front, text.paragraphs.end() - back}};
    const QTextBlock first = m_document->findBlockByNumber(front);
    const QTextBlock last = m_document->findBlockByNumber(m_document->blockCount() - 1 - back);
    const HeldChange hold(*this);
    QTextCursor cursor = cursorOver(first.position(), last.position() + last.length() - 1);
    m_document->insert(cursor, stretch);
    endStep();
    placeCaret(0);
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

std::string RichTextBox::bytesOf(QStringView characters) const {
    return bytesOfShownText(characters);
}

QString RichTextBox::characters(std::string_view bytes) const {
    return shownText(bytes, fontKindOf(firstFormat()));
}

void RichTextBox::setText(std::string_view bytes) {
    QTextCursor start(m_document);
    start.setPosition(std::min(1, m_document->characterCount() - 1));
    const QTextCharFormat first = start.charFormat();
    RichText text = richTextFromPlainText(bytes, charFormatOf(first));
    text.fonts = {fontNameOf(first)};
    const HeldChange hold(*this);
    setRichText(text);
    if (bytes.empty())
        m_document->setEmptyFormat(textFormat(first));
}

int RichTextBox::positionOfSelectionEnd(qsizetype offset) const {
    const int position = positionOfOffset(offset);
    // Only an offset between CR and LF gives a position of a smaller one.
    return offsetOfPosition(position) < offset ? position + 1 : position;
}

void RichTextBox::setSelText(std::string_view bytes) {
    const QTextCharFormat format = textFormat(firstFormat());
    replaceSelection(
        [&](QTextCursor &cursor) { cursor.insertText(shownText(bytes, fontKindOf(format)), format); });
}

void RichTextBox::replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                              std::string_view replacement) {
    const HeldChange hold(*this);
    m_document->replaceEach(offsets, length, replacement);
    endStep();
    placeCaret(0);
}

void RichTextBox::moveSelection(int place) {
    const RichText text = selRichText();
    const HeldChange hold(*this);
    QTextCursor target = cursorOver(place, place);
    target.beginEditBlock();
    textCursor().removeSelectedText();
    m_document->insert(target, text);
    target.endEditBlock();
    endStep();
    placeCaret(target.position());
}

void RichTextBox::finishChange() {
    m_document->settleFirstLine();
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
    const RichPicture picture{RichPicture::Kind::Png, png.toStdString(), image.width() * kTwipsAPixel,
                              image.height() * kTwipsAPixel};
    const QTextCharFormat format = textFormat(firstFormat());
    replaceSelection([&](QTextCursor &cursor) { m_document->insert(cursor, picture, format); });
}

qsizetype RichTextBox::paragraphStart(qsizetype offset) const {
    return offsetOfPosition(m_document->findBlock(positionOfOffset(offset)).position());
}

int RichTextBox::lineOfOffset(qsizetype offset) const {
    return m_document->layout().lineOfPosition(positionOfOffset(offset));
}

int RichTextBox::lineCount() const {
    return lineOfOffset(length()) + 1;
}

qsizetype RichTextBox::lineStartOfCaret() const {
    return offsetOfPosition(m_document->layout().lineStart(textCursor().position()));
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

} // namespace zolt
