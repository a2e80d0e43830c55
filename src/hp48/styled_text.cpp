#include "hp48/styled_text.h"

#include "core/reporter.h"

#include <algorithm>
#include <array>

namespace zolt {

namespace {

/// Gives each style its format in a rich text, adding the fonts that are used.
class Formats {
public:
    explicit Formats(RichText &text) : m_text(text) { m_fonts.fill(kUnknown); }

    CharFormat of(Style style) {
        std::uint16_t &font = m_fonts[static_cast<std::size_t>(style)];
        if (font == kUnknown)
            font = m_text.fontIndex(fontOfStyle(style));
        CharFormat format;
        format.font = font;
        return format;
    }

private:
    static constexpr std::uint16_t kUnknown = 0xFFFF;

    RichText &m_text;
    std::array<std::uint16_t, kStyleCount> m_fonts;
};

} // namespace

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

std::optional<RichText> richTextOf(const StyledText &text, std::vector<RichPicture> drawn,
                                   const Progress &progress) {
    RichText rich;
    rich.paragraphs.reserve(
        1 + static_cast<std::size_t>(std::count(text.characters.begin(), text.characters.end(), '\n')));
    Formats formats(rich);
    PieceReader reader(text);
    Reporter reporter(progress, text.characters.size());
    while (true) {
        if (!reporter.goOn(reader.position()))
            return std::nullopt;
        std::vector<Run> &runs = rich.paragraphs.back().runs;
        const std::size_t found = text.characters.find(kLineEnd, reader.position());
        const std::size_t lineEnd = std::min(found, text.characters.size());
        while (reader.position() < lineEnd) {
            const PieceReader::Piece piece = reader.next(lineEnd);
            Run &run = runs.emplace_back();
            run.format = formats.of(piece.style);
            if (piece.picture)
                run.content =
                    std::move(drawn[static_cast<std::size_t>(piece.picture - text.pictures.data())]);
            else
                run.content = std::string_view(text.characters).substr(piece.begin, piece.end - piece.begin);
        }
        if (found == std::string::npos)
            return rich;
        reader.moveTo(lineEnd + kLineEnd.size());
        rich.paragraphs.emplace_back();
    }
}

} // namespace zolt
