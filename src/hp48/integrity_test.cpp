#include "hp48/integrity_test.h"

#include "core/codes.h"
#include "core/document.h"
#include "core/reporter.h"
#include "hp48/quotes.h"

#include <algorithm>
#include <utility>

namespace zolt {

namespace {

constexpr char kQuote = '"';
constexpr std::string_view kEmptyString = "\"\"";

/// Hands the lines of a report on, and counts its errors.
class Report {
public:
    Report(const ByteSink &sink, std::size_t mostErrors) : m_lines(sink), m_mostErrors(mostErrors) {}
    ~Report() { m_lines.handOn(); }
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    void addLine(std::string_view line) {
        m_lines.bytes().append(line).append(kLineEnd);
        m_lines.handOnIfLarge();
    }

    /// The same line for each of `count` errors at the place `i`, from 0.
    void addErrors(std::size_t count, std::string_view before, std::size_t i, std::string_view behind) {
        for (std::size_t error = 0; error < count && m_errors + error < m_mostErrors; ++error)
            addLine(std::string(before).append(std::to_string(i + 1)).append(behind));
        m_errors += count;
    }

    std::size_t errors() const { return m_errors; }
    std::size_t leftOut() const { return m_errors - std::min(m_errors, m_mostErrors); }

private:
    PieceBuffer m_lines;
    std::size_t m_mostErrors;
    std::size_t m_errors = 0;
};

/// `document` is what the quotes were put in.
bool reportQuotes(const QuotedText &quotes, std::string_view document, Report &report, Reporter reporter) {
    if (quotes.openingAdded)
        report.addLine("-Superior ('') character inserted ");
    if (quotes.closingAdded)
        report.addLine("-Inferior ('') character inserted ");
    for (std::size_t own = document.find(kQuote); own != std::string_view::npos;
         own = document.find(kQuote, own + 1)) {
        const std::size_t i = own + (quotes.openingAdded ? 1 : 0);
        if (quotes.text[i] != kQuote)
            report.addErrors(1, "-Ilegal character found (\") in position (", i, "). Substituted by (')");
        if (!reporter.goOn(i))
            return false;
    }
    return true;
}

/// The digits behind a cell mark that are none; digits behind the text's end are
/// missing and so count too.
std::size_t wrongDigits(std::string_view text, std::size_t mark) {
    std::size_t wrong = 0;
    for (std::size_t i = mark + 1; i < mark + kCellLength; ++i)
        wrong += i >= text.size() || hexDigitValue(text[i]) < 0;
    return wrong;
}

bool reportWrongCells(const std::string &text, Report &report, Reporter reporter) {
    for (std::size_t i = text.find(kCellMark, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kCellMark, i + 1)) {
        report.addErrors(wrongDigits(text, i), "-Illegal graphical object found at (", i, ").");
        if (!reporter.goOn(i))
            return false;
    }
    return true;
}

} // namespace

std::string correctedDocument(std::string document) {
    if (document.empty())
        document = kEmptyString;
    return quoted(std::move(document)).text;
}

IntegrityResult testIntegrity(std::string_view document, const ByteSink &sink, std::size_t mostErrors,
                              const Progress &progress) {
    Report report(sink, mostErrors);
    report.addLine("\r\n** Beginning verification **\r\n");
    if (document.empty())
        report.addLine("Empty document");
    QuotedText quotes = quoted(copyWithRoom(document.empty() ? kEmptyString : document));
    const Reporter reporter(progress, quotes.text.size());
    if (!reportQuotes(quotes, document, report, reporter) || !reportWrongCells(quotes.text, report, reporter))
        return {};
    if (report.leftOut() > 0)
        report.addLine("-And " + std::to_string(report.leftOut()) + " more");
    report.addLine("\r\n** Verification ended **");
    report.addLine("\r\nNumber of errors found: " + std::to_string(report.errors()));
    return {{}, std::move(quotes.text), report.errors()};
}

IntegrityResult testIntegrity(std::string_view document) {
    std::string report;
    IntegrityResult result =
        testIntegrity(document, [&report](std::string_view piece) { report.append(piece); });
    result.report = std::move(report);
    return result;
}

} // namespace zolt
