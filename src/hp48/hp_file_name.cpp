#include "hp48/hp_file_name.h"

#include "core/charset.h"
#include "core/letter_case.h"
#include "core/utf8.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace zolt {

namespace {

using namespace std::string_view_literals;

/// Characters that no variable's name may hold, since they end a name or mean
/// something of their own: among the calculator's signs root (131), integral (132),
/// partial (136), the comparisons (137 to 139) and the program's brackets (171, 187).
constexpr std::string_view kInvalidCharacters = " _.+,-@*"
                                                "/[^]\x83\"\x89#"
                                                "='<{>}:!"
                                                "(\x8A)\x8B\xAB\x88\xBB\x84"sv;

constexpr std::array<std::string_view, 27> kCommands{
    "RAD", "SWAP", "POLAR", "ASIN",    "ACOS", "ATAN",   "SIN",   "COS", "TAN",
    "LOG", "VAR",  "LN",    "MENU",    "HOME", "RCL",    "CLEAR", "STO", "TIME",
    "NUM", "DROP", "EVAL",  "PICTURE", "PICT", "EQ LIB", "CONT",  "OFF", "TEXT"};

constexpr std::string_view kPi = "\x87";
/// Constants of the calculator, told apart by case: the imaginary unit and pi.
constexpr std::array<std::string_view, 2> kConstants{"i", kPi};

/// 133 is the calculator's capital sigma.
constexpr std::array<std::string_view, 9> kReservedNames{"EQ",
                                                         "CST",
                                                         "\x85"
                                                         "DAT",
                                                         "ALRMDAT",
                                                         "\x85"
                                                         "PAR",
                                                         "PPAR",
                                                         "VPAR",
                                                         "PRTPAR",
                                                         "IOPAR"};

/// Names of the derivatives that the user defines.
constexpr std::string_view kReservedBeginning = "DER";
/// Statistics variables: one of these letters and one digit.
constexpr std::string_view kReservedBeforeDigit = "SN";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

template <typename Names> bool isAmong(const Names &names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isReserved(std::string_view capitalTitle) {
    return isAmong(kReservedNames, capitalTitle) || capitalTitle.starts_with(kReservedBeginning) ||
           (capitalTitle.size() == 2 &&
            kReservedBeforeDigit.find(capitalTitle[0]) != std::string_view::npos && isDigit(capitalTitle[1]));
}

std::string about(std::string_view beginning, std::string_view what, std::string_view end) {
    std::string message(beginning);
    return message.append(" (").append(what).append(") ").append(end);
}

constexpr std::string_view kEnterAgain = "\r\nPlease re-enter the filename";

/// The calculator's byte for a character: its own set first, then code page 1252,
/// whose letters from 160 up it shares.
std::optional<char> nameByte(char32_t character) {
    const auto own = byteOfCharacter(character);
    const auto byte = own ? own : byteOfWindowsCharacter(character);
    return byte ? std::optional(static_cast<char>(*byte)) : std::nullopt;
}

/// A name as the calculator's bytes, and as it was typed for the messages.
struct Name {
    std::string bytes;
    std::string_view typed;
    /// Where in `typed` the text of each byte ends.
    std::vector<std::size_t> ends;

    std::string_view typedByte(std::size_t i) const {
        const std::size_t begin = i > 0 ? ends[i - 1] : 0;
        return typed.substr(begin, ends[i] - begin);
    }
};

Name nameOfBytes(std::string_view bytes) {
    Name name{std::string(bytes), bytes, {}};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        name.ends.push_back(i + 1);
    return name;
}

Name nameOfUtf8(std::string_view typed) {
    // What the calculator doesn't have is as invalid in a name as this.
    constexpr char kStandIn = kInvalidCharacters.front();
    Name name{{}, typed, {}};
    for (std::string_view rest = typed; !rest.empty();) {
        const std::optional<char32_t> character = takeCharacter(rest);
        name.bytes += (character ? nameByte(*character) : std::nullopt).value_or(kStandIn);
        name.ends.push_back(typed.size() - rest.size());
    }
    return name;
}

NameVerdict check(const Name &name) {
    if (const std::size_t bad = name.bytes.find_first_of(kInvalidCharacters); bad != std::string::npos)
        return {NameVerdict::Refused, NameVerdict::InvalidCharacter,
                about("The filename contains the invalid character", name.typedByte(bad), kEnterAgain)};
    if (!name.bytes.empty() && isDigit(name.bytes.front()))
        return {NameVerdict::Refused, NameVerdict::FirstDigit,
                about("The filename cannot begin with a digit", name.typedByte(0), kEnterAgain)};
    const std::string capitalBytes = capitals(name.bytes);
    // What is a command is typed in ASCII, but for pi, which has no capital here.
    if (isAmong(kCommands, capitalBytes) || isAmong(kConstants, name.bytes))
        return {NameVerdict::Refused, NameVerdict::CommandName,
                about("Command names are not allowed", name.bytes == kPi ? name.typed : capitalBytes,
                      std::string(kEnterAgain) + ".")};
    if (isReserved(capitalBytes))
        return {NameVerdict::Reserved, NameVerdict::ReservedVariable,
                about("The filename", name.typed, "is a reserved variable\r\nContinue ?")};
    return {};
}

} // namespace

NameVerdict checkHpFileName(std::string_view title) {
    return check(nameOfBytes(title));
}

NameVerdict checkHpFileTitle(std::string_view utf8Title) {
    return check(nameOfUtf8(utf8Title));
}

} // namespace zolt
