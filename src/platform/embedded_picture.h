#pragma once

#include "graphic/rich_text.h"
#include "images/dot_surface.h"

namespace zolt {

/// The dots of a rich text's picture, drawn in its own size at the corner of a surface of
/// `width` by `height` dots: a dot is on if the picture's pixel at the dot's top left
/// corner, 30 twips a dot, is exactly black. What lies beyond the surface is cut off,
/// transparent parts are white. An empty surface if the picture can't be decoded. Needs no
/// application object.
DotSurface dotsOfEmbeddedPicture(const RichPicture &picture, int width, int height);

/// The same on the surface that the source-code compiler reads a picture from.
DotSurface dotsForSource(const RichPicture &picture);

} // namespace zolt
