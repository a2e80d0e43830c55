#include "core/charset.h"

#include "core/nearest_signs.h"

#include <algorithm>
#include <array>

namespace zolt {

namespace {

/// Code page 1252, bytes 128 to 159.
constexpr std::array<char32_t, 32> kWindows{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                            0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

/// The calculator's set, bytes 127 to 159.
constexpr std::array<char32_t, 33> kCalculator{
    0x2592, 0x2220, 0x0078, 0x2207, 0x221A, 0x222B, 0x03A3, 0x25B6, 0x03C0, 0x2202, 0x2264,
    0x2265, 0x2260, 0x03B1, 0x2192, 0x2190, 0x2193, 0x2191, 0x03B3, 0x03B4, 0x03B5, 0x03B7,
    0x03B8, 0x03BB, 0x03C1, 0x03C3, 0x03C4, 0x03C9, 0x0394, 0x03A0, 0x03A9, 0x25A0, 0x221E};

/// Greek letters that Unicode knows twice.
constexpr char32_t kGreekBeta = 0x03B2;
constexpr char32_t kGreekMu = 0x03BC;
constexpr unsigned char kBeta = 223;
constexpr unsigned char kMu = 181;

} // namespace

char32_t windowsCharacter(unsigned char byte) {
    return byte >= 128 && byte < 160 ? kWindows[byte - 128u] : byte;
}

char32_t calculatorCharacter(unsigned char byte) {
    if (byte == 31)
        return 0x2026;
    return byte >= 127 && byte < 160 ? kCalculator[byte - 127u] : byte;
}

std::optional<unsigned char> byteOfWindowsCharacter(char32_t character) {
    if (character < 256 && windowsCharacter(static_cast<unsigned char>(character)) == character)
        return static_cast<unsigned char>(character);
    const auto found = std::find(kWindows.begin(), kWindows.end(), character);
    if (found == kWindows.end())
        return std::nullopt;
    return static_cast<unsigned char>(128 + (found - kWindows.begin()));
}

std::optional<unsigned char> byteOfCharacter(char32_t character) {
    if (character < 256)
        return static_cast<unsigned char>(character);
    if (character == kGreekBeta)
        return kBeta;
    if (character == kGreekMu)
        return kMu;
    const auto found = std::find(kCalculator.begin(), kCalculator.end(), character);
    if (found == kCalculator.end())
        return std::nullopt;
    return static_cast<unsigned char>(127 + (found - kCalculator.begin()));
}

std::string bytesOfCharacter(char32_t character) {
    if (const auto byte = byteOfCharacter(character))
        return std::string(1, static_cast<char>(*byte));
    return std::string(nearestSigns(character).value_or("?"));
}

} // namespace zolt
