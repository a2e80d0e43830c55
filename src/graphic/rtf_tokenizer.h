#pragma once

#include <cstddef>
#include <string_view>

namespace zolt {

/// One piece of an RTF source. Views point into the source.
struct RtfToken {
    enum class Kind {
        GroupStart,
        GroupEnd,
        /// A backslash and letters: `text` holds the letters.
        Word,
        /// A backslash and one other character: `text` holds that character.
        Symbol,
        /// A character as \'hh: its value is the parameter.
        Byte,
        /// Characters that stand for themselves, line ends of the source left out; a
        /// long row of them comes in pieces.
        Text,
        /// The raw bytes behind \bin.
        Binary,
        End,
    };
    Kind kind = Kind::End;
    std::string_view text;
    bool hasParameter = false;
    /// The number behind a word, held within the range of int.
    int parameter = 0;

    int parameterOr(int otherwise) const { return hasParameter ? parameter : otherwise; }
};

/// Splits an RTF source into tokens, each byte once. Whatever the bytes are, it
/// ends: a token always takes at least one byte, and nothing is taken behind the
/// source's end.
/// Source: Microsoft's "Rich Text Format (RTF) Specification, version 1.9.1".
class RtfTokenizer {
public:
    explicit RtfTokenizer(std::string_view source) : m_source(source) {}

    RtfToken next();
    /// Bytes read so far.
    std::size_t position() const { return m_position; }

private:
    RtfToken afterBackslash();
    RtfToken word();
    RtfToken hexByte();
    RtfToken text();
    void readParameter(RtfToken &token);
    std::string_view binary(int size);

    bool atEnd() const { return m_position == m_source.size(); }
    char peek() const { return m_source[m_position]; }

    std::string_view m_source;
    std::size_t m_position = 0;
};

/// The value of a hexadecimal digit in either case, else -1.
constexpr int rtfHexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

} // namespace zolt
