#include "hp48/word_wrap_reader.h"

namespace zolt {

std::optional<ShownItem> ShownItems::next() {
    ShownItem item{};
    item.lead = m_at.position;
    item.isFree = item.lead >= m_ends.searchedTo();
    if (m_marks.at(m_at) == kStyleMark)
        takeCodes();
    if (m_marks.atEnd(m_at))
        return std::nullopt;
    item.begin = m_at.position;
    item.kind = kindHere();
    item.isDouble = isDoubleHere();
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

void ShownItems::takeCodes() {
    char letter = letterHere();
    for (std::size_t i = 0; i < kStyleCodes.size(); ++i) {
        if (letter != kStyleCodes[i].letter)
            continue;
        m_at = m_marks.advance(m_at, 2);
        if (const auto partner = m_marks.takeFirst(i, m_at)) {
            m_ends.forget(m_at.position, *partner);
            m_at = m_marks.settled(m_at);
            m_openRuns.push_back({*partner, kStyleCodes[i].style});
        }
        letter = letterHere();
    }
}

char ShownItems::letterHere() const {
    return m_marks.at(m_at) == kStyleMark ? m_marks.at(m_marks.advance(m_at, 1)) : '\0';
}

/// Between two marks a place is only its position.
void ShownItems::advance(std::size_t count) {
    if (m_at.position + count < m_marks.nextMark(m_at))
        m_at.position += count;
    else
        m_at = m_marks.advance(m_at, count);
}

bool ShownItems::isDoubleHere() {
    while (!m_openRuns.empty() && m_openRuns.back().end <= m_at.position)
        m_openRuns.pop_back();
    return !m_openRuns.empty() && m_openRuns.back().style == Style::Double;
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
