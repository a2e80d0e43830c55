#pragma once

#include <string>
#include <string_view>

namespace zolt {

/// What the calculator says to a file name that is to name a variable there.
struct NameVerdict {
    enum Kind {
        Allowed,
        /// The name can't be used; `message` says why.
        Refused,
        /// `message` asks whether to use the name all the same.
        Reserved
    };
    enum Check { None, InvalidCharacter, FirstDigit, CommandName, ReservedVariable };

    Kind kind = Allowed;
    /// The check that decided.
    Check check = None;
    /// In the encoding of the name that was checked.
    std::string message;
};

/// Checks a file's name without its folder, as bytes of the calculator's character
/// set. Small letters count as their capitals, except where a name is told apart by
/// its case.
NameVerdict checkHpFileName(std::string_view title);

/// The same for a name in UTF-8, as windows and command lines give it; the message
/// is UTF-8 too and shows the name as typed. Its characters stand for their bytes in
/// the calculator's set, or else in code page 1252; one that has none is an invalid
/// character.
NameVerdict checkHpFileTitle(std::string_view utf8Title);

} // namespace zolt
