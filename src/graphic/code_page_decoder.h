#pragma once

#include <cstddef>
#include <string_view>

namespace zolt {

/// The characters of one code page, whose bytes come in sequences of one to four. Pages
/// that the system's iconv doesn't know have no characters but ASCII.
class CodePageDecoder {
public:
    explicit CodePageDecoder(int codePage);
    ~CodePageDecoder();
    CodePageDecoder(const CodePageDecoder &) = delete;
    CodePageDecoder &operator=(const CodePageDecoder &) = delete;

    /// How many bytes the character takes that begins with this one.
    std::size_t length(unsigned char first) const;
    /// Whether this byte may stand behind the first of a sequence.
    bool mayFollow(unsigned char byte) const;
    /// The Unicode character of a whole sequence, 0 if it has none.
    char32_t character(std::string_view sequence) const;

private:
    int m_codePage;
    void *m_converter; // an iconv_t
};

} // namespace zolt
