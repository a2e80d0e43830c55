#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"
#include "hp48/place_map.h"
#include "images/dot_surface.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zolt {

/// What the compiler leaves out of pictures. The numbers are those of TipoDeCompilação.
enum class SourceKind { Normal = 1, Partial = 2, Total = 3 };

/// The dots of a surface that a picture of a rich text is read on, 30 twips a dot: 33
/// cells by 11 lines, whatever the picture's size.
inline constexpr int kSourcePictureWidth = 132;
inline constexpr int kSourcePictureHeight = 66;

/// Draws a picture on a surface of that size, from its top left corner; an empty surface
/// if the picture can't be decoded.
using PictureReader = std::function<DotSurface(const RichPicture &)>;

/// How a compilation tells where it is; counts are of the text's characters. A function
/// that answers false ends it at once; an empty one is never called.
struct SourceProgress {
    /// Styles become codes.
    Progress styles = {};
    /// Pictures become cells, and all becomes one text.
    Progress text = {};
    /// A picture begins, counted from 1.
    std::function<bool(std::size_t number)> image = {};
    /// The lines of cells of a picture.
    Progress dots = {};
    /// The last steps begin: optimisation and quotes.
    std::function<bool()> finish = {};
};

/// The calculator's string of a rich text: style fonts as codes that the byte
/// kRichTextStyleMark begins, each picture on lines of its own as an image text of 33 by
/// 11 cells, double quotes around it and apostrophes for those inside. A run of a style
/// is closed in front of a line end, and opened anew behind it; at the text's end it
/// stays open. Nothing if the progress asked to stop.
std::optional<std::string> compileSource(const RichText &text, SourceKind kind, const PictureReader &read,
                                         const SourceProgress &progress = {});

/// A Normal compilation, and the steps from the text to it. Places in the text count a
/// line end as two characters and a picture as one.
struct PlacedSource {
    std::string source;
    std::vector<PlaceMap> places;
};
std::optional<PlacedSource> compilePlacedSource(const RichText &text, const PictureReader &read,
                                                const SourceProgress &progress = {});

/// A compiled text as the calculator takes it: kStyleMark for kRichTextStyleMark in
/// front of a style's letter.
std::string withStyleMarks(std::string source);
/// The same the other way round, for a text on its way into rich text.
std::string withRichTextStyleMarks(std::string text);

} // namespace zolt
