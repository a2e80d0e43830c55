#include "hp48/styled_text.h"

#include <algorithm>

namespace zolt {

void StyledText::append(std::string_view text, Style style) {
    if (text.empty())
        return;
    if (spans.empty() || spans.back().style != style)
        spans.push_back({characters.size(), style});
    characters += text;
}

PieceReader::PieceReader(const StyledText &text, std::size_t position) : m_text(text), m_position(position) {
    const auto span = std::partition_point(text.spans.begin(), text.spans.end(),
                                           [&](const StyleSpan &s) { return s.begin <= position; });
    const auto picture = std::partition_point(text.pictures.begin(), text.pictures.end(),
                                              [&](const PictureBlock &p) { return p.position < position; });
    m_span = static_cast<std::size_t>(std::max<std::ptrdiff_t>(span - text.spans.begin() - 1, 0));
    m_picture = static_cast<std::size_t>(picture - text.pictures.begin());
}

PieceReader::Piece PieceReader::next(std::size_t limit) {
    while (m_span + 1 < m_text.spans.size() && m_text.spans[m_span + 1].begin <= m_position)
        ++m_span;
    while (m_picture < m_text.pictures.size() && m_text.pictures[m_picture].position < m_position)
        ++m_picture;
    Piece piece{m_position, limit, m_text.spans[m_span].style, nullptr};
    if (m_span + 1 < m_text.spans.size())
        piece.end = std::min(piece.end, m_text.spans[m_span + 1].begin);
    if (m_picture < m_text.pictures.size()) {
        const PictureBlock &picture = m_text.pictures[m_picture];
        if (picture.position == m_position) {
            piece.picture = &picture;
            piece.end = m_position + 1;
        } else {
            piece.end = std::min(piece.end, picture.position);
        }
    }
    m_position = piece.end;
    return piece;
}

} // namespace zolt
