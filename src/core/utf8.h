#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// Takes the first character off the front of a text in UTF-8. Nothing, and one
/// byte taken, where the bytes are no character (overlong forms and surrogates
/// included). `utf8` isn't empty.
std::optional<char32_t> takeCharacter(std::string_view &utf8);

void appendCharacter(std::string &utf8, char32_t character);

/// A text in UTF-8 as bytes of code page 1252: "?" for a character outside it and for
/// a byte that is no character.
std::string windowsFromUtf8(std::string_view utf8);

} // namespace zolt
