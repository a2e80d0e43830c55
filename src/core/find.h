#pragma once

#include "core/progress.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

struct FindOptions {
    /// The text to find. An empty one matches everywhere.
    std::string_view find;
    /// False compares both sides in capitals.
    bool distinguirMaiúsculas = false;
};

/// Where a scan ended. Positions count from 1.
struct ScanResult {
    enum Outcome { Matched, Stopped, NotFound };

    Outcome outcome = NotFound;
    /// The match's first character, the place where the scan was stopped, or the last
    /// place looked at: 0 if there was none.
    std::size_t position = 0;
};

/// A text that is read by stretches: gives `length` characters from `offset` on, from 0, or
/// those that are left.
using TextReader = std::function<std::string(std::size_t offset, std::size_t length)>;

/// Looks in a text of `size` characters for the next match behind the first
/// `posiçãoCursor` ones, and reads no further than it must. `progress` is told the
/// position reached, from 1, before each stretch of the text.
ScanResult scan(const TextReader &text, std::size_t size, const FindOptions &options,
                std::size_t posiçãoCursor, const Progress &progress = {});
ScanResult scan(std::string_view text, const FindOptions &options, std::size_t posiçãoCursor,
                const Progress &progress = {});

struct ReplaceAllResult {
    enum Outcome {
        /// One of the texts is empty: nothing happens at all.
        NothingToDo,
        /// The scan found no more: the finishing message is due.
        Finished,
        /// The last replacement ends where the text ends: no message.
        EndedAtTheEnd,
        /// No message; the replacements made so far stand.
        Stopped
    };

    Outcome outcome = NothingToDo;
    /// The whole text afterwards; empty if there is nothing to do.
    std::string text;
    std::size_t replacements = 0;
    /// Where the matches begin in the text searched, from 0.
    std::vector<std::size_t> offsets;
    /// Characters up to the end of the last replacement, in the new text.
    std::size_t posiçãoCursor = 0;
    /// Where the caret ends up, from 0, in the new text.
    std::size_t caret = 0;
};

/// Replaces every match from the text's beginning; each search goes on behind the
/// replacement. `progress` is told positions of the old text.
ReplaceAllResult replaceAll(std::string_view text, const FindOptions &options, std::string_view replacement,
                            const Progress &progress = {});

/// A text with a replacement in the place of each stretch of `length` characters that
/// begins at one of the offsets, from 0 and rising. One outside the text, or within the
/// stretch before, counts as the nearest that isn't.
std::string textWithReplaced(std::string_view text, const std::vector<std::size_t> &offsets,
                             std::size_t length, std::string_view replacement);

} // namespace zolt
