#pragma once

#include "core/colour.h"

#include <cstdint>
#include <string>
#include <variant>
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

/// An embedded picture. It takes one character position of the text.
struct RichPicture {
    /// Wmf and Emf are Windows' metafiles, MacPict the Macintosh's. Their drawings are
    /// kept, but nobody here draws them: an empty frame shows where they stand.
    enum class Kind { Png, Jpeg, Bmp, Wmf, Emf, MacPict };
    Kind kind = Kind::Png;
    /// The encoded picture: a whole file of that kind, for MacPict without its header of
    /// 512 bytes.
    std::string bytes;
    /// The size in which it is shown, in twips.
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const RichPicture &) const = default;
};

constexpr bool isMetafile(RichPicture::Kind kind) {
    using Kind = RichPicture::Kind;
    return kind == Kind::Wmf || kind == Kind::Emf || kind == Kind::MacPict;
}

struct Run {
    CharFormat format;
    /// Characters as bytes, with no line end in them, or one picture.
    std::variant<std::string, RichPicture> content;

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
