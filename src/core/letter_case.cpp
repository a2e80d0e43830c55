#include "core/letter_case.h"

#include <array>

namespace zolt {

namespace {

using ByteTable = std::array<unsigned char, 256>;

struct ByteRange {
    unsigned char first;
    unsigned char last;
};

/// The letters of code page 1252 that have the other case 32 codes off. 215, 247
/// and 255 lie between them and have none.
constexpr std::array<ByteRange, 3> kSmallLetters{{{97, 122}, {224, 246}, {248, 254}}};
constexpr std::array<ByteRange, 3> kCapitals{{{65, 90}, {192, 214}, {216, 222}}};
constexpr int kCaseDistance = 32;

struct Unaccented {
    ByteRange accented;
    char plain;
};

constexpr std::array<Unaccented, 17> kUnaccented{{
    {{192, 197}, 'A'},
    {{199, 199}, 'C'},
    {{200, 203}, 'E'},
    {{204, 207}, 'I'},
    {{209, 209}, 'N'},
    {{210, 214}, 'O'},
    {{217, 220}, 'U'},
    {{221, 221}, 'Y'},
    {{224, 229}, 'a'},
    {{231, 231}, 'c'},
    {{232, 235}, 'e'},
    {{236, 239}, 'i'},
    {{241, 241}, 'n'},
    {{242, 246}, 'o'},
    {{249, 252}, 'u'},
    {{253, 253}, 'y'},
    {{255, 255}, 'y'},
}};

constexpr ByteTable unchangedBytes() {
    ByteTable table{};
    for (std::size_t code = 0; code < table.size(); ++code)
        table[code] = static_cast<unsigned char>(code);
    return table;
}

constexpr void shift(ByteTable &table, const std::array<ByteRange, 3> &ranges, int by) {
    for (const ByteRange range : ranges)
        for (int code = range.first; code <= range.last; ++code)
            table[static_cast<std::size_t>(code)] = static_cast<unsigned char>(code + by);
}

constexpr ByteTable caseTable(CaseCommand command) {
    ByteTable table = unchangedBytes();
    if (command == CaseCommand::Capitals || command == CaseCommand::Invert)
        shift(table, kSmallLetters, -kCaseDistance);
    if (command == CaseCommand::SmallLetters || command == CaseCommand::Invert)
        shift(table, kCapitals, kCaseDistance);
    if (command == CaseCommand::RemoveAccents)
        for (const auto &[accented, plain] : kUnaccented)
            for (int code = accented.first; code <= accented.last; ++code)
                table[static_cast<std::size_t>(code)] = static_cast<unsigned char>(plain);
    return table;
}

/// In the order of CaseCommand.
constexpr std::array<ByteTable, 4> kCaseTables{
    caseTable(CaseCommand::Capitals), caseTable(CaseCommand::SmallLetters), caseTable(CaseCommand::Invert),
    caseTable(CaseCommand::RemoveAccents)};

} // namespace

std::string changeCase(std::string_view text, CaseCommand command) {
    const ByteTable &table = kCaseTables[static_cast<std::size_t>(command)];
    std::string changed(text);
    for (char &byte : changed)
        byte = static_cast<char>(table[static_cast<unsigned char>(byte)]);
    return changed;
}

char capital(char letter) {
    constexpr const ByteTable &table = kCaseTables[static_cast<std::size_t>(CaseCommand::Capitals)];
    return static_cast<char>(table[static_cast<unsigned char>(letter)]);
}

std::string capitals(std::string_view text) {
    return changeCase(text, CaseCommand::Capitals);
}

void makeCapitals(std::string &text) {
    for (char &letter : text)
        letter = capital(letter);
}

} // namespace zolt
