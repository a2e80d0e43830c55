#pragma once

#include "core/byte_sink.h"
#include "core/progress.h"
#include "graphic/rich_text.h"
#include "hp48/styled_text.h"

#include <optional>
#include <vector>

namespace zolt {

/// The rich text of a compiled text, in 10 points, with the pictures drawn: `drawn`
/// has one for each of `text.pictures`. No value when `progress`,
/// which counts characters, asked to stop.
std::optional<RichText> richTextOf(const StyledText &text, std::vector<RichPicture> drawn,
                                   const Progress &progress = {});

/// The same text as RTF, for those who need no RichText: none is made, and of the
/// pictures one after the other is drawn.
void writeRtf(const StyledText &text, const ByteSink &sink);

} // namespace zolt
