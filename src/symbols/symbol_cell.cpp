#include "symbols/symbol_cell.h"

#include "core/codes.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr std::uint8_t kFullRow = (1 << kCellWidth) - 1;

bool isSquare(int square) {
    return square >= 1 && square <= kCellSquares;
}
std::size_t rowOf(int square) {
    return static_cast<std::size_t>((square - 1) / kCellWidth);
}
int bitOf(int square) {
    return 1 << ((square - 1) % kCellWidth);
}

} // namespace

CellDots Transferir(std::string_view expression) {
    CellDots dots{};
    for (std::size_t row = 0; row < dots.rows.size() && row + 1 < expression.size(); ++row)
        dots.rows[row] = static_cast<std::uint8_t>(std::max(0, hexDigitValue(expression[row + 1])));
    return dots;
}

std::string Expressao(const CellDots &dots) {
    std::string expression(1, kCellMark);
    for (const std::uint8_t row : dots.rows)
        expression += kHexDigits[row & kFullRow];
    return expression;
}

CellDots Thumbnail(std::string_view expression) {
    CellDots dots{};
    std::size_t row = 0;
    for (const char c : expression)
        if (const int digit = hexDigitValue(c); digit >= 0 && row < dots.rows.size())
            dots.rows[row++] = static_cast<std::uint8_t>(digit);
    return dots;
}

void toggleSquare(CellDots &dots, int square) {
    if (isSquare(square))
        dots.rows[rowOf(square)] ^= static_cast<std::uint8_t>(bitOf(square));
}

bool squareIsOn(const CellDots &dots, int square) {
    return isSquare(square) && (dots.rows[rowOf(square)] & bitOf(square)) != 0;
}

CellDots inverted(CellDots dots) {
    for (std::uint8_t &row : dots.rows)
        row ^= kFullRow;
    return dots;
}

CellDots filled() {
    return inverted(CellDots{});
}

} // namespace zolt
