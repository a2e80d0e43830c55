#pragma once

#include <string>
#include <string_view>

namespace zolt {

enum class CaseCommand { Capitals, SmallLetters, Invert, RemoveAccents };

/// The text with every byte changed as the command says. Letters are those of code
/// page 1252: A to Z and the accented letters from 192 up. Style letters and the
/// digits of cells are letters like others.
std::string changeCase(std::string_view text, CaseCommand command);

/// The capital of a small letter, as CaseCommand::Capitals gives it; any other byte
/// as it is. Bytes 128 to 159 are signs of the calculator here and have no case.
char capital(char letter);
std::string capitals(std::string_view text);
void makeCapitals(std::string &text);

} // namespace zolt
