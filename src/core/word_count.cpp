#include "core/word_count.h"

#include "core/byte_set.h"
#include "core/codes.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr ByteSet kWordEnds([](char c) { return c == ' ' || c == '\r' || c == '\t'; });

bool isDelimiter(char c) {
    return kWordEnds.has(c) || c == '\n';
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
        else if (const std::size_t length = kWordEnds.find(text, 1, text.size()); length < text.size())
            counted = countWord(count, text, length);
        else
            counted = countLastWord(count, text);
        text.remove_prefix(counted);
    }
    return count;
}

} // namespace zolt
