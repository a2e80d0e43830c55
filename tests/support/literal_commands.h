#pragma once

#include "core/codes.h"
#include "core/optimise.h"
#include "core/word_count.h"

#include <cstddef>
#include <string>
#include <string_view>

// Commands of the text edition made slowly and step by step, each position looked at on
// its own. Positions count from 1 where the steps do.

namespace zolt::literal {

inline bool isLineEndAt(std::string_view text, std::size_t position) {
    return text.substr(position - 1, 2) == "\r\n";
}

/// The column that a selection ends at.
inline std::size_t endColumn(std::string_view text, std::size_t selStart, std::size_t selLength) {
    for (std::size_t i = selStart; i >= 1; --i)
        if (isLineEndAt(text, i))
            return selStart + selLength - (i + 1);
    return selStart + selLength;
}

/// The document that a file's bytes hold.
inline std::string documentOf(std::string_view file) {
    std::string document;
    std::string line;
    for (std::size_t i = 1; i <= file.size(); ++i) {
        if (file[i - 1] != '\r') {
            line += file[i - 1];
            if (i < file.size())
                continue;
        } else if (isLineEndAt(file, i)) {
            ++i;
        }
        document += line + "\r\n";
        line.clear();
    }
    return document.substr(0, document.size() - (document.empty() ? 0 : 2));
}

struct Corrected {
    std::string text;
    std::size_t errors = 0;
};

/// The integrity test's corrected text and its errors.
inline Corrected corrected(std::string text) {
    Corrected result;
    if (text.empty())
        text = "\"\"";
    const std::size_t first = text.find_first_not_of(' ');
    if (first != std::string::npos) {
        const bool closes = text[text.find_last_not_of(' ')] == '"';
        if (text[first] != '"')
            text = '"' + text;
        if (!closes)
            text += '"';
    }
    for (std::size_t i = 2; i + 1 <= text.size(); ++i)
        if (text[i - 1] == '"') {
            text[i - 1] = '\'';
            ++result.errors;
        }
    for (std::size_t i = 2; i + 1 <= text.size(); ++i)
        for (std::size_t k = 1; text[i - 1] == '\x9E' && k <= 6; ++k)
            result.errors +=
                i + k > text.size() ||
                std::string_view("0123456789ABCDEF").find(text[i + k - 1]) == std::string_view::npos;
    result.text = std::move(text);
    return result;
}

inline bool isDelimiter(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

inline WordCount wordCount(std::string_view text) {
    WordCount count;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        const char c = text[i - 1];
        count.CaracteresSemEspaços += !isDelimiter(c);
        count.CaracteresComEspaços += c != '\n' && c != '\r';
        count.Parágrafos += isLineEndAt(text, i);
        if (isDelimiter(c))
            continue;
        const std::size_t end = text.find_first_of(" \r\t", i - 1);
        if (end == std::string_view::npos)
            continue;
        const std::size_t j = end + 1;
        count.CaracteresSemEspaços += j - i - 1;
        count.CaracteresComEspaços += j - i;
        count.Parágrafos += text[j - 1] == '\r';
        i = j;
        ++count.Palavras;
    }
    count.Palavras += !text.empty() && !isDelimiter(text.back());
    return count;
}

/// The text without blank cells at the ends of lines, and in total with blanks for the others.
inline std::string optimised(std::string text, Optimisation kind) {
    const std::string blank(kBlankCell);
    text += "\r\n";
    for (std::size_t p = 0; p < text.size();) {
        const std::string rest = text.substr(p, text.find("\r\n", p) - p);
        const bool isTail = rest.starts_with(blank) && rest.find_first_not_of(blank) == std::string::npos;
        if (isTail)
            text.erase(p, blank.size());
        else
            ++p;
    }
    text.resize(text.size() - 2);
    for (std::size_t p = 0; kind == Optimisation::Total && p < text.size(); ++p)
        if (text.compare(p, blank.size(), blank) == 0)
            text.replace(p, blank.size(), " ");
    return text;
}

/// The text of a Web page with its line ends marked.
inline std::string marked(std::string text) {
    if (text.size() < 2)
        text += "\r\n";
    for (std::size_t position = 1; position != text.size(); ++position)
        if (isLineEndAt(text, position)) {
            text.insert(position - 1, "<br>");
            position += 4;
        }
    return text;
}

} // namespace zolt::literal
