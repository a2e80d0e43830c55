#include "hp48/integrity_test.h"

#include "core/codes.h"
#include "hp48/quotes.h"

#include <utility>

namespace zolt {

namespace {

constexpr std::string_view kEmptyString = "\"\"";

/// Gathers the lines of a report into larger pieces.
class Report {
public:
    explicit Report(const ReportSink &sink) : m_sink(sink) {}
    ~Report() { m_sink(m_piece); }
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    void addLine(std::string_view line) {
        m_piece.append(line).append(kLineEnd);
        if (m_piece.size() < kPiece)
            return;
        m_sink(m_piece);
        m_piece.clear();
    }

private:
    static constexpr std::size_t kPiece = std::size_t{1} << 16;

    const ReportSink &m_sink;
    std::string m_piece;
};

void reportQuotes(const QuotedText &quotes, Report &report) {
    if (quotes.openingAdded)
        report.addLine("-Superior ('') character inserted ");
    if (quotes.closingAdded)
        report.addLine("-Inferior ('') character inserted ");
    for (const std::size_t i : quotes.replaced)
        report.addLine("-Ilegal character found (\") in position (" + std::to_string(i + 1) +
                       "). Substituted by (')");
}

/// The digits behind a cell mark that are none; digits behind the text's end are
/// missing and so count too.
std::size_t wrongDigits(std::string_view text, std::size_t mark) {
    std::size_t wrong = 0;
    for (std::size_t i = mark + 1; i < mark + kCellLength; ++i)
        wrong += i >= text.size() || hexDigitValue(text[i]) < 0;
    return wrong;
}

std::size_t reportWrongCells(const std::string &text, Report &report) {
    std::size_t errors = 0;
    for (std::size_t i = text.find(kCellMark, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kCellMark, i + 1)) {
        const std::size_t wrong = wrongDigits(text, i);
        for (std::size_t line = 0; line < wrong; ++line)
            report.addLine("-Illegal graphical object found at (" + std::to_string(i + 1) + ").");
        errors += wrong;
    }
    return errors;
}

} // namespace

std::string correctedDocument(std::string_view document) {
    return quoted(document.empty() ? kEmptyString : document).text;
}

IntegrityResult testIntegrity(std::string_view document, const ReportSink &sink) {
    Report report(sink);
    report.addLine("\r\n** Beginning verification **\r\n");
    if (document.empty())
        report.addLine("Empty document");
    QuotedText quotes = quoted(document.empty() ? kEmptyString : document);
    reportQuotes(quotes, report);
    IntegrityResult result;
    result.NúmeroDeErros = quotes.replaced.size();
    result.TextoCorrigido = std::move(quotes.text);
    result.NúmeroDeErros += reportWrongCells(result.TextoCorrigido, report);
    report.addLine("\r\n** Verification ended **");
    report.addLine("\r\nNumber of errors found: " + std::to_string(result.NúmeroDeErros));
    return result;
}

IntegrityResult testIntegrity(std::string_view document) {
    std::string report;
    IntegrityResult result =
        testIntegrity(document, [&report](std::string_view piece) { report.append(piece); });
    result.report = std::move(report);
    return result;
}

} // namespace zolt
