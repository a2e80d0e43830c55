#pragma once

#include "core/progress.h"

#include <string>
#include <string_view>

namespace zolt {

/// The document in a file's bytes: lines end at CR LF or at a lone CR and come
/// back as CR LF; a lone LF ends no line. One line end at the file's end is the
/// file's own and not the document's. Reports the bytes read. Bytes that are given away
/// are the document, without a second copy in memory, unless they hold a lone CR.
std::string documentFromFile(std::string_view bytes, const Progress &progress = {});
std::string documentFromFile(std::string &&bytes, const Progress &progress = {});

/// A copy of a text to which some characters can be put without taking memory anew: quotes
/// and a line end.
std::string copyWithRoom(std::string_view text);

/// The file's bytes for a document: the document as it stands and one CR LF. A document
/// that is given away is not copied.
std::string fileFromDocument(std::string_view document);
std::string fileFromDocument(std::string &&document);

} // namespace zolt
