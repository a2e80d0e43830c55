#include "core/nearest_signs.h"

#include <algorithm>
#include <array>

namespace zolt {

namespace {

struct Range {
    char32_t first;
    char32_t last;
    std::string_view signs; // bytes of the calculator's set
};

/// By rising character. Names of the blocks: https://www.unicode.org/charts/
constexpr Range kRanges[] = {
    // Letters of their own, accents and the marks of phonetics.
    {0x0192, 0x0192, "f"},
    {0x025B, 0x025B, "\x93"},
    {0x02B9, 0x02B9, "'"},
    {0x02BA, 0x02BA, "\""},
    {0x02BB, 0x02BD, "'"},
    {0x02C6, 0x02C6, "^"},
    {0x02C8, 0x02C8, "'"},
    {0x02CB, 0x02CB, "`"},
    {0x02D0, 0x02D0, ":"},
    {0x02D7, 0x02D7, "-"},
    {0x02DA, 0x02DA, "\xB0"},
    {0x02DC, 0x02DC, "~"},
    {0x02DD, 0x02DD, "\""},
    {0x02EE, 0x02EE, "\""},
    {0x0300, 0x036F, ""},
    // Greek.
    {0x037E, 0x037E, ";"},
    {0x0387, 0x0387, "\xB7"},
    {0x0391, 0x0391, "A"},
    {0x0392, 0x0392, "B"},
    {0x0395, 0x0395, "E"},
    {0x0396, 0x0396, "Z"},
    {0x0397, 0x0397, "H"},
    {0x0399, 0x0399, "I"},
    {0x039A, 0x039A, "K"},
    {0x039C, 0x039C, "M"},
    {0x039D, 0x039D, "N"},
    {0x039F, 0x039F, "O"},
    {0x03A1, 0x03A1, "P"},
    {0x03A4, 0x03A4, "T"},
    {0x03A5, 0x03A5, "Y"},
    {0x03A6, 0x03A6, "\xD8"},
    {0x03A7, 0x03A7, "X"},
    {0x03B9, 0x03B9, "i"},
    {0x03BA, 0x03BA, "k"},
    {0x03BD, 0x03BD, "v"},
    {0x03BF, 0x03BF, "o"},
    {0x03C2, 0x03C2, "\x98"},
    {0x03C5, 0x03C5, "u"},
    {0x03C6, 0x03C6, "\xF8"},
    {0x03C7, 0x03C7, "x"},
    {0x03D0, 0x03D0, "\xDF"},
    {0x03D1, 0x03D1, "\x95"},
    {0x03D5, 0x03D5, "\xF8"},
    {0x03D6, 0x03D6, "\x87"},
    {0x03F1, 0x03F1, "\x97"},
    {0x03F5, 0x03F5, "\x93"},
    // Blanks, dashes, quotes, dots.
    {0x1680, 0x1680, " "},
    {0x2000, 0x200A, " "},
    {0x200B, 0x200F, ""},
    {0x2010, 0x2015, "-"},
    {0x2016, 0x2016, "||"},
    {0x2017, 0x2017, "_"},
    {0x2018, 0x201B, "'"},
    {0x201C, 0x201F, "\""},
    {0x2020, 0x2021, "+"},
    {0x2022, 0x2023, "\xB7"},
    {0x2024, 0x2024, "."},
    {0x2025, 0x2025, ".."},
    {0x2026, 0x2026, "..."},
    {0x2027, 0x2027, "\xB7"},
    {0x202A, 0x202E, ""},
    {0x202F, 0x202F, " "},
    {0x2030, 0x2030, "o/oo"},
    {0x2032, 0x2032, "'"},
    {0x2033, 0x2033, "\""},
    {0x2034, 0x2034, "'''"},
    {0x2035, 0x2035, "'"},
    {0x2036, 0x2036, "\""},
    {0x2039, 0x2039, "<"},
    {0x203A, 0x203A, ">"},
    {0x203C, 0x203C, "!!"},
    {0x203E, 0x203E, "\xAF"},
    {0x2043, 0x2043, "-"},
    {0x2044, 0x2044, "/"},
    {0x204E, 0x204E, "*"},
    {0x205F, 0x205F, " "},
    {0x2060, 0x2064, ""},
    {0x2066, 0x2069, ""},
    // Raised and lowered digits.
    {0x2070, 0x2070, "^0"},
    {0x2071, 0x2071, "^i"},
    {0x2074, 0x2074, "^4"},
    {0x2075, 0x2075, "^5"},
    {0x2076, 0x2076, "^6"},
    {0x2077, 0x2077, "^7"},
    {0x2078, 0x2078, "^8"},
    {0x2079, 0x2079, "^9"},
    {0x207A, 0x207A, "^+"},
    {0x207B, 0x207B, "^-"},
    {0x207F, 0x207F, "^n"},
    {0x2080, 0x2080, "0"},
    {0x2081, 0x2081, "1"},
    {0x2082, 0x2082, "2"},
    {0x2083, 0x2083, "3"},
    {0x2084, 0x2084, "4"},
    {0x2085, 0x2085, "5"},
    {0x2086, 0x2086, "6"},
    {0x2087, 0x2087, "7"},
    {0x2088, 0x2088, "8"},
    {0x2089, 0x2089, "9"},
    // Currencies, abbreviations, fractions.
    {0x20A4, 0x20A4, "\xA3"},
    {0x20AC, 0x20AC, "EUR"},
    {0x2103, 0x2103,
     "\xB0"
     "C"},
    {0x2109, 0x2109,
     "\xB0"
     "F"},
    {0x2113, 0x2113, "l"},
    {0x2116, 0x2116, "No"},
    {0x2122, 0x2122, "TM"},
    {0x2126, 0x2126, "\x9D"},
    {0x212A, 0x212A, "K"},
    {0x212B, 0x212B, "\xC5"},
    {0x2153, 0x2153, "1/3"},
    {0x2154, 0x2154, "2/3"},
    {0x2155, 0x2155, "1/5"},
    {0x2156, 0x2156, "2/5"},
    {0x2157, 0x2157, "3/5"},
    {0x2158, 0x2158, "4/5"},
    {0x2159, 0x2159, "1/6"},
    {0x215A, 0x215A, "5/6"},
    {0x215B, 0x215B, "1/8"},
    {0x215C, 0x215C, "3/8"},
    {0x215D, 0x215D, "5/8"},
    {0x215E, 0x215E, "7/8"},
    // Arrows and mathematics.
    {0x2194, 0x2194, "<->"},
    {0x21D2, 0x21D2, "=>"},
    {0x21D4, 0x21D4, "<=>"},
    {0x2205, 0x2205, "\xD8"},
    {0x2206, 0x2206, "\x9B"},
    {0x220F, 0x220F, "\x9C"},
    {0x2211, 0x2211, "\x85"},
    {0x2212, 0x2212, "-"},
    {0x2215, 0x2215, "/"},
    {0x2216, 0x2216, "\\"},
    {0x2217, 0x2217, "*"},
    {0x2218, 0x2218, "\xB0"},
    {0x2219, 0x2219, "\xB7"},
    {0x2221, 0x2222, "\x80"},
    {0x2223, 0x2223, "|"},
    {0x2225, 0x2225, "||"},
    {0x2236, 0x2236, ":"},
    {0x223C, 0x223C, "~"},
    {0x2245, 0x2245, "~"},
    {0x2248, 0x2248, "~"},
    {0x2261, 0x2261, "=="},
    {0x2266, 0x2266, "\x89"},
    {0x2267, 0x2267, "\x8A"},
    {0x226A, 0x226A, "<<"},
    {0x226B, 0x226B, ">>"},
    {0x22C5, 0x22C5, "\xB7"},
    {0x22EF, 0x22EF, "..."},
    {0x2300, 0x2300, "\xD8"},
    {0x2329, 0x2329, "<"},
    {0x232A, 0x232A, ">"},
    // Lines of tables.
    {0x2500, 0x2501, "-"},
    {0x2502, 0x2503, "|"},
    {0x2504, 0x2505, "-"},
    {0x2506, 0x2507, "|"},
    {0x2508, 0x2509, "-"},
    {0x250A, 0x250B, "|"},
    {0x250C, 0x254B, "+"},
    {0x2550, 0x2550, "="},
    {0x2551, 0x2551, "|"},
    {0x2552, 0x2570, "+"},
    // Shapes.
    {0x2591, 0x2591, "\x7F"},
    {0x2593, 0x2593, "\x7F"},
    {0x25AA, 0x25AA, "\xB7"},
    {0x25B8, 0x25B8, "\x86"},
    {0x25BA, 0x25BA, "\x86"},
    {0x25CF, 0x25CF, "\xB7"},
    {0x25E6, 0x25E6, "\xB7"},
    {0x2715, 0x2716, "\xD7"},
    // Quotes, arrows, signs of the dingbats and later blocks.
    {0x275B, 0x275C, "'"},
    {0x275D, 0x275E, "\""},
    {0x2794, 0x2794, "\x8D"},
    {0x279C, 0x279C, "\x8D"},
    {0x27A1, 0x27A1, "\x8D"},
    {0x27E8, 0x27E8, "<"},
    {0x27E9, 0x27E9, ">"},
    {0x27F5, 0x27F5, "\x8E"},
    {0x27F6, 0x27F6, "\x8D"},
    {0x27F9, 0x27F9, "=>"},
    {0x2A2F, 0x2A2F, "\xD7"},
    {0x2A7D, 0x2A7D, "\x89"},
    {0x2A7E, 0x2A7E, "\x8A"},
    {0x2B05, 0x2B05, "\x8E"},
    {0x2B06, 0x2B06, "\x90"},
    {0x2B07, 0x2B07, "\x8F"},
    {0x3000, 0x3000, " "},
    {0x3008, 0x3008, "<"},
    {0x3009, 0x3009, ">"},
    {0x301D, 0x301F, "\""},
    // Ligatures and the small and wide forms.
    {0xFB00, 0xFB00, "ff"},
    {0xFB01, 0xFB01, "fi"},
    {0xFB02, 0xFB02, "fl"},
    {0xFB03, 0xFB03, "ffi"},
    {0xFB04, 0xFB04, "ffl"},
    {0xFB05, 0xFB06, "st"},
    {0xFE00, 0xFE0F, ""},
    {0xFE58, 0xFE58, "-"},
    {0xFE63, 0xFE63, "-"},
    {0xFEFF, 0xFEFF, ""},
};

/// The block Latin Extended-A, without its accents.
constexpr char32_t kLatinExtended = 0x0100;
constexpr std::array<std::string_view, 128> kLatinLetters{
    "A", "a", "A", "a", "A", "a", "C",  "c",  "C", "c", "C", "c", "C",  "c",  "D", "d", "D",  "d", "E",
    "e", "E", "e", "E", "e", "E", "e",  "E",  "e", "G", "g", "G", "g",  "G",  "g", "G", "g",  "H", "h",
    "H", "h", "I", "i", "I", "i", "I",  "i",  "I", "i", "I", "i", "IJ", "ij", "J", "j", "K",  "k", "k",
    "L", "l", "L", "l", "L", "l", "L",  "l",  "L", "l", "N", "n", "N",  "n",  "N", "n", "'n", "N", "n",
    "O", "o", "O", "o", "O", "o", "OE", "oe", "R", "r", "R", "r", "R",  "r",  "S", "s", "S",  "s", "S",
    "s", "S", "s", "T", "t", "T", "t",  "T",  "t", "U", "u", "U", "u",  "U",  "u", "U", "u",  "U", "u",
    "U", "u", "W", "w", "Y", "y", "Y",  "Z",  "z", "Z", "z", "Z", "z",  "s"};

/// ASCII in the width of an ideograph.
constexpr char32_t kFirstWide = 0xFF01;
constexpr char32_t kLastWide = 0xFF5E;
constexpr std::string_view kWideSigns = "!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
                                        "abcdefghijklmnopqrstuvwxyz{|}~";
static_assert(kWideSigns.size() == kLastWide - kFirstWide + 1);

} // namespace

std::optional<std::string_view> nearestSigns(char32_t character) {
    if (character >= kLatinExtended && character < kLatinExtended + kLatinLetters.size())
        return kLatinLetters[character - kLatinExtended];
    if (character >= kFirstWide && character <= kLastWide)
        return kWideSigns.substr(character - kFirstWide, 1);
    const auto *found =
        std::lower_bound(std::begin(kRanges), std::end(kRanges), character,
                         [](const Range &range, char32_t wanted) { return range.last < wanted; });
    if (found == std::end(kRanges) || character < found->first)
        return std::nullopt;
    return found->signs;
}

} // namespace zolt
