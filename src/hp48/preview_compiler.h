#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"
#include "hp48/menu_entries.h"
#include "hp48/place_map.h"
#include "hp48/screen.h"
#include "hp48/styled_text.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// Hp48 is the calculator's screen, Normal the reading copy, whose lines are not
/// folded, and Wrapped the reading copy with folded lines.
enum class PreviewFlavour { Hp48, Normal, Wrapped };

inline constexpr int kPreviewPhases = 4;

/// How a compilation tells where it is. A function that answers false ends it at
/// once; an empty one is never called.
struct PreviewProgress {
    /// The phase, from 1 (folding), 2 (styles and pictures), 3 (plain font) to 4
    /// (menu entries), the position reached in the phase's text and its length.
    /// Each phase that runs calls it at its start.
    std::function<bool(int phase, std::size_t position, std::size_t length)> phase;
    /// The characters drawn of the picture in work.
    Progress picture;
};

/// "Fase 2/4", what a phase shows at its start.
std::string phaseLabel(int phase);
/// "Fase 2/4 - [37%]".
std::string phaseLabel(int phase, std::size_t position, std::size_t length);

struct Preview {
    /// The compiled text: in 10 points, plain text in the font ZOLT.
    RichText text;
    /// The same text in one piece, with the text of its pictures.
    StyledText styled;
    std::vector<MenuEntry> entries;
    /// Whether the progress asked to stop; all else is empty then.
    bool cancelled = false;
};

/// Compiles a document for a preview. Double quotes at its two ends go, others
/// become apostrophes, and a line end is added. A text of two characters or fewer
/// stays as it is.
Preview compilePreview(std::string_view text, PreviewFlavour flavour, const PreviewProgress &progress = {});

/// What compilePreview() makes of a document before it is a rich text.
struct CompiledText {
    StyledText text;
    std::vector<MenuEntry> entries;
};

/// For those who need no rich text. A document that is given away is not kept beside what
/// is made of it.
CompiledText compileText(std::string document, PreviewFlavour flavour);

/// A document on the calculator's screen, and where its characters went.
struct CompiledScreen {
    StyledText text;
    /// Those of `text`.
    std::vector<ScreenLine> lines;
    std::vector<MenuEntry> entries;
    /// From the document to `text.characters`.
    std::vector<PlaceMap> places;
};

/// Compiles a document as compilePreview() does for the calculator's screen, for those
/// who draw it dot by dot. No value when `progress` asked to stop; what it is told differs
/// from step to step.
std::optional<CompiledScreen> compileScreen(std::string_view text, const Progress &progress = {});

} // namespace zolt
