#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"

#include <string>

namespace zolt {

/// A rich text as RTF 1.x in code page 1252. Each font stands in the font table
/// under its name, each picture in a group that begins with "{\pict" and holds no
/// other group. Every byte comes back from richTextFromRtf as it was, also
/// when a word processor has read and written the text: outside plain ASCII it is
/// written \'hh, where the font's character for it (font_characters.h) is another than
/// code page 1252's \u, with the byte for programs without Unicode behind it. Colours of the system are
/// written as the automatic colour. Reports bytes of text; when `progress` asks to
/// stop, the result is empty.
std::string rtfFromRichText(const RichText &text, const Progress &progress = {});

} // namespace zolt
