#include "hp48/integrity_test.h"

#include "core/codes.h"

namespace zolt {

namespace {

constexpr char kQuote = '"';
constexpr char kApostrophe = '\'';

void addLine(std::string &report, std::string_view line) {
    report.append(line).append(kLineEnd);
}

void addOpeningQuote(IntegrityResult &result) {
    const std::size_t first = result.TextoCorrigido.find_first_not_of(' ');
    if (first == std::string::npos || result.TextoCorrigido[first] == kQuote)
        return;
    addLine(result.report, "-Superior ('') character inserted ");
    result.TextoCorrigido.insert(result.TextoCorrigido.begin(), kQuote);
}

void addClosingQuote(IntegrityResult &result) {
    const std::size_t last = result.TextoCorrigido.find_last_not_of(' ');
    if (last == std::string::npos || result.TextoCorrigido[last] == kQuote)
        return;
    addLine(result.report, "-Inferior ('') character inserted ");
    result.TextoCorrigido += kQuote;
}

void replaceInnerQuotes(IntegrityResult &result) {
    std::string &text = result.TextoCorrigido;
    for (std::size_t i = text.find(kQuote, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kQuote, i)) {
        text[i] = kApostrophe;
        addLine(result.report, "-Ilegal character found (\") in position (" + std::to_string(i + 1) +
                                   "). Substituted by (')");
        ++result.NúmeroDeErros;
    }
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
    result.TextoCorrigido.reserve(document.size() + 2);
    result.TextoCorrigido = document;
    result.report = "\r\n** Beginning verification **\r\n\r\n";
    if (document.empty()) {
        result.TextoCorrigido = {kQuote, kQuote};
        addLine(result.report, "Empty document");
    }
    addOpeningQuote(result);
    addClosingQuote(result);
    replaceInnerQuotes(result);
    reportWrongCells(result);
    addLine(result.report, "\r\n** Verification ended **");
    addLine(result.report, "\r\nNumber of errors found: " + std::to_string(result.NúmeroDeErros));
    return result;
}

} // namespace zolt
