#pragma once

#include "core/kept_documents.h"

namespace zolt {

/// Whether a crash has left documents; if so, the window that gives them back shows.
bool offerWhatACrashLeft();
/// Makes a kept document the one in use, unsaved; the one that was in use goes as it does
/// when a file is opened.
void giveBack(const KeptDocuments::Entry &entry);

/// Lets the end of the desktop's session, and the signals that end a program, keep the
/// document in use first; nothing is asked then.
void keepDocumentAtSessionEnd();

} // namespace zolt
