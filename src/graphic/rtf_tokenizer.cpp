#include "graphic/rtf_tokenizer.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zolt {

namespace {

/// So that a long line, or a picture on one, doesn't keep the windows waiting.
constexpr std::size_t kLongestText = 4096;

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isSourceLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool endsText(char c) {
    return c == '\\' || c == '{' || c == '}' || isSourceLineEnd(c);
}

} // namespace

RtfToken RtfTokenizer::next() {
    while (!atEnd() && isSourceLineEnd(peek()))
        ++m_position;
    if (atEnd())
        return {};
    switch (peek()) {
    case '{':
        return {RtfToken::Kind::GroupStart, m_source.substr(m_position++, 1)};
    case '}':
        return {RtfToken::Kind::GroupEnd, m_source.substr(m_position++, 1)};
    case '\\':
        ++m_position;
        return afterBackslash();
    default:
        return text();
    }
}

RtfToken RtfTokenizer::afterBackslash() {
    if (atEnd())
        return {};
    if (isLetter(peek()))
        return word();
    if (peek() == '\'')
        return hexByte();
    return {RtfToken::Kind::Symbol, m_source.substr(m_position++, 1)};
}

RtfToken RtfTokenizer::word() {
    const std::size_t start = m_position;
    while (!atEnd() && isLetter(peek()))
        ++m_position;
    RtfToken token{RtfToken::Kind::Word, m_source.substr(start, m_position - start)};
    readParameter(token);
    if (!atEnd() && peek() == ' ')
        ++m_position;
    if (token.text == "bin") {
        token.kind = RtfToken::Kind::Binary;
        token.text = binary(token.parameter);
    }
    return token;
}

void RtfTokenizer::readParameter(RtfToken &token) {
    std::size_t at = m_position;
    const bool negative = at < m_source.size() && m_source[at] == '-';
    if (negative)
        ++at;
    if (at == m_source.size() || !isDigit(m_source[at]))
        return;
    std::int64_t value = 0;
    for (; at < m_source.size() && isDigit(m_source[at]); ++at)
        value = std::min<std::int64_t>(value * 10 + (m_source[at] - '0'), std::numeric_limits<int>::max());
    m_position = at;
    token.hasParameter = true;
    token.parameter = static_cast<int>(negative ? -value : value);
}

std::string_view RtfTokenizer::binary(int size) {
    const std::size_t length =
        std::min(static_cast<std::size_t>(std::max(size, 0)), m_source.size() - m_position);
    const std::string_view bytes = m_source.substr(m_position, length);
    m_position += length;
    return bytes;
}

RtfToken RtfTokenizer::hexByte() {
    const std::string_view digits = m_source.substr(m_position + 1, 2);
    const int high = digits.size() == 2 ? rtfHexValue(digits[0]) : -1;
    const int low = digits.size() == 2 ? rtfHexValue(digits[1]) : -1;
    if (high < 0 || low < 0)
        return {RtfToken::Kind::Symbol, m_source.substr(m_position++, 1)};
    m_position += 3;
    return {RtfToken::Kind::Byte, digits, true, high * 16 + low};
}

RtfToken RtfTokenizer::text() {
    const std::size_t start = m_position;
    const std::size_t end = std::min(m_source.size(), start + kLongestText);
    while (m_position < end && !endsText(peek()))
        ++m_position;
    return {RtfToken::Kind::Text, m_source.substr(start, m_position - start)};
}

} // namespace zolt
