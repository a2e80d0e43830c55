#include "symbols/symbol_cell.h"

#include "core/codes.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

/// The squares that are on, as the grid shows them: six rows of four.
std::string picture(const CellDots &dots) {
    std::string text;
    for (int square = 1; square <= kCellSquares; ++square)
        text +=
            std::string(squareIsOn(dots, square) ? "#" : ".") + (square % 4 == 0 && square < 24 ? "/" : "");
    return text;
}

std::string cell(std::string_view digits) {
    return kCellMark + std::string(digits);
}

TEST(SymbolCell, IsReadOntoTheGridAndIntoThePreview) {
    const std::string nothing = "..../..../..../..../..../....";
    const struct {
        std::string expression;
        std::string grid;
        std::string preview;
    } cases[] = {{cell("F00000"), "####/..../..../..../..../....", "####/..../..../..../..../...."},
                 {cell("842100"), "...#/..#./.#../#.../..../....", "...#/..#./.#../#.../..../...."},
                 {"", nothing, nothing},
                 {"\x9E", nothing, nothing},
                 // Small letters are no digits: a blank row, and nothing in the preview.
                 {cell("1a2f3F"), "#.../..../.#../..../##../####", "#.../.#../##../####/..../...."},
                 // The grid goes by position and never looks at the first character.
                 {"F1", "#.../..../..../..../..../....", "####/#.../..../..../..../...."},
                 {cell("00000012"), nothing, nothing}};
    for (const auto &[expression, grid, preview] : cases) {
        EXPECT_EQ(picture(Transferir(expression)), grid);
        EXPECT_EQ(picture(Thumbnail(expression)), preview);
    }
}

TEST(SymbolCell, TogglesOneSquareAtATime) {
    CellDots dots{};
    toggleSquare(dots, 1);
    toggleSquare(dots, 8);
    toggleSquare(dots, 24);
    EXPECT_EQ(picture(dots), "#.../...#/..../..../..../...#");
    EXPECT_EQ(picture(inverted(dots)), ".###/###./####/####/####/###.");
    toggleSquare(dots, 8);
    toggleSquare(dots, 0);
    toggleSquare(dots, 25);
    EXPECT_EQ(picture(dots), "#.../..../..../..../..../...#");
}

} // namespace
} // namespace zolt
