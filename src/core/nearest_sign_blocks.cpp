#include "core/nearest_sign_blocks.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

namespace zolt {

namespace {

/// Characters with one sign each, "?" where there is none.
struct SignBlock {
    char32_t first;
    std::string_view signs; // bytes of the calculator's set
};

/// Letters without those of their accents that the calculator lacks. Names of the
/// blocks: https://www.unicode.org/charts/
constexpr SignBlock kSignBlocks[] = {
    // Latin Extended-B
    {0x0180, "bB?????Cc\xD0"
             "D??????F?G???IKkl??NnOOo??Pp?????tTtTUu?VYyZz?????????"
             "?????????????AaIiOoUu\xDC\xFC\xDC\xFC\xDC\xFC\xDC\xFC\x93\xC4\xE4"
             "Aa\xC6\xE6GgGgKkOoOo??j???Gg??Nn\xC5\xE5\xC6\xE6\xD8\xF8"
             "AaAaEeEeIiIiOoOoRrRrUuUuSsTt??HhNd??ZzAaEe\xD6\xF6\xD5\xF5OoOoYylntj??ACcLT?"
             "???BU?EeJj??RrYy"},
    // Greek with accents
    {0x0386, "A?EHI?O?Y\x9Di???\x9B???????????\x9C??\x85?????"
             "\x9DIY\x8C\x93\x94iu\x8C\xDF\x91\x92\x93z\x94\x95??\x96\xB5???\x87\x97?\x98\x99?"
             "???\x9Aiuou\x9A"},
    // Latin Extended Additional
    {0x1E00, "AaBbBbBb\xC7\xE7"
             "DdDdDdDdDd????EeEeEeFfGgHhHhHhHhHhIi\xCF\xEFKkKkKkLlLlLlLlMm"
             "MmMmNnNnNnNn\xD5\xF5\xD5\xF5????PpPpRrRrRrRrSsSs????SsTtTtTtTtUuUuUu????VvVv"
             "WwWwWwWwWwXxXxYyZzZzZzhtwya?ss\xDF\x92"
             "AaAa\xC2\xE2\xC2\xE2\xC2\xE2\xC2\xE2\xC2\xE2????????AaEeEeEe\xCA\xEA"
             "\xCA\xEA\xCA\xEA\xCA\xEA\xCA\xEAIiIiOoOo\xD4\xF4\xD4\xF4\xD4\xF4\xD4\xF4\xD4\xF4\xD3\xF3\xD2"
             "\xF2Oo\xD5\xF5OoUuUu\xDA\xFA\xD9\xF9UuUuUuYyYyYyYy????Yy"},
    // Greek Extended
    {0x1F00,
     "\x8C\x8C\x8C\x8C\x8C\x8C\x8C\x8C"
     "AAAAAAAA\x93\x93\x93\x93\x93\x93??EEEEEE??\x94\x94\x94\x94\x94\x94\x94\x94HHHHHHHHiiiiiiiiIIIIIIII"
     "oooooo??OOOOOO??uuuuuuuu?Y?Y?Y?"
     "Y\x9A\x9A\x9A\x9A\x9A\x9A\x9A\x9A\x9D\x9D\x9D\x9D\x9D\x9D\x9D\x9D\x8C\x8C\x93\x93\x94\x94iioouu\x9A\x9A"
     "??"
     "\x8C\x8C\x8C\x8C\x8C\x8C\x8C\x8C"
     "AAAAAAAA\x94\x94\x94\x94\x94\x94\x94\x94HHHHHHHH\x9A\x9A\x9A\x9A\x9A\x9A\x9A\x9A\x9D\x9D\x9D\x9D\x9D"
     "\x9D\x9D\x9D\x8C\x8C\x8C\x8C\x8C?\x8C\x8C"
     "AAAAA i "
     " \xA8\x94\x94\x94?\x94\x94"
     "EEHHH   iiii??iiIIII?   uuuu\x97\x97uuYYYYP\xA8\xA8`??\x9A\x9A\x9A?\x9A\x9AOO\x9D\x9D\x9D\xB4 ?"},
    // raised and lowered letters
    {0x2090, "aeox?hklmnpst"},
    // Phonetic: raised
    {0x1D62, "iruv\xDF\x91\x97\xF8x"},
    // Letterlike Symbols
    {0x2102, "C???????gHHHhhIIL??N??PPQRRRR?????Z???Z???BC?eEF?Mo????i??\x87\x91?\x9C\x85?"
             "???Ddeij??????"},
    // Arrows
    {0x219A, "\x8E\x8D\x8E\x8D\x8E\x90\x8D\x8F\x8E\x8D\x8E\x90\x8D\x8F?\x8E\x8D\x8E\x8D????????\x8E??????"
             "\x8E\x8E\x90\x90\x8D\x8D\x8F\x8F???\x8E\x90\x8D\x8F??????\x90?\x8F??????"
             "??\x8E\x8D??\x8E\x90\x8D\x8F\x8E\x8D\x8E\x90\x8D\x8F???????????????????\x8E\x8D?"},
    // Small Form Variants
    {0xFE50, ",,.?;:?!?(){}[]#&*+?<>=?\\$%@"},
    // ASCII in the width of an ideograph.
    {0xFF01, "!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
             "abcdefghijklmnopqrstuvwxyz{|}~"},
};

constexpr std::string_view kLatinExtendedA[] = {
    "A", "a", "A", "a", "A", "a", "C",  "c",  "C", "c", "C", "c", "C",  "c",  "D", "d", "D",  "d", "E",
    "e", "E", "e", "E", "e", "E", "e",  "E",  "e", "G", "g", "G", "g",  "G",  "g", "G", "g",  "H", "h",
    "H", "h", "I", "i", "I", "i", "I",  "i",  "I", "i", "I", "i", "IJ", "ij", "J", "j", "K",  "k", "k",
    "L", "l", "L", "l", "L", "l", "L",  "l",  "L", "l", "N", "n", "N",  "n",  "N", "n", "'n", "N", "n",
    "O", "o", "O", "o", "O", "o", "OE", "oe", "R", "r", "R", "r", "R",  "r",  "S", "s", "S",  "s", "S",
    "s", "S", "s", "T", "t", "T", "t",  "T",  "t", "U", "u", "U", "u",  "U",  "u", "U", "u",  "U", "u",
    "U", "u", "W", "w", "Y", "y", "Y",  "Z",  "z", "Z", "z", "Z", "z",  "s"};
constexpr std::string_view kRoman[] = {"I",  "II", "III", "IV",  "V", "VI", "VII", "VIII",
                                       "IX", "X",  "XI",  "XII", "L", "C",  "D",   "M"};
constexpr std::string_view kSmallRoman[] = {"i",  "ii", "iii", "iv",  "v", "vi", "vii", "viii",
                                            "ix", "x",  "xi",  "xii", "l", "c",  "d",   "m"};
constexpr std::string_view kBracketed[] = {"(1)", "(2)", "(3)", "(4)", "(5)", "(6)", "(7)", "(8)", "(9)"};
constexpr std::string_view kDotted[] = {"1.", "2.", "3.", "4.", "5.", "6.", "7.", "8.", "9."};

/// Characters with several signs each.
struct WordBlock {
    char32_t first;
    std::span<const std::string_view> words;
};

constexpr WordBlock kWordBlocks[] = {
    {0x0100, kLatinExtendedA}, {0x2160, kRoman},  {0x2170, kSmallRoman}, {0x2460, kBracketed},
    {0x2474, kBracketed},      {0x2488, kDotted}, {0x2776, kBracketed},
};

/// The letters of formulas: one alphabet behind the other in all the shapes that there
/// are, bold, italic, script and so on. "?" where there is no sign.
struct FormulaBlock {
    char32_t first;
    char32_t last;
    std::string_view alphabet;
};

constexpr FormulaBlock kFormulaBlocks[] = {
    {0x1D400, 0x1D6A3, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"},
    {0x1D6A4, 0x1D6A5, "ij"},
    {0x1D6A8, 0x1D7C9,
     "AB?\x9B"
     "EZH?IK?MN?O\x9CP?\x85TY\xD8X?\x9D\x82\x8C\xDF\x91\x92\x93?\x94\x95ik\x96\xB5v?"
     "o\x87\x97\x98\x98\x99u\xF8x?\x9A\x88\x93\x95k\xF8\x97\x87"},
    {0x1D7CE, 0x1D7FF, "0123456789"},
};

std::optional<std::string_view> known(std::string_view sign) {
    return sign == "?" ? std::nullopt : std::optional(sign);
}

} // namespace

std::optional<std::string_view> signsInBlock(char32_t character) {
    const auto isIn = [character](char32_t first, std::size_t size) {
        return character >= first && character - first < size;
    };
    for (const SignBlock &block : kSignBlocks) {
        if (isIn(block.first, block.signs.size()))
            return known(block.signs.substr(character - block.first, 1));
    }
    for (const WordBlock &block : kWordBlocks) {
        if (isIn(block.first, block.words.size()))
            return block.words[character - block.first];
    }
    for (const FormulaBlock &block : kFormulaBlocks) {
        if (isIn(block.first, block.last - block.first + 1))
            return known(block.alphabet.substr((character - block.first) % block.alphabet.size(), 1));
    }
    return std::nullopt;
}

} // namespace zolt
