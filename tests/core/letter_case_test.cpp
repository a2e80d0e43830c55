#include "core/letter_case.h"

#include "support/texts.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

using test::everyByte;

std::size_t bytesChanged(const std::string &text) {
    const std::string before = everyByte();
    std::size_t changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        changed += before[i] != text[i];
    return changed;
}

TEST(LetterCase, ChangesTheLettersOfTheCodePageAlone) {
    // 26 letters of ASCII and 30 with accents, in both cases.
    EXPECT_EQ(bytesChanged(changeCase(everyByte(), CaseCommand::Capitals)), 56u);
    EXPECT_EQ(bytesChanged(changeCase(everyByte(), CaseCommand::SmallLetters)), 56u);
    EXPECT_EQ(bytesChanged(changeCase(everyByte(), CaseCommand::Invert)), 112u);
    EXPECT_EQ(changeCase("az\xE0\xF6\xF8\xFE AZ\xF7\xFF\xD7\x9A", CaseCommand::Capitals),
              "AZ\xC0\xD6\xD8\xDE AZ\xF7\xFF\xD7\x9A");
    EXPECT_EQ(changeCase("\x0B"
                         "BAZ\xC0\xD6\xD8\xDE\xD7\xDF",
                         CaseCommand::SmallLetters),
              "\x0B"
              "baz\xE0\xF6\xF8\xFE\xD7\xDF");
    const std::string twice = changeCase(changeCase(everyByte(), CaseCommand::Invert), CaseCommand::Invert);
    EXPECT_EQ(twice, everyByte());
}

TEST(LetterCase, RemovesAccentsByTheirLetters) {
    const std::string text = changeCase(everyByte(), CaseCommand::RemoveAccents);
    EXPECT_EQ(text.substr(0, 192), everyByte().substr(0, 192));
    EXPECT_EQ(text.substr(192), "AAAAAA\xC6"
                                "CEEEEIIII\xD0NOOOOO\xD7\xD8UUUUY\xDE\xDF"
                                "aaaaaa\xE6"
                                "ceeeeiiii\xF0nooooo\xF7\xF8uuuuy\xFEy");
}

} // namespace
} // namespace zolt
