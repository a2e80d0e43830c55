#pragma once

#include "core/progress.h"
#include "hp48/place_map.h"
#include "hp48/styled_text.h"

#include <functional>
#include <optional>
#include <string_view>

namespace zolt {

/// Takes each picture that is found, first to last. A false answer ends the work.
using PictureTaker = std::function<bool(const PictureBlock &picture)>;

/// Takes the style codes out of `text` and gives what stands between a code and the
/// next of its letter that letter's style; a later run's style holds where runs
/// cross. At one position the letters are tried once each, in the order of
/// kStyleCodes, so that a code whose turn has passed stays as two characters.
/// Blocks of picture cells become pictures, which `onPicture`, if given, draws.
/// `progress` counts the characters of the text. No value when one of the
/// two asked to stop. `places`, if given, gets where the text's characters stand in the
/// compiled one.
std::optional<StyledText> compileStylesAndPictures(std::string_view text, const Progress &progress = {},
                                                   const PictureTaker &onPicture = {},
                                                   PlaceMap *places = nullptr);

} // namespace zolt
