#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"

#include <string_view>

namespace zolt {

/// The rich text in an RTF source, as WordPad, Word, LibreOffice, TextEdit or
/// rtfFromRichText write it: characters, fonts, sizes, colours, the four attributes and
/// pictures that are PNG, JPEG, a DIB (bare or in a metafile) or, as a frame, a metafile.
/// The numbers and bullets of lists are text, and so are the results of fields and the
/// text of boxes, where they are anchored. Left out are headers and footers, foot- and
/// endnotes, comments, hidden text and what tracked changes delete, entries for indexes,
/// formulas (but for their picture), styles and what programs keep for themselves.
///
/// In the calculator's fonts a byte is a character as it stands; in others characters
/// become bytes as bytesInFont() says, from the font's code page or Unicode. A \par at the very end ends the
/// last paragraph and begins no new one. A table's cells are parted by tabs, its rows by line ends.
///
/// A source that is cut off or damaged gives what could be read. A source that
/// doesn't begin with "{\rtf" is taken as the file of a plain text. Reports the
/// bytes read; when `progress` asks to stop, the result is an empty text.
RichText richTextFromRtf(std::string_view rtf, const Progress &progress = {});

/// Whether the bytes begin like RTF.
bool isRtf(std::string_view bytes);

/// Whether a file that is not RTF may be a plain text: any bytes but NUL, and not the
/// beginning of a JPEG, GIF, PDF or gzip file, which may do without NUL.
bool mayBePlainText(std::string_view bytes);

} // namespace zolt
