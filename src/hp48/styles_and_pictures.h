#pragma once

#include "core/progress.h"
#include "hp48/place_map.h"
#include "hp48/styled_text.h"

#include <optional>
#include <string_view>
#include <vector>

namespace zolt {

/// A text whose codes have become styles and whose picture cells have become
/// pictures; `drawn` has one picture for each of `text.pictures`.
struct StyledPictures {
    StyledText text;
    std::vector<RichPicture> drawn;
};

/// Takes the style codes out of `text` and gives what stands between a code and the
/// next of its letter that letter's style; a later run's style holds where runs
/// cross. At one position the letters are tried once each, in the order of
/// kStyleCodes, so that a code whose turn has passed stays as two characters.
/// Blocks of picture cells become pictures. `progress` counts the characters of the
/// text, `pictureProgress` those of the picture in work. No value when one of the
/// two asked to stop. `places`, if given, gets where the text's characters stand in the
/// compiled one.
std::optional<StyledPictures> compileStylesAndPictures(std::string_view text, const Progress &progress = {},
                                                       const Progress &pictureProgress = {},
                                                       PlaceMap *places = nullptr);

} // namespace zolt
