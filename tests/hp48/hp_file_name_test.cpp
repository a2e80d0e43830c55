#include "hp48/hp_file_name.h"

#include <gtest/gtest.h>
#include <map>

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

TEST(HpFileName, IsCheckedAsTheCalculatorWould) {
    const auto command = [](const std::string &shown) {
        return "Command names are not allowed (" + shown + ") " + kAgain + ".";
    };
    const auto reserved = [](const std::string &title) {
        return "The filename (" + title + ") is a reserved variable\r\nContinue ?";
    };
    const std::string sigma = "\x85";
    const std::map<std::string, std::string> messages{
        {"7UP", "The filename cannot begin with a digit (7) " + kAgain},
        {"swap", command("SWAP")},
        {"Picture", command("PICTURE")},
        {"i", command("I")},
        {"\x87", command("\x87")},
        {"eq", reserved("eq")},
        {sigma + "dat", reserved(sigma + "dat")},
        {sigma + "PAR", reserved(sigma + "PAR")},
        {"IOPar", reserved("IOPar")},
        {"derx", reserved("derx")},
        {"DER", reserved("DER")},
        {"S1", reserved("S1")},
        {"n7", reserved("n7")}};
    for (const auto &[title, message] : messages) {
        const NameVerdict verdict = checkHpFileName(title);
        EXPECT_EQ(verdict.kind, message.ends_with('?') ? NameVerdict::Reserved : NameVerdict::Refused);
        EXPECT_EQ(verdict.message, message);
    }
    for (const char *title : {"U7", "Readme", "SWAP2", "I", "\x87r", "PAR", "ORDER", "S10", "S", "T1"})
        EXPECT_EQ(checkHpFileName(title).kind, NameVerdict::Allowed) << title;
}

TEST(HpFileTitle, StandsForBytesOfTheCalculatorAndIsShownAsTyped) {
    const auto invalid = [](const std::string &character) {
        return "The filename contains the invalid character (" + character + ") " + kAgain;
    };
    const struct {
        const char *typed;
        NameVerdict::Check check;
        std::string message;
    } cases[] = {
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
    for (const auto &one : cases) {
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
