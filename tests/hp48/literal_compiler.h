#pragma once

#include "hp48/preview_compiler.h"
#include "images/image_text.h"

#include <string>
#include <string_view>
#include <vector>

namespace zolt::literal {

/// One position of a rich text control: a character or a picture, and its font.
struct Position {
    char character;
    std::string font;
    bool isPicture = false;
    std::string cells;

    bool operator==(const Position &) const = default;
};

struct Compiled {
    std::vector<Position> text;
    std::vector<MenuEntry> entries;
    /// Columns and lines of each picture.
    std::vector<ImageTextSize> pictureSizes;
};

/// The calculator's preview made in the slow way: every letter is looked for at
/// every position of a text that changes under the search. Positions count from 1.
Compiled compile(std::string_view document, PreviewFlavour flavour);

/// What the program compiles, in the same form.
std::vector<Position> positionsOf(const StyledText &text);

/// The dots of a picture, row by row, '#' for a dot on and '.' for one off.
std::vector<std::string> draw(const std::string &cells, ImageTextSize size);

} // namespace zolt::literal
