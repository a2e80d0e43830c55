#pragma once

#include "core/colour.h"
#include "graphic/run_content.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zolt {

/// How a run of characters looks. Two runs look alike when all fields are equal.
struct CharFormat {
    /// Index into RichText::fonts.
    std::uint16_t font = 0;
    /// Font size in half points.
    std::uint16_t halfPoints = 20;
    Colour colour = kWindowText;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThru = false;

    bool operator==(const CharFormat &) const = default;
};

struct Run {
    Run() = default;
    Run(const CharFormat &runFormat, RunContent runContent)
        : content(std::move(runContent)), format(runFormat) {}

    // It comes first so that the format can stand in its padding.
    [[no_unique_address]] RunContent content;
    CharFormat format;

    bool operator==(const Run &) const = default;
};

struct Paragraph {
    std::vector<Run> runs;

    bool operator==(const Paragraph &) const = default;
};

/// A rich text: paragraphs of runs. A line end (CR LF, two positions) stands
/// between two paragraphs and belongs to neither. A text of no characters has one
/// empty paragraph.
///
/// Characters are bytes 0 to 255, as in a document: codes of the calculator in every
/// font. What a byte looks like is the font's matter (font_characters.h): its glyph in
/// the calculator's fonts, the calculator's character for it in any other.
struct RichText {
    std::vector<std::string> fonts{"ZOLT"};
    std::vector<Paragraph> paragraphs{Paragraph{}};

    bool operator==(const RichText &) const = default;

    /// The index of a font name in `fonts`, added at the end if it isn't there.
    std::uint16_t fontIndex(std::string_view name);
};

/// The characters of a rich text: CR LF between paragraphs, a blank for a picture.
std::string plainText(const RichText &text);
/// The same with nothing for a picture.
std::string textWithoutPictures(const RichText &text);

} // namespace zolt
