#pragma once

#include <string>
#include <string_view>

class QMimeData;

namespace zolt {

/// Clipboard format that carries bytes exactly, for this program's own controls.
inline constexpr char kPaneBytesMimeType[] = "application/x-zolt-bytes";

/// What a copy or a drag of bytes offers: the bytes for this program, the characters
/// that the calculator shows for others. The caller owns it.
QMimeData *mimeOfBytes(std::string_view bytes);

/// Whether there are bytes or a text to take. Files have their addresses for a text,
/// which nobody wants typed, and so are not.
bool offersBytes(const QMimeData &source);

/// The bytes of a copy of this program's, else those of the text.
std::string bytesOfMime(const QMimeData &source);

} // namespace zolt
