#pragma once

#include "core/codes.h"
#include "core/progress.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

struct WrapOptions {
    /// The longest line, 1 to 33 columns. A character of double size takes two of them.
    int columns = kColumns;
    /// Whether lines that a wrap broke are joined first.
    bool reflow = false;
};

/// Puts line ends in front of words, so that the calculator need not cut them: the text
/// with them, or no value when `progress` asked to stop. Nothing else is added and
/// nothing is taken away, styles and pictures stay what they are, and a text that is
/// wrapped stays as it is when wrapped again at its width.
///
/// A line end goes between a blank and a word, behind codes that close a run there and
/// in front of those that open one; a run may go on over it, as it does for the
/// preview. The blank stays at the end of its line and takes its column. Such a line
/// end, behind a blank and in front of a word, is what `reflow` takes for one of a
/// wrap, as mail of the form "format=flowed" does (RFC 3676): so a wrapped text wrapped
/// again with `reflow` at any width is what the first text gives with it. All other
/// line ends stay.
///
/// A picture cell takes a column here, as on the calculator's screen. Lines without a
/// character but blanks and cells, which may be rows of a picture, and lines that make
/// a menu entry are neither broken nor joined. No line begins with a word that would
/// make it a menu entry, nor with one of cells alone. Behind a line that ends in a cell
/// the first seven bytes stay together, since a picture is looked for behind them
/// (hp48/picture_chain.h). A word that has no room on a
/// line of its own is left to the fold.
std::optional<std::string> wrapAtWords(std::string_view document, const WrapOptions &options,
                                       const Progress &progress = {});

/// New text for `length` bytes of a document from `begin`, from 0.
struct WrappedLines {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::string text;
};

/// Wraps only the lines that a selection touches, from its first byte, from 0, to its
/// last, or the line of the caret if it is empty. Line ends between these lines can be
/// joined, those around them stay.
std::optional<WrappedLines> wrapLinesAtWords(std::string_view document, std::size_t begin, std::size_t length,
                                             const WrapOptions &options, const Progress &progress = {});

} // namespace zolt
