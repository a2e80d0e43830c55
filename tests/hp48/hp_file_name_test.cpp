#include "hp48/hp_file_name.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

const std::string kAgain = "\r\nPlease re-enter the filename";

TEST(HpFileName, RefusesTheFirstInvalidCharacter) {
    const std::string invalid = " _.+,-@*/[^]\x83\"\x89#='<{>}:!(\x8A)\x8B\xAB\x88\xBB\x84";
    ASSERT_EQ(invalid.size(), 32u);
    for (int code = 0; code < 256; ++code) {
        const std::string character(1, static_cast<char>(code));
        const NameVerdict verdict = checkHpFileName("A" + character + ".");
        ASSERT_EQ(verdict.kind, NameVerdict::Refused);
        const std::string first = invalid.find(character) != std::string::npos ? character : ".";
        EXPECT_EQ(verdict.message, "The filename contains the invalid character (" + first + ") " + kAgain);
    }
}

struct NameCase {
    std::string_view title;
    NameVerdict::Kind kind;
    std::string message;
};

NameCase command(std::string_view title, const std::string &shown) {
    return {title, NameVerdict::Refused, "Command names are not allowed (" + shown + ") " + kAgain + "."};
}

NameCase reserved(std::string_view title) {
    return {title, NameVerdict::Reserved,
            "The filename (" + std::string(title) + ") is a reserved variable\r\nContinue ?"};
}

NameCase allowed(std::string_view title) {
    return {title, NameVerdict::Allowed, ""};
}

class ChecksName : public testing::TestWithParam<NameCase> {};

TEST_P(ChecksName, AsTheCalculatorWould) {
    const NameVerdict verdict = checkHpFileName(GetParam().title);
    EXPECT_EQ(verdict.kind, GetParam().kind);
    EXPECT_EQ(verdict.message, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Names, ChecksName,
                         testing::Values(NameCase{"7UP", NameVerdict::Refused,
                                                  "The filename cannot begin with a digit (7) " + kAgain},
                                         allowed("U7"), allowed("Readme"), command("swap", "SWAP"),
                                         command("Picture", "PICTURE"), allowed("SWAP2"), command("i", "I"),
                                         allowed("I"), command("\x87", "\x87"), allowed("\x87r"),
                                         reserved("eq"),
                                         reserved("\x85"
                                                  "dat"),
                                         reserved("\x85PAR"), reserved("IOPar"), allowed("PAR"),
                                         reserved("derx"), reserved("DER"), allowed("ORDER"), reserved("S1"),
                                         reserved("n7"), allowed("S10"), allowed("S"), allowed("T1")));

struct TitleCase {
    const char *typed;
    NameVerdict::Check check;
    std::string message;
};

TEST(HpFileTitle, StandsForBytesOfTheCalculatorAndIsShownAsTyped) {
    const auto invalid = [](const std::string &character) {
        return "The filename contains the invalid character (" + character + ") " + kAgain;
    };
    const TitleCase cases[] = {
        {"\u03B1\u03B2", NameVerdict::None, ""},
        {"\u00DF\u03BC\u00B5\u03A9", NameVerdict::None, ""},
        {"r\u00E9sum\u00E9", NameVerdict::None, ""},
        {"\u03A3dat", NameVerdict::ReservedVariable,
         "The filename (\u03A3dat) is a reserved variable\r\nContinue ?"},
        {"\u03C0", NameVerdict::CommandName, "Command names are not allowed (\u03C0) " + kAgain + "."},
        {"\u03B1\u2264", NameVerdict::InvalidCharacter, invalid("\u2264")},
        {"a\u00AB.", NameVerdict::InvalidCharacter, invalid("\u00AB")},
        // What isn't in the set is told where it stands.
        {"a\u4E2D.", NameVerdict::InvalidCharacter, invalid("\u4E2D")},
        {"a.\u4E2D", NameVerdict::InvalidCharacter, invalid(".")},
        {"7\u03B1", NameVerdict::FirstDigit, "The filename cannot begin with a digit (7) " + kAgain},
    };
    for (const TitleCase &one : cases) {
        const NameVerdict verdict = checkHpFileTitle(one.typed);
        EXPECT_EQ(verdict.check, one.check) << one.typed;
        EXPECT_EQ(verdict.message, one.message);
    }
}

TEST(HpFileTitle, RefusesWhatIsNoUtf8) {
    for (const std::string_view broken : {"A\xC3", "A\xC0\x80", "A\xED\xA0\x80", "A\xF8", "A\x80"})
        EXPECT_EQ(checkHpFileTitle(broken).kind, NameVerdict::Refused);
}

} // namespace
} // namespace zolt
