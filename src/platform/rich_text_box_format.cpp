// The character formats of a rich text control: the selection's, and the whole text's.

#include "core/codes.h"
#include "platform/rich_text_box.h"
#include "platform/rich_text_document.h"

#include <QTextBlock>
#include <QTextFragment>
#include <algorithm>

namespace zolt {

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

template <class Visitor> bool RichTextBox::eachFormat(int from, int to, Visitor visit) const {
    for (QTextBlock block = m_document->findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const bool meets = fragment.position() < to && fragment.position() + fragment.length() > from;
            if (meets && !visit(fragment.charFormat()))
                return false;
        }
    }
    return true;
}

template <class Value, class Getter> Value RichTextBox::common(Getter get, Value mixed) const {
    const Value first = get(firstFormat());
    const QTextCursor cursor = textCursor();
    const bool same = !cursor.hasSelection() ||
                      eachFormat(cursor.selectionStart(), cursor.selectionEnd(),
                                 [&](const QTextCharFormat &format) { return get(format) == first; });
    return same ? first : mixed;
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

void RichTextBox::mergeFormat(const QTextCharFormat &format) {
    const HeldChange hold(*this);
    mergeCurrentCharFormat(format);
    endStep();
}

void RichTextBox::setSelFontName(const std::string &name) {
    const HeldChange hold(*this);
    const PaneSelection selected = selection();
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    mergeCurrentCharFormat(qtFontName(name));
    m_document->reformTabs(cursor.selectionStart(), cursor.selectionEnd());
    cursor.endEditBlock();
    endStep();
    if (selected.anchor != selected.caret)
        select(selected);
}

void RichTextBox::setSelFontSize(double points) {
    if (points > 0)
        mergeFormat(qtFontSize(points));
}

void RichTextBox::setSelColor(Colour colour) {
    mergeFormat(qtTextColour(colour));
}

void RichTextBox::setSelBold(bool on) {
    QTextCharFormat format;
    format.setFontWeight(on ? QFont::Bold : QFont::Normal);
    mergeFormat(format);
}

void RichTextBox::setSelItalic(bool on) {
    QTextCharFormat format;
    format.setFontItalic(on);
    mergeFormat(format);
}

void RichTextBox::setSelUnderline(bool on) {
    QTextCharFormat format;
    format.setFontUnderline(on);
    mergeFormat(format);
}

void RichTextBox::setSelStrikeThru(bool on) {
    QTextCharFormat format;
    format.setFontStrikeOut(on);
    mergeFormat(format);
}

bool RichTextBox::hasFont(std::string_view name, qsizetype offset, qsizetype length) const {
    const int from = positionOfOffset(offset);
    const int to = positionOfOffset(offset + length);
    return eachFormat(from, to, [&](const QTextCharFormat &format) { return fontNameOf(format) == name; });
}

void RichTextBox::mergeIntoAll(const QTextCharFormat &format) {
    QTextCursor all(m_document);
    all.select(QTextCursor::Document);
    all.mergeCharFormat(format);
    if (!all.hasSelection()) {
        QTextCharFormat empty = m_document->begin().charFormat();
        empty.merge(format);
        m_document->setEmptyFormat(empty);
    }
    // What is typed next may have a format of its own.
    if (!textCursor().hasSelection())
        mergeCurrentCharFormat(format);
}

void RichTextBox::setFontSize(double points) {
    const HeldChange hold(*this);
    mergeIntoAll(qtFontSize(points));
    endStep();
}

void RichTextBox::setTextColour(Colour colour) {
    const HeldChange hold(*this);
    mergeIntoAll(qtTextColour(colour));
    endStep();
}

void RichTextBox::setPlainLook(double points, Colour colour) {
    const HeldChange hold(*this);
    QTextCharFormat plain = qtFontSize(points);
    plain.merge(qtTextColour(colour));
    plain.setFontWeight(QFont::Normal);
    plain.setFontItalic(false);
    plain.setFontUnderline(false);
    plain.setFontStrikeOut(false);
    QTextCursor cursor(m_document);
    cursor.beginEditBlock();
    mergeIntoAll(plain);
    for (const auto &[from, to] : stretchesInForeignFonts()) {
        cursorOver(from, to).mergeCharFormat(qtFontName(std::string(kPlainFont)));
        m_document->reformTabs(from, to);
    }
    cursor.endEditBlock();
    endStep();
}

std::vector<std::pair<int, int>> RichTextBox::stretchesInForeignFonts() const {
    std::vector<std::pair<int, int>> stretches;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (const QTextFragment fragment = it.fragment();
                fontKindOf(fragment.charFormat()) == FontKind::Foreign)
                stretches.emplace_back(fragment.position(), fragment.position() + fragment.length());
    return stretches;
}

} // namespace zolt
