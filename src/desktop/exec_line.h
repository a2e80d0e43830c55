#pragma once

#include <string>
#include <string_view>

namespace zolt::desktop {

/// The value of a desktop entry's Exec that opens one file in a program: its path quoted
/// as the Desktop Entry Specification says, and the field code for a file name.
std::string execLine(std::string_view program);

/// The program that a value of Exec starts, as it names it; empty if there is none.
std::string programOf(std::string_view execValue);

} // namespace zolt::desktop
