#pragma once

#include "core/byte_sink.h"
#include "core/progress.h"

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// How a PDF file looks, and what it says about itself. Texts are bytes of code
/// page 1252 and reach the file as they stand.
struct PdfParameters {
    std::string author;
    std::string creator = "ZOLT";
    std::string keywords;
    std::string subject;
    std::string title;
    /// The name of a base font of PDF readers.
    std::string fontName = "Times-Roman";
    /// In points, 1 or more.
    int fontSize = 10;
    /// In degrees clockwise: 0, 90, 180 or 270.
    int rotation = 0;
    /// In inches.
    double pageWidth = 8.5;
    double pageHeight = 11;
    /// The local time that goes into the file as its time of creation.
    std::tm createdAt{};
};

/// How much of a text goes on a page.
struct PdfPageGrid {
    /// In points.
    int pageWidth = 0;
    int pageHeight = 0;
    int linesPerPage = 0;
    /// The length up to which a line isn't wrapped, 1 or more.
    int charsPerLine = 0;
};

/// The grid of a page. There are no width tables: a character counts as a share of
/// the font size that hangs on the font's name alone. Rounds to the nearest
/// integer, ties to the even neighbour.
PdfPageGrid pdfPageGrid(const PdfParameters &parameters);

/// What writing a PDF file gave.
struct PdfResult {
    /// Pages that can be read in the file.
    int pageCount = 0;
    /// What the user has to be told, in this order; mostly nothing.
    std::vector<std::string> messages;
    /// False if the progress asked to stop; then the file isn't whole.
    bool finished = false;
    /// Why ConvertToPDF could not write the file, else empty. It is no message: an
    /// export goes on silently over a disk that is full.
    std::string writeError;
};

/// The tables of a file hold this many objects: 6 of the file and 3 of each page.
inline constexpr int kMostPdfObjects = 5000;

/// Writes a PDF 1.2 file of a document's text, in one pass from front to end. The
/// text goes in unchanged, style codes and picture cells too, in lines that end at
/// CR LF or at a lone CR; a lone LF ends no line. Reports the bytes of the document.
///
/// Page 1665 would need object 5001 for the length of its contents. A message tells
/// so; readers find that length by themselves. A page behind it can't begin: a
/// second message tells so, and the file ends in good order without the rest of
/// the text.
///
/// Format: PDF Reference, version 1.2 (Adobe, 1996).
PdfResult writePdf(std::string_view document, const PdfParameters &parameters, const ByteSink &sink,
                   const Progress &progress = {});

/// Makes the PDF file of a text file. Only a whole PDF file takes the place of an
/// older one. A missing or empty input gives a message and touches no file.
PdfResult ConvertToPDF(const std::string &inputPath, const std::string &outputPath,
                       const PdfParameters &parameters, const Progress &progress = {});

/// A source text with every occurrence of `find`, which isn't empty, replaced. The
/// search goes on behind each replacement.
std::string ReplaceText(std::string_view source, std::string_view find, std::string_view replacement);

} // namespace zolt
