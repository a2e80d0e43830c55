#pragma once

#include "core/letter_case.h"
#include "core/styles.h"
#include "graphic/rich_text.h"

#include <cstddef>
#include <string_view>

namespace zolt {

// In rich text the calculator's styles are fonts.

/// The wording of the pane that wraps its lines.
inline constexpr StyleMessages kWrappedPaneStyleMessages{
    .beyondColumn16 = "This formatting can only be applied as far as the 16\xBA"
                      "Character in each line.",
    .beyondColumn33 = "This formatting can only be applied as far as the 33\xBA"
                      "Character in each line.",
    .severalLines = "Select one line at a time.",
    .alreadyFormatted = kStyleMessages.alreadyFormatted,
};

/// Why a selection of at least one byte can't get the font of a style; empty if it can.
/// `endColumn` is the column that it ends at, `isPlain` whether it and the character
/// behind it are all in the plain font.
std::string_view styleFontRefusal(std::string_view selection, std::size_t endColumn, bool isPlain,
                                  std::string_view font, const StyleMessages &messages);

/// The text in the plain font and 10 points; colours and pictures stay.
RichText inPlainFont(const RichText &text);

/// The text with its characters changed as the command says, in their fonts.
RichText changeCase(RichText text, CaseCommand command);

} // namespace zolt
