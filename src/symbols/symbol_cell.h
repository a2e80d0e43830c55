#pragma once

#include "core/glyphs.h"

#include <string>
#include <string_view>

namespace zolt {

/// The dots of one symbol. Square 4 (r - 1) + c of the drawing grid, from 1 to 24,
/// is the dot in column c and row r, both counted from 1.
using CellDots = Glyph;
inline constexpr int kCellSquares = kCellWidth * kCellHeight;

/// The dots that the drawing grid shows for an expression: character r + 1 is row
/// r, whatever the first character is. What is no capital hexadecimal digit is an
/// empty row, and what follows the seventh character is left out.
CellDots Transferir(std::string_view expression);

/// The picture cell of the dots: the cell mark and six digits, one a row.
std::string Expressao(const CellDots &dots);

/// The dots that the preview of the list shows for an expression: its first six
/// capital hexadecimal digits, wherever they stand, are the rows.
CellDots Thumbnail(std::string_view expression);

/// Turns the dot of a square, 1 to 24, on or off; any other number changes nothing.
void toggleSquare(CellDots &dots, int square);
/// Whether the dot of a square is on; squares outside 1 to 24 are off.
bool squareIsOn(const CellDots &dots, int square);
/// The dots with every one changed.
CellDots inverted(CellDots dots);
/// All dots on; CellDots{} has all of them off.
CellDots filled();

} // namespace zolt
