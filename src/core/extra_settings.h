#pragma once

#include <string>
#include <vector>

namespace zolt {

/// Settings beside those of ZOLT.ini, whose lines are fixed.
struct ExtraSettings {
    /// Whether texts that are thrown away on purpose can be had back for a while.
    bool keepsThrownAway = true;
    /// Whether the live preview shows, below the document or beside it, and how high or
    /// wide it is, in pixels; 0 for the size that it likes.
    bool showsLivePreview = false;
    bool livePreviewIsBelow = false;
    int livePreviewSize = 0;
    /// Whether the text edition's status bar counts the columns of the caret's line.
    bool showsColumns = true;
    /// The documents that were opened or saved last, newest first, as file system bytes.
    std::vector<std::string> recentFiles;
    /// What the panes of the textual edition show beside the characters: styles, pictures
    /// as dots, and where the calculator breaks lines.
    bool showsStyles = true;
    bool showsPictures = true;
    bool showsColumnLimit = true;

    bool operator==(const ExtraSettings &) const = default;
};

/// From a file of lines "Name=Value"; what is missing, unknown or no value there is as in
/// a new ExtraSettings. A failure to write gives its reason.
ExtraSettings readExtraSettings(const std::string &path);
std::string writeExtraSettings(const std::string &path, const ExtraSettings &settings);

} // namespace zolt
