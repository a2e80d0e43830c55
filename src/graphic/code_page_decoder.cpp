#include "graphic/code_page_decoder.h"

#include "core/utf8.h"
#include "graphic/code_pages.h"

#include <algorithm>
#include <array>
#include <iconv.h>
#include <string>

namespace zolt {

namespace {

struct ByteRange {
    unsigned char first;
    unsigned char last;
};

/// A code page of two bytes a character beside those of one: where the first byte lies,
/// and from where on the second one may.
struct DoubleByte {
    int codePage;
    std::array<ByteRange, 3> firsts;
    unsigned char seconds;
};

// Source: the mappings of https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/, and
// https://www.unicode.org/Public/MAPPINGS/OBSOLETE/EASTASIA/KSC/JOHAB.TXT for 1361
constexpr DoubleByte kDoubleBytes[] = {
    {932, {{{0x81, 0x9F}, {0xE0, 0xFC}}}, 0x40},
    {936, {{{0x81, 0xFE}}}, 0x40},
    {949, {{{0x81, 0xFE}}}, 0x41},
    {950, {{{0x81, 0xFE}}}, 0x40},
    {1361, {{{0x84, 0xD3}, {0xD8, 0xDE}, {0xE0, 0xF9}}}, 0x31},
};

const DoubleByte *doubleByte(int codePage) {
    const auto *found =
        std::find_if(std::begin(kDoubleBytes), std::end(kDoubleBytes),
                     [codePage](const DoubleByte &page) { return page.codePage == codePage; });
    return found == std::end(kDoubleBytes) ? nullptr : found;
}

/// As iconv() says it.
const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

/// Some converters hold a letter back, for an accent that may follow: the second call
/// asks for it, and makes the converter ready for the next sequence.
char32_t converted(iconv_t converter, std::string sequence) {
    std::array<unsigned char, 4> unit{};
    char *in = sequence.data();
    std::size_t inLeft = sequence.size();
    char *out = reinterpret_cast<char *>(unit.data());
    std::size_t outLeft = unit.size();
    const std::size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv(converter, nullptr, nullptr, &out, &outLeft);
    if (done == static_cast<std::size_t>(-1) || outLeft > 0)
        return 0;
    return unit[0] | char32_t{unit[1]} << 8 | char32_t{unit[2]} << 16 | char32_t{unit[3]} << 24;
}

} // namespace

CodePageDecoder::CodePageDecoder(int codePage) : m_codePage(codePage), m_converter(kNoConverter) {
    if (const char *name = converterOf(codePage))
        m_converter = iconv_open("UTF-32LE", name);
}

CodePageDecoder::~CodePageDecoder() {
    if (m_converter != kNoConverter)
        iconv_close(m_converter);
}

std::size_t CodePageDecoder::length(unsigned char first) const {
    if (m_codePage == kUtf8CodePage)
        return first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    const DoubleByte *page = doubleByte(m_codePage);
    const bool isFirst =
        page && std::any_of(page->firsts.begin(), page->firsts.end(), [first](const ByteRange &range) {
            return range.first != 0 && first >= range.first && first <= range.last;
        });
    return isFirst ? 2 : 1;
}

bool CodePageDecoder::mayFollow(unsigned char byte) const {
    if (m_codePage == kUtf8CodePage)
        return (byte & 0xC0) == 0x80;
    const DoubleByte *page = doubleByte(m_codePage);
    return page && byte >= page->seconds;
}

char32_t CodePageDecoder::character(std::string_view sequence) const {
    if (m_codePage == kUtf8CodePage) {
        const auto character = takeCharacter(sequence);
        return sequence.empty() ? character.value_or(0) : 0;
    }
    if (sequence.size() == 1) {
        const char32_t character = characterOfByte(m_codePage, static_cast<unsigned char>(sequence.front()));
        if (character != 0 || m_converter == kNoConverter)
            return character;
    }
    return m_converter == kNoConverter ? 0 : converted(m_converter, std::string(sequence));
}

} // namespace zolt
