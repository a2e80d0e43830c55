#pragma once

#include "graphic/rich_text.h"

#include <QColor>
#include <QPalette>
#include <string>

namespace zolt {

/// The system colours that the settings may name, by their values.
inline constexpr Colour kSystemWindow = 0x80000005;
inline constexpr Colour kSystemWindowText = 0x80000008;

/// The colour of a value: red in its low byte, blue in its high one. System
/// colours are taken from the desktop's palette; one that it has no counterpart
/// for gives the colour of `otherwise`.
QColor qtColour(Colour value, QPalette::ColorRole otherwise);

/// Black or white, whichever is easier to read on the colour.
QColor readableOn(const QColor &background);
/// The colour of a text of value `text` on one of value `background`. A desktop's text
/// colour goes with its own window colour only: on any other it's black or white.
QColor textColourOn(Colour text, Colour background);

Colour colourValue(const QColor &colour);

/// Colour values as the settings hold them: the decimal text of a signed 32-bit
/// number. A text that is no number gives 0.
Colour colourFromSetting(const std::string &text);
std::string settingFromColour(Colour value);

} // namespace zolt
