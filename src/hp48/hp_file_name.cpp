#include "hp48/hp_file_name.h"

#include "core/charset.h"
#include "core/document.h"
#include "core/letter_case.h"
#include "core/utf8.h"

#include <algorithm>
#include <array>
#include <optional>

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

/// Constants of the calculator, told apart by case: the imaginary unit and pi.
constexpr std::array<std::string_view, 2> kConstants{"i", "\x87"};

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

NameVerdict invalidCharacter(std::string_view character) {
    return {NameVerdict::Refused, NameVerdict::InvalidCharacter,
            about("The filename contains the invalid character", character, kEnterAgain)};
}

std::optional<char> windowsByte(char32_t character) {
    for (int byte = 0; byte < 256; ++byte)
        if (windowsCharacter(static_cast<unsigned char>(byte)) == character)
            return static_cast<char>(byte);
    return std::nullopt;
}

} // namespace

NameVerdict checkHpFileName(std::string_view title) {
    if (const std::size_t bad = title.find_first_of(kInvalidCharacters); bad != std::string_view::npos)
        return invalidCharacter(title.substr(bad, 1));
    if (!title.empty() && isDigit(title.front()))
        return {NameVerdict::Refused, NameVerdict::FirstDigit,
                about("The filename cannot begin with a digit", title.substr(0, 1), kEnterAgain)};
    const std::string capitalTitle = capitals(title);
    if (isAmong(kCommands, capitalTitle) || isAmong(kConstants, title))
        return {NameVerdict::Refused, NameVerdict::CommandName,
                about("Command names are not allowed", capitalTitle, std::string(kEnterAgain) + ".")};
    if (isReserved(capitalTitle))
        return {NameVerdict::Reserved, NameVerdict::ReservedVariable,
                about("The filename", title, "is a reserved variable\r\nContinue ?")};
    return {};
}

NameVerdict checkHpFileTitle(std::string_view utf8Title) {
    std::string title;
    for (std::string_view rest = utf8Title; !rest.empty();) {
        const std::string_view from = rest;
        const std::optional<char32_t> character = takeCharacter(rest);
        const std::optional<char> byte = character ? windowsByte(*character) : std::nullopt;
        if (!byte)
            return invalidCharacter(from.substr(0, from.size() - rest.size()));
        title += *byte;
    }
    NameVerdict verdict = checkHpFileName(title);
    verdict.message = utf8FromWindows(verdict.message);
    return verdict;
}

std::string hpFile(std::string_view text) {
    return fileFromDocument(text);
}

} // namespace zolt
