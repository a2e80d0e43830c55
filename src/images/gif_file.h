#pragma once

#include "core/progress.h"
#include "images/dot_surface.h"

#include <string>

namespace zolt {

/// A GIF87a file of a surface, black on white, with 2 by 2 pixels to the dot. Codes
/// keep 9 bits from start to end; strings never cross a row. `progress` gets every
/// tenth pixel row and their number; a stop gives an empty text, as an empty surface
/// does.
/// Format: https://www.w3.org/Graphics/GIF/spec-gif87.txt
std::string gifFile(const DotSurface &surface, const Progress &progress = {});

} // namespace zolt
