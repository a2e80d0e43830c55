#include "hp48/word_wrap_reader.h"

namespace zolt {

std::optional<ShownItem> ShownItems::next() {
    ShownItem item{};
    item.lead = m_at.position;
    item.isFree = item.lead >= m_ends.searchedTo();
    if (m_marks.at(m_at) == kStyleMark)
        m_at = m_runs.takeCodes(m_marks, m_ends, m_at);
    if (m_marks.atEnd(m_at))
        return std::nullopt;
    item.begin = m_at.position;
    item.kind = kindHere();
    item.isDouble = m_runs.styleAt(m_at.position) == Style::Double;
    if (item.kind == ShownItem::Kind::Picture)
        m_at = endOfPicture(m_marks, m_at, m_ends);
    else
        advance(item.kind == ShownItem::Kind::LineEnd ? kLineEnd.size() : 1);
    item.end = m_at.position;
    return item;
}

ShownItem::Kind ShownItems::kindHere() const {
    const char character = m_text[m_at.position];
    if (character == kCellMark)
        return ShownItem::Kind::Picture;
    if (character == ' ')
        return ShownItem::Kind::Blank;
    if (character == '\r' && m_marks.lineEndAt(m_at))
        return ShownItem::Kind::LineEnd;
    return ShownItem::Kind::Character;
}

/// Between two marks a place is only its position.
void ShownItems::advance(std::size_t count) {
    if (m_at.position + count < m_marks.nextMark(m_at))
        m_at.position += count;
    else
        m_at = m_marks.advance(m_at, count);
}

void ShownLine::take(const ShownItem &item, std::string_view text) {
    const bool isCharacter = item.kind == ShownItem::Kind::Character;
    const bool isStar = isCharacter && text[item.begin] == '*';
    m_afterBlank = item.kind == ShownItem::Kind::Blank;
    if (m_isEmpty && !m_isFirst)
        m_isEntry = isStar;
    m_isEmpty = false;
    if (m_afterBlank) {
        m_inWord = false;
        return;
    }
    if (!m_inWord) {
        m_wordIsEntry = isStar;
        m_wordHasCharacter = false;
        m_inWord = true;
    }
    m_wordHasCharacter = m_wordHasCharacter || isCharacter;
    m_hasCharacter = m_hasCharacter || isCharacter;
}

} // namespace zolt
