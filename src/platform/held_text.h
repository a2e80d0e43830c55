#pragma once

#include "core/charset.h"

#include <QString>
#include <string>
#include <string_view>

namespace zolt {

/// How a document's bytes stand in a Qt text document, one character a byte:
/// as the character of code page 1252 where Qt leaves that alone, else as the
/// private character kHeldByte + byte, which the fonts of the calculator map to
/// the same glyph. CR LF is one paragraph separator; a lone CR or LF is held
/// like any other control character.
inline constexpr char16_t kHeldByte = kPrivateByte;

QString heldText(std::string_view bytes);

/// The byte that a character stands for; "?" if it is no held character.
unsigned char byteOfHeldCharacter(QChar character);

/// The bytes of a raw text of a document (QTextDocument::toRawText, or the
/// selected text of a cursor), paragraph separators giving CR LF.
std::string bytesOfHeldText(QStringView held);

/// The bytes of a text from outside, typed, pasted or dropped: those that stand for
/// each character (see bytesOfCharacter); a letter and an accent that follows it are
/// one where Unicode has that. CR LF, CR, LF and the separators of Unicode all give
/// CR LF. A private character that holds a byte gives it back, and a "ž" in front of
/// six hexadecimal digits the mark of a picture cell.
std::string bytesOfOutsideText(QStringView text);

/// What other programs get of a document's bytes: the characters that the
/// calculator shows, lines separated by LF.
QString outsideText(std::string_view bytes);

} // namespace zolt
