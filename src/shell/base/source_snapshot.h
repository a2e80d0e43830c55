#pragma once

#include "hp48/source_compiler.h"

namespace zolt {

/// A copy of the document in use that becomes the calculator's text beside the windows. A
/// long document is copied slice by slice, so that no key waits for it; whoever takes the
/// slices drops the copy if the document changes meanwhile.
class SourceSnapshot {
public:
    virtual ~SourceSnapshot() = default;

    /// Takes the next slice, some milliseconds long. False when all is there.
    virtual bool takeMore() = 0;
    /// The text, style codes and cells included, and the places of the pane's offsets in
    /// it. Touches nothing of the windows. Nothing if the progress asked to stop.
    virtual std::optional<PlacedSource> source(const Progress &progress) = 0;
};

} // namespace zolt
