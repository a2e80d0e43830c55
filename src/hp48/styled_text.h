#pragma once

#include "core/codes.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// Stands at a picture's position among the characters.
inline constexpr char kPicturePlace = ' ';

/// From `begin` on, up to the next span or the text's end, all positions have a style.
struct StyleSpan {
    std::size_t begin;
    Style style;

    bool operator==(const StyleSpan &) const = default;
};

/// A block of picture cells that became one picture.
struct PictureBlock {
    /// Where the picture stands in StyledText::characters, from 0.
    std::size_t position = 0;
    std::int64_t columns = 0;
    std::int64_t lines = 0;
    /// The text that the picture stands for.
    std::string cells;

    bool operator==(const PictureBlock &) const = default;
};

/// A compiled text in one piece: what the calculator shows, position by position.
/// Line ends are the characters CR LF and have a style like all others.
struct StyledText {
    std::string characters;
    /// In order, the first at 0, no two neighbours alike; none for an empty text.
    std::vector<StyleSpan> spans;
    /// In the order of the text.
    std::vector<PictureBlock> pictures;

    bool operator==(const StyledText &) const = default;

    /// Adds characters at the end.
    void append(std::string_view text, Style style);
};

/// Walks a StyledText by pieces, each one picture or characters of one style.
class PieceReader {
public:
    struct Piece {
        std::size_t begin;
        std::size_t end;
        Style style;
        /// The picture that the piece is, or nullptr.
        const PictureBlock *picture;
    };

    /// Begins at a position, without a walk up to it.
    explicit PieceReader(const StyledText &text, std::size_t position = 0);

    std::size_t position() const { return m_position; }
    /// Passes over the characters up to `position`; it never goes back.
    void moveTo(std::size_t position) { m_position = position; }
    /// The piece at the position, cut at `limit`, which lies behind the position and
    /// not behind the text's end. Moves to the piece's end.
    Piece next(std::size_t limit);

private:
    const StyledText &m_text;
    std::size_t m_position;
    std::size_t m_span;
    std::size_t m_picture;
};

} // namespace zolt
