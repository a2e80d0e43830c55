#include "hp48/integrity_test.h"

#include "core/codes.h"

namespace zolt {

namespace {

constexpr char kQuote = '"';
constexpr char kApostrophe = '\'';

void addLine(std::string &report, std::string_view line) {
    report.append(line).append(kLineEnd);
}

void addOpeningQuote(ResultadoDoTeste &result) {
    const std::size_t first = result.textoCorrigido.find_first_not_of(' ');
    if (first == std::string::npos || result.textoCorrigido[first] == kQuote)
        return;
    addLine(result.relatório, "-Superior ('') character inserted ");
    result.textoCorrigido.insert(result.textoCorrigido.begin(), kQuote);
}

void addClosingQuote(ResultadoDoTeste &result) {
    const std::size_t last = result.textoCorrigido.find_last_not_of(' ');
    if (last == std::string::npos || result.textoCorrigido[last] == kQuote)
        return;
    addLine(result.relatório, "-Inferior ('') character inserted ");
    result.textoCorrigido += kQuote;
}

void replaceInnerQuotes(ResultadoDoTeste &result) {
    std::string &text = result.textoCorrigido;
    for (std::size_t i = text.find(kQuote, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kQuote, i)) {
        text[i] = kApostrophe;
        addLine(result.relatório, "-Ilegal character found (\") in position (" + std::to_string(i + 1) +
                                      "). Substituted by (')");
        ++result.númeroDeErros;
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

void reportWrongCells(ResultadoDoTeste &result) {
    const std::string &text = result.textoCorrigido;
    for (std::size_t i = text.find(kCellMark, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kCellMark, i + 1)) {
        const std::size_t wrong = wrongDigits(text, i);
        for (std::size_t line = 0; line < wrong; ++line)
            addLine(result.relatório, "-Illegal graphical object found at (" + std::to_string(i + 1) + ").");
        result.númeroDeErros += wrong;
    }
}

} // namespace

ResultadoDoTeste testarIntegridade(std::string_view document) {
    ResultadoDoTeste result;
    result.textoCorrigido.reserve(document.size() + 2);
    result.textoCorrigido = document;
    result.relatório = "\r\n** Beginning verification **\r\n\r\n";
    if (document.empty()) {
        result.textoCorrigido = {kQuote, kQuote};
        addLine(result.relatório, "Empty document");
    }
    addOpeningQuote(result);
    addClosingQuote(result);
    replaceInnerQuotes(result);
    reportWrongCells(result);
    addLine(result.relatório, "\r\n** Verification ended **");
    addLine(result.relatório, "\r\nNumber of errors found: " + std::to_string(result.númeroDeErros));
    return result;
}

} // namespace zolt
