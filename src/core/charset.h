#pragma once

#include <cstdint>
#include <optional>

namespace zolt {

/// The Unicode character that the calculator shows for a byte. Bytes below 31
/// and others without a printed form give the character of the same number.
char32_t calculatorCharacter(unsigned char byte);

/// The Unicode character of a byte in code page 1252, as browsers and Windows
/// read it: the five undefined bytes are the C1 controls of the same number.
/// Source: https://encoding.spec.whatwg.org/index-windows-1252.txt
char32_t windowsCharacter(unsigned char byte);

/// The byte of a character that is typed or pasted: its byte in code page 1252
/// if it has one, else its byte in the calculator's set, else none.
std::optional<unsigned char> byteOfCharacter(char32_t character);

} // namespace zolt
