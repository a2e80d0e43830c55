#pragma once

#include "graphic/font_characters.h"

#include <QString>
#include <string>
#include <string_view>

namespace zolt {

/// How the bytes of a rich text stand in a Qt text document, one character a byte: as
/// the calculator's character where Qt leaves that alone, else as the private one that
/// the calculator's fonts map to the same glyph. Only byte 9 stands otherwise in a
/// foreign font, as a tab. CR LF is one paragraph separator.
QString shownText(std::string_view bytes, FontKind kind);

/// The character in which byte 9 stands.
QChar shownTab(FontKind kind);
bool isShownTab(QChar character);

/// The bytes of a raw text of a document, whatever fonts it stands in; "?" for what is
/// no such character, a blank for a picture's.
std::string bytesOfShownText(QStringView shown);

} // namespace zolt
