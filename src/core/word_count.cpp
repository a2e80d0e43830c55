#include "core/word_count.h"

#include "core/codes.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr std::string_view kDelimiters = " \n\r\t";
constexpr std::string_view kWordEnds = " \r\t";

bool isDelimiter(char c) {
    return kDelimiters.find(c) != std::string_view::npos;
}

/// Counts the word at the front of `text` with the delimiter at its end. Returns
/// the bytes counted.
std::size_t countWord(WordCount &count, std::string_view text, std::size_t length) {
    count.Palavras += 1;
    count.CaracteresSemEspaços += length;
    count.CaracteresComEspaços += length + 1;
    count.Parágrafos += text[length] == '\r';
    return length + 1;
}

/// Counts a word that nothing ends before the text does.
std::size_t countLastWord(WordCount &count, std::string_view text) {
    const auto lineFeeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    count.Palavras += text.back() != '\n';
    count.CaracteresSemEspaços += text.size() - lineFeeds;
    count.CaracteresComEspaços += text.size() - lineFeeds;
    return text.size();
}

/// Counts one delimiter that stands outside a word.
std::size_t countDelimiter(WordCount &count, std::string_view text) {
    count.CaracteresComEspaços += text.front() == ' ' || text.front() == '\t';
    count.Parágrafos += text.starts_with(kLineEnd);
    return 1;
}

} // namespace

WordCount countWords(std::string_view text) {
    WordCount count;
    while (!text.empty()) {
        std::size_t counted = 0;
        if (isDelimiter(text.front()))
            counted = countDelimiter(count, text);
        else if (const std::size_t end = text.find_first_of(kWordEnds); end != std::string_view::npos)
            counted = countWord(count, text, end);
        else
            counted = countLastWord(count, text);
        text.remove_prefix(counted);
    }
    return count;
}

} // namespace zolt
