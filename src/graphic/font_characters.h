#pragma once

#include "core/charset.h"

#include <string>
#include <string_view>

namespace zolt {

/// The kinds of fonts in a rich text. Fonts of the calculator, the plain one and the
/// eight of the styles, show a byte by its glyph. In any other font a byte is shown
/// as the Unicode character that the calculator has for it: alpha is 140 in both.
enum class FontKind { Calculator, Foreign };

FontKind fontKind(std::string_view name);

/// The character by which other programs carry a byte in a font of this kind: in the
/// calculator's fonts that of code page 1252, in foreign ones the calculator's. Bytes
/// whose character others drop (control characters, the soft hyphen) or that share it
/// with another byte have their private one. In a foreign font byte 9 is a tab.
/// bytesInFont() gives the byte back.
char32_t characterInFont(FontKind kind, unsigned char byte);

/// The bytes that a character becomes in a font of this kind: its own byte, else the
/// nearest signs that the calculator has ("..." for an ellipsis), else "?". Nothing
/// for a character that takes no room.
std::string bytesInFont(FontKind kind, char32_t character);

} // namespace zolt
