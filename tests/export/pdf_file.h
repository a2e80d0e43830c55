#pragma once

#include "core/codes.h"
#include "export/pdf_writer.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

namespace zolt {

/// A page so narrow that a line takes five characters, and 30 lines high.
inline PdfParameters narrowPage() {
    PdfParameters parameters;
    parameters.fontName = "Courier";
    parameters.fontSize = 20;
    parameters.pageWidth = 1;
    return parameters;
}

struct WrittenPdf {
    std::string bytes;
    PdfResult result;
};

inline WrittenPdf writtenPdf(std::string_view document, const PdfParameters &parameters = {}) {
    WrittenPdf pdf;
    pdf.result = writePdf(document, parameters, [&](std::string_view piece) { pdf.bytes += piece; });
    return pdf;
}

/// The number that stands in a file at a position, blanks before it left out.
inline std::size_t numberAt(std::string_view file, std::size_t at) {
    std::size_t number = 0;
    std::from_chars(file.data() + std::min(at, file.size()), file.data() + file.size(), number);
    return number;
}

/// Whether the file's end points at its table of objects, and each entry at its object.
inline bool hasTrueOffsets(std::string_view pdf) {
    const std::size_t table = numberAt(pdf, pdf.rfind("startxref\r") + 10);
    if (table > pdf.size() || !pdf.substr(table).starts_with("xref\r0 "))
        return false;
    const std::size_t count = numberAt(pdf, table + 7);
    std::size_t entry = pdf.find("f \r", table) + 3;
    for (std::size_t object = 1; object < count; ++object, entry += 20) {
        const std::string head = std::to_string(object) + " 0 obj\r";
        if (pdf.substr(entry + 10, 10) != " 00000 n \r" ||
            pdf.compare(numberAt(pdf, entry), head.size(), head) != 0)
            return false;
    }
    return pdf.substr(entry, 8) == "trailer\r";
}

/// The shown lines of each page, as they stand in the file, without the page's number.
inline std::vector<std::vector<std::string>> pagesOf(std::string_view pdf) {
    std::vector<std::vector<std::string>> pages;
    constexpr std::string_view kEnd = "\r\n) Tj\r";
    for (std::size_t at = 0; at < pdf.size();) {
        const std::string_view rest = pdf.substr(at);
        if (rest.starts_with("T* (")) {
            const std::size_t end = rest.find(kEnd);
            pages.back().emplace_back(rest.substr(4, end - 4));
            at += end + kEnd.size();
            continue;
        }
        if (rest.starts_with("BT\r"))
            pages.emplace_back();
        const std::size_t end = rest.find('\r');
        at = end == std::string_view::npos ? pdf.size() : at + end + 1;
    }
    return pages;
}

} // namespace zolt
