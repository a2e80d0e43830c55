#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zolt::desktop {

// Texts of lines "key=value" below lines "[group]", in which the Desktop Entry
// Specification and its kin keep what they have. Values are taken and given as they
// stand in the file.

/// Empty without such a key. The last counts of several.
std::string valueOf(std::string_view file, std::string_view group, std::string_view key);

/// The file with that value alone for the key; all other lines stay as they are. An empty
/// value takes the key's lines out.
std::string withValue(std::string_view file, std::string_view group, std::string_view key,
                      std::string_view value);

/// The pieces of a text between separators, without the empty ones.
std::vector<std::string> splitAt(std::string_view text, char separator);

/// A value that is a list, "a;b;".
std::vector<std::string> listOf(std::string_view value);
std::string listValue(const std::vector<std::string> &pieces);
/// The list without a piece, and with it at the front.
std::vector<std::string> without(std::vector<std::string> pieces, std::string_view piece);
std::vector<std::string> withFirst(std::vector<std::string> pieces, std::string_view piece);

/// ASCII capitals as small letters; all other bytes as they are.
std::string inSmallLetters(std::string text);

} // namespace zolt::desktop
