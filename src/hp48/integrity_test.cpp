#include "hp48/integrity_test.h"

#include "core/codes.h"
#include "hp48/quotes.h"

#include <utility>

namespace zolt {

namespace {

void addLine(std::string &report, std::string_view line) {
    report.append(line).append(kLineEnd);
}

void reportQuotes(const QuotedText &quotes, std::string &report) {
    if (quotes.openingAdded)
        addLine(report, "-Superior ('') character inserted ");
    if (quotes.closingAdded)
        addLine(report, "-Inferior ('') character inserted ");
    for (const std::size_t i : quotes.replaced)
        addLine(report, "-Ilegal character found (\") in position (" + std::to_string(i + 1) +
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

void reportWrongCells(IntegrityResult &result) {
    const std::string &text = result.TextoCorrigido;
    for (std::size_t i = text.find(kCellMark, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kCellMark, i + 1)) {
        const std::size_t wrong = wrongDigits(text, i);
        for (std::size_t line = 0; line < wrong; ++line)
            addLine(result.report, "-Illegal graphical object found at (" + std::to_string(i + 1) + ").");
        result.NúmeroDeErros += wrong;
    }
}

} // namespace

IntegrityResult testIntegrity(std::string_view document) {
    IntegrityResult result;
    result.report = "\r\n** Beginning verification **\r\n\r\n";
    if (document.empty()) {
        document = "\"\"";
        addLine(result.report, "Empty document");
    }
    QuotedText quotes = quoted(document);
    reportQuotes(quotes, result.report);
    result.NúmeroDeErros = quotes.replaced.size();
    result.TextoCorrigido = std::move(quotes.text);
    reportWrongCells(result);
    addLine(result.report, "\r\n** Verification ended **");
    addLine(result.report, "\r\nNumber of errors found: " + std::to_string(result.NúmeroDeErros));
    return result;
}

} // namespace zolt
