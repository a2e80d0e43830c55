#include "core/utf8.h"

#include "core/charset.h"

#include <array>

namespace zolt {

namespace {

/// A form of UTF-8 by the bits that its first byte begins with (RFC 3629).
struct Form {
    unsigned char mask;
    unsigned char beginning;
    std::size_t length;
    /// The lowest character that needs this form.
    char32_t lowest;
};

constexpr std::array<Form, 4> kForms{{
    {0x80, 0x00, 1, 0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

constexpr char32_t kLastCharacter = 0x10FFFF;

bool isSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

/// The character of one form at the front of `utf8`, if its bytes are all there.
std::optional<char32_t> decoded(std::string_view utf8, const Form &form) {
    if (utf8.size() < form.length)
        return std::nullopt;
    char32_t character = static_cast<unsigned char>(utf8.front()) & ~form.mask & 0xFFu;
    for (const char next : utf8.substr(1, form.length - 1)) {
        if ((next & 0xC0) != 0x80)
            return std::nullopt;
        character = character << 6 | (next & 0x3F);
    }
    if (character < form.lowest || character > kLastCharacter || isSurrogate(character))
        return std::nullopt;
    return character;
}

} // namespace

std::optional<char32_t> takeCharacter(std::string_view &utf8) {
    for (const Form &form : kForms)
        if ((static_cast<unsigned char>(utf8.front()) & form.mask) == form.beginning)
            if (const auto character = decoded(utf8, form)) {
                utf8.remove_prefix(form.length);
                return character;
            }
    utf8.remove_prefix(1);
    return std::nullopt;
}

void appendCharacter(std::string &utf8, char32_t character) {
    std::size_t form = 0;
    while (form + 1 < kForms.size() && character >= kForms[form + 1].lowest)
        ++form;
    std::size_t shift = 6 * (kForms[form].length - 1);
    utf8 += static_cast<char>(kForms[form].beginning | character >> shift);
    while (shift > 0) {
        shift -= 6;
        utf8 += static_cast<char>(0x80 | (character >> shift & 0x3F));
    }
}

std::string windowsFromUtf8(std::string_view utf8) {
    std::string bytes;
    while (!utf8.empty()) {
        const std::optional<char32_t> character = takeCharacter(utf8);
        const auto byte = character ? byteOfWindowsCharacter(*character) : std::nullopt;
        bytes += static_cast<char>(byte.value_or('?'));
    }
    return bytes;
}

} // namespace zolt
