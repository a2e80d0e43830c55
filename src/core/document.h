#pragma once

#include "core/progress.h"

#include <string>
#include <string_view>

namespace zolt {

/// The document in a file's bytes: lines end at CR LF or at a lone CR and come
/// back as CR LF; a lone LF ends no line. One line end at the file's end is the
/// file's own and not the document's. Reports the bytes read.
std::string documentFromFile(std::string_view bytes, const Progress &progress = {});

/// The file's bytes for a document: the document as it stands and one CR LF.
std::string fileFromDocument(std::string_view document);

} // namespace zolt
