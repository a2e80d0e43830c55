#pragma once

#include "shell/document/document_frm.h"

namespace zolt {

/// The numbers of the two editions, as EdiçãoActiva and the choosers have them.
inline constexpr int kTextual = 1;
inline constexpr int kGraphical = 2;

/// What tells an edition from the other.
const Edition &editionOf(int edition);

/// The window of the document in use, or null.
DocumentFrm *documentWindow();

/// Closes a document window without a question; false if it stays. The next document is in
/// no file: a save must not meet the old one's.
bool closeUnasked(DocumentFrm &window);

/// Shows the window of an edition, with an empty document if it is new, and the frame.
DocumentFrm &openEdition(int edition);

} // namespace zolt
