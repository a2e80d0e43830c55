#pragma once

#include <functional>
#include <random>
#include <string>

namespace zolt {

/// A short document rich in what the compiler treats in a special way. The same
/// generator state gives the same document.
inline std::string randomDocument(std::mt19937 &random) {
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    // Few letters make codes meet their partners; each document weighs the kinds anew.
    const unsigned letterCount = 1 + below(8);
    const unsigned firstLetter = below(8);
    const auto letter = [&] { return "VBD/|UEI"[(firstLetter + below(letterCount)) % 8]; };
    const auto cell = [&] {
        std::string text = "\x9E";
        for (int i = 0; i < 6; ++i)
            text += "0123456789ABCDEF"[below(16)];
        return text;
    };
    using Text = std::string;
    const std::function<Text()> kinds[] = {
        [&] {
            return Text{'\x0B', letter()};
        },
        [&] { return Text("\x0B"); },
        [&] { return Text(1, letter()); },
        [&] { return cell(); },
        [&] { return cell() + "\r\n"; },
        [&] { return cell() + cell() + "\r\n"; },
        [&] { return cell().substr(0, 1 + below(6)); },
        [&] { return Text("\r\n"); },
        [&] { return Text(1, "\r\n"[below(2)]); },
        [&] { return Text("\r\n*"); },
        [&] { return Text(10 + below(26), static_cast<char>('a' + below(26))); },
        [&] { return Text(1, " \""[below(2)]); },
        [&] { return "\r\n" + Text(below(9), 'x'); },
        [&] { return Text(1, static_cast<char>(below(256))); },
    };
    unsigned weights[std::size(kinds)];
    for (unsigned &weight : weights)
        weight = below(3) == 0 ? 0 : below(10);
    weights[below(std::size(kinds))] += 8;
    std::discrete_distribution<std::size_t> kind(std::begin(weights), std::end(weights));

    std::string document;
    for (unsigned left = below(70); left > 0; --left)
        document += kinds[kind(random)]();
    return below(8) == 0 ? '"' + document + '"' : document;
}

/// Lines about as long as one cell, with codes strewn in: what is a picture there
/// changes with each code that goes.
inline std::string randomColumnOfCells(std::mt19937 &random) {
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    const std::string cell = "\x9E"
                             "12345A";
    const std::string lines[] = {cell, cell + cell, "1234567", "abcde", "abcdefg" + cell, "ab" + cell};
    const unsigned letterCount = 1 + below(3);
    std::string document = cell + "\r\n";
    for (unsigned left = below(16); left > 0; --left) {
        std::string line = lines[below(std::size(lines))];
        if (line.size() != cell.size() || below(4) == 0)
            line.insert(below(static_cast<unsigned>(line.size() + 1)),
                        std::string{'\x0B', "BUV"[below(letterCount)]});
        document += line + "\r\n";
    }
    return document;
}

} // namespace zolt
