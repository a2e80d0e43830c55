#include "hp48/quotes.h"

namespace zolt {

namespace {

constexpr char kQuote = '"';
constexpr char kApostrophe = '\'';

void replaceInnerQuotes(QuotedText &result) {
    std::string &text = result.text;
    for (std::size_t i = text.find(kQuote, 1); i != std::string::npos && i + 1 < text.size();
         i = text.find(kQuote, i)) {
        text[i] = kApostrophe;
        result.replaced.push_back(i);
    }
}

} // namespace

QuotedText quoted(std::string_view text) {
    QuotedText result;
    if (const std::size_t first = text.find_first_not_of(' '); first != std::string_view::npos) {
        result.openingAdded = text[first] != kQuote;
        result.closingAdded = text[text.find_last_not_of(' ')] != kQuote;
    }
    result.text.reserve(text.size() + 2);
    result.text.append(result.openingAdded, kQuote).append(text).append(result.closingAdded, kQuote);
    replaceInnerQuotes(result);
    return result;
}

} // namespace zolt
