#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"

#include <string>

class QPagedPaintDevice;
class QPrinter;

namespace zolt {

/// Distances from the sheet's edges, in twips. One below 0 counts as 0.
struct PageMargins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// Stopped: `progress` asked for it. NoRoom: the margins leave none on the sheet.
enum class PrintResult { Printed, Stopped, NoRoom, Failed };

/// Prints a rich text page by page into what the margins leave of a sheet; an empty one
/// is a blank page. Text stands in its point size, a picture in its size in twips or, if
/// that has no room on a page, as large as it can. Lines break at words, longer words
/// anywhere, and pages between lines. The system's colours print black.
///
/// `progress` is told the paragraphs done, each counted twice. Unless all is printed the
/// device holds a part of the pages, or none.
PrintResult PrintRTF(const RichText &text, const PageMargins &margins, QPagedPaintDevice &device,
                     const Progress &progress = {});

struct PrintOutcome {
    PrintResult result;
    /// Why the file couldn't be written, if it was one.
    std::string reason;
};

/// The same on what a print dialog has set up: a printer, or a PDF file, which is
/// replaced once all pages are made.
PrintOutcome printOn(QPrinter &printer, const RichText &text, const PageMargins &margins,
                     const Progress &progress = {});

} // namespace zolt
