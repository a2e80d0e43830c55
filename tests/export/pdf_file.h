#pragma once

#include "core/codes.h"
#include "export/pdf_writer.h"

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
