#include "core/file.h"
#include "export/html_writer.h"
#include "export/pdf_writer.h"

#include <chrono>
#include <cstdio>
#include <functional>
#include <sys/resource.h>

namespace {

constexpr std::size_t kTextSize = 10'000'000;

/// A text whose lines repeat `words` until they are `length` long.
std::string textOf(std::size_t length) {
    constexpr std::string_view kWords =
        "The calculator (an old one) shows 33 columns, and 10 lines of them. ";
    std::string line;
    while (line.size() < length)
        line += kWords;
    line.resize(length);
    std::string text;
    text.reserve(kTextSize + length + 2);
    while (text.size() < kTextSize)
        text.append(line).append("\r\n");
    return text;
}

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measure(const char *name, const std::function<std::size_t()> &work) {
    const double memory = peakMegabytes();
    const auto start = std::chrono::steady_clock::now();
    const std::size_t written = work();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::printf("%-28s %6.3f s  %6.1f MB written  %6.1f MB more at the peak\n", name, time.count(),
                static_cast<double>(written) / 1e6, peakMegabytes() - memory);
}

std::size_t writtenPdf(const std::string &text, int fontSize) {
    std::size_t written = 0;
    zolt::PdfParameters parameters;
    parameters.fontSize = fontSize;
    zolt::writePdf(text, parameters, [&](std::string_view piece) { written += piece.size(); });
    return written;
}

} // namespace

/// Measures the exports of a text of 10 MB. The PDF files come before the Web page,
/// whose memory is the page's own.
int main() {
    const std::string paragraphs = textOf(1000);
    const std::string longLines = textOf(120);
    const std::string oneLine = textOf(kTextSize);
    measure("PDF, paragraphs, 8 points", [&] { return writtenPdf(paragraphs, 8); });
    measure("PDF, lines of 120, 8 points", [&] { return writtenPdf(longLines, 8); });
    measure("PDF, one line, 8 points", [&] { return writtenPdf(oneLine, 8); });
    measure("Web page", [&] { return zolt::webPage(longLines, {}).file.size(); });
    return 0;
}
