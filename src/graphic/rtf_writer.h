#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"

#include <string>

namespace zolt {

/// A rich text as RTF 1.x in code page 1252. Each font stands in the font table
/// under its name, each picture in a group that begins with "{\pict" and holds no
/// other group. Characters outside plain ASCII are written \'hh, so that every
/// byte comes back from richTextFromRtf as it was. Colours of the system are
/// written as the automatic colour. Reports bytes of text; when `progress` asks to
/// stop, the result is empty.
std::string rtfFromRichText(const RichText &text, const Progress &progress = {});

} // namespace zolt
