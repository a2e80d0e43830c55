#include "hp48/quotes.h"

#include <cstddef>
#include <utility>

namespace zolt {

namespace {

constexpr char kQuote = '"';
constexpr char kApostrophe = '\'';

void replaceInnerQuotes(std::string &text) {
    for (std::size_t i = text.find(kQuote, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kQuote, i))
        text[i] = kApostrophe;
}

} // namespace

QuotedText quoted(std::string text) {
    QuotedText result{std::move(text)};
    if (const std::size_t first = result.text.find_first_not_of(' '); first != std::string::npos) {
        result.openingAdded = result.text[first] != kQuote;
        result.closingAdded = result.text[result.text.find_last_not_of(' ')] != kQuote;
    }
    result.text.insert(0, result.openingAdded, kQuote);
    result.text.append(result.closingAdded, kQuote);
    replaceInnerQuotes(result.text);
    return result;
}

} // namespace zolt
