#include "hp48/word_wrap_fold.h"

#include "core/codes.h"

#include <algorithm>

namespace zolt {

void FoldColumns::take(std::string_view text, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i)
        takeByte(text[i], i + 1 < text.size() ? text[i + 1] : '\0');
}

std::size_t FoldColumns::used() const {
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(m_full ? kColumns : m_column - 1, 0));
}

void FoldColumns::takeByte(char character, char next) {
    if (!wasCutBefore(character)) {
        if (character == kCellMark) {
            m_column -= static_cast<std::ptrdiff_t>(kCellLength);
        } else if (character == '\r' && next == '\n') {
            m_column = -1;
            m_doubleEnd = kNone;
        } else if (character == kStyleMark) {
            passCode(next);
        }
        m_full = m_column == kColumns;
    }
    if (!m_full)
        ++m_column;
    ++m_taken;
}

/// Settles a cut that waited for this byte. The byte right behind a cut is a plain one,
/// whatever it is.
bool FoldColumns::wasCutBefore(char character) {
    if (m_taken == m_doubleEnd) {
        m_doubleEnd = kNone;
        m_column = m_doubleColumn;
    } else if (!m_full) {
        return false;
    } else if (character == '\r') {
        m_full = false;
        m_column = kColumns - 1;
        return false;
    } else {
        m_column = 1;
    }
    m_full = false;
    ++m_cuts;
    return true;
}

void FoldColumns::passCode(char letter) {
    const StyleCode *code = styleOfLetter(letter);
    if (code && code->style == Style::Double)
        passDoubleCode();
    else if (code)
        m_column -= 2;
}

/// Of codes without a line end between them the first cuts first, and its cut does
/// away with theirs.
void FoldColumns::passDoubleCode() {
    constexpr std::ptrdiff_t kCodeAndRoom = kDoubleColumns + 3;
    if (m_column > kCodeAndRoom || m_doubleEnd != kNone)
        return;
    if (m_column == kCodeAndRoom) {
        ++m_cuts;
        return;
    }
    m_doubleColumn = m_column;
    m_doubleEnd = m_taken + static_cast<std::size_t>(kCodeAndRoom - m_column);
}

} // namespace zolt
