#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zolt {

/// The private characters from here on stand for the 256 bytes; the fonts of the
/// calculator map them to the glyphs.
inline constexpr char32_t kPrivateByte = 0xE000;

/// The Unicode character that the calculator shows for a byte. Bytes below 31
/// and others without a printed form give the character of the same number.
char32_t calculatorCharacter(unsigned char byte);

/// The Unicode character of a byte in code page 1252, as browsers and Windows
/// read it: the five undefined bytes are the C1 controls of the same number.
/// Source: https://encoding.spec.whatwg.org/index-windows-1252.txt
char32_t windowsCharacter(unsigned char byte);

/// The byte of a character in code page 1252, if it has one.
std::optional<unsigned char> byteOfWindowsCharacter(char32_t character);

/// The byte that the calculator shows as this character, if there is one. From 160 up
/// its set is that of code page 1252, but that 181 and 223 are also the Greek mu and
/// beta. Control characters give the byte of the same number.
std::optional<unsigned char> byteOfCharacter(char32_t character);

/// The bytes of a character that is typed or pasted: its byte on the calculator, else
/// the nearest signs that there are, which may be several or none, else "?".
std::string bytesOfCharacter(char32_t character);

} // namespace zolt
