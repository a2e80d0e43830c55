#include "hp48/screen.h"

#include "hp48/picture_block.h"

#include <algorithm>

namespace zolt {

namespace {

/// In cells, without what is not drawn.
ImageTextSize sizeOf(const PictureBlock &picture) {
    return drawnSize({picture.columns, picture.lines}, picture.cells.size());
}

std::int64_t widthOf(const PieceReader::Piece &piece) {
    if (piece.picture)
        return sizeOf(*piece.picture).columns * kCellWidth;
    return static_cast<std::int64_t>(piece.end - piece.begin) * glyphWidth(piece.style);
}

void drawPicture(DotSurface &surface, const PictureBlock &picture, std::int64_t left, std::int64_t top) {
    const ImageTextSize size = sizeOf(picture);
    const auto draw = [&](const DigitPlace &place, int value) {
        if (place.x < size.columns * kCellWidth && place.y < size.lines * kCellHeight)
            surface.setDigit(left + place.x, top + place.y, value);
    };
    forEachDigit(picture.cells, draw, [](std::size_t) { return true; });
}

void drawGlyph(DotSurface &surface, const Glyph &glyph, int width, std::int64_t left, std::int64_t top) {
    for (int y = 0; y < kCellHeight; ++y)
        for (int x = 0; x < width; x += kDotsPerDigit)
            surface.setDigit(left + x, top + y, glyph.rows[static_cast<std::size_t>(y)] >> x & 0xF);
}

} // namespace

std::vector<ScreenLine> screenLines(const StyledText &text) {
    std::vector<ScreenLine> lines;
    PieceReader reader(text);
    std::int64_t top = 0;
    while (true) {
        const std::size_t found = text.characters.find(kLineEnd, reader.position());
        ScreenLine line{reader.position(), std::min(found, text.characters.size()), top, 0, kCellHeight};
        while (reader.position() < line.end) {
            const PieceReader::Piece piece = reader.next(line.end);
            line.width += widthOf(piece);
            if (piece.picture)
                line.height = std::max(line.height, sizeOf(*piece.picture).lines * kCellHeight);
        }
        lines.push_back(line);
        if (found == std::string::npos)
            return lines;
        top += line.height;
        reader.moveTo(found + kLineEnd.size());
    }
}

std::int64_t screenWidth(std::span<const ScreenLine> lines) {
    std::int64_t width = std::int64_t{kColumns} * kCellWidth;
    for (const ScreenLine &line : lines)
        width = std::max(width, line.width);
    return width;
}

std::span<const ScreenLine> linesBetween(std::span<const ScreenLine> lines, std::int64_t top,
                                         std::int64_t bottom) {
    const auto first = std::partition_point(
        lines.begin(), lines.end(), [&](const ScreenLine &line) { return line.top + line.height <= top; });
    const auto last =
        std::partition_point(first, lines.end(), [&](const ScreenLine &line) { return line.top < bottom; });
    return {first, last};
}

const ScreenLine &lineOfCharacter(std::span<const ScreenLine> lines, std::size_t position) {
    const auto next = std::partition_point(
        lines.begin(), lines.end(), [position](const ScreenLine &line) { return line.begin <= position; });
    return next == lines.begin() ? *next : *std::prev(next);
}

std::size_t characterAt(const StyledText &text, const ScreenLine &line, std::int64_t x) {
    PieceReader reader(text, line.begin);
    while (reader.position() < line.end) {
        const PieceReader::Piece piece = reader.next(line.end);
        const std::int64_t width = widthOf(piece);
        if (x < width)
            return piece.picture ? piece.begin
                                 : piece.begin + static_cast<std::size_t>(std::max<std::int64_t>(x, 0) /
                                                                          glyphWidth(piece.style));
        x -= width;
    }
    return line.end;
}

void drawLines(DotSurface &surface, const StyledText &text, std::span<const ScreenLine> lines,
               GlyphSource glyphs, std::int64_t top) {
    if (lines.empty())
        return;
    PieceReader reader(text, lines.front().begin);
    for (const ScreenLine &line : lines) {
        const std::int64_t foot = line.top + line.height - top;
        std::int64_t left = 0;
        reader.moveTo(line.begin);
        while (reader.position() < line.end) {
            const PieceReader::Piece piece = reader.next(line.end);
            if (piece.picture) {
                drawPicture(surface, *piece.picture, left, foot - sizeOf(*piece.picture).lines * kCellHeight);
            } else {
                const int width = glyphWidth(piece.style);
                for (std::size_t i = piece.begin; i < piece.end; ++i) {
                    const auto code = static_cast<unsigned char>(text.characters[i]);
                    drawGlyph(surface, glyphs(piece.style, code), width,
                              left + static_cast<std::int64_t>(i - piece.begin) * width, foot - kCellHeight);
                }
            }
            left += widthOf(piece);
        }
    }
}

} // namespace zolt
