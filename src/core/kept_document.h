#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// A document that isn't saved, as it is kept so that it can be given back.
struct KeptDocument {
    /// 1 textual, 2 graphical.
    int edition = 1;
    /// The file that it was opened from or saved to, as file system bytes; may be empty.
    std::string path;
    /// Its display name, as UTF-8.
    std::string caption;
    /// When it was kept, in seconds since 1970.
    std::int64_t time = 0;
    /// The active pane, 1 or 2, and the caret in it, an offset from 0.
    int pane = 1;
    std::int64_t caret = 0;
    /// What its edition stores: the text as bytes, or RTF.
    std::string bytes;
    /// Set at reading: the bytes aren't those that were written.
    bool isDamaged = false;

    bool operator==(const KeptDocument &) const = default;
};

/// The file of a kept document: a line that names the form, one line for each field
/// (name, length, bytes), the last of them the document's, with a checksum in front.
std::string keptFile(const KeptDocument &document);
/// Takes such a file apart. A document that is cut off or has changed is given as far as
/// it goes, and marked; nothing if the other fields are no longer whole.
std::optional<KeptDocument> readKeptFile(std::string_view file);

} // namespace zolt
