#pragma once

#include <random>
#include <string>

namespace zolt {

/// A short document rich in what the compiler treats in a special way. The same
/// generator state gives the same document.
inline std::string randomDocument(std::mt19937 &random) {
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    static const std::string letters = "VBD/|UEI";
    static const std::string digits = "0123456789ABCDEF";
    // Few letters make codes meet their partners; each document weighs the kinds anew.
    const unsigned letterCount = 1 + below(8);
    const unsigned firstLetter = below(8);
    unsigned weights[14];
    for (unsigned &weight : weights)
        weight = below(3) == 0 ? 0 : below(10);
    weights[below(14)] += 8;
    const auto letter = [&] { return letters[(firstLetter + below(letterCount)) % letters.size()]; };
    const auto cell = [&] {
        std::string text = "\x9E";
        for (int i = 0; i < 6; ++i)
            text += digits[below(16)];
        return text;
    };

    std::string document;
    const unsigned items = below(70);
    for (unsigned item = 0; item < items; ++item) {
        unsigned total = 0;
        for (const unsigned weight : weights)
            total += weight;
        unsigned pick = below(total);
        unsigned kind = 0;
        while (pick >= weights[kind])
            pick -= weights[kind++];
        switch (kind) {
        case 0:
            document += std::string{'\x0B', letter()};
            break;
        case 1:
            document += '\x0B';
            break;
        case 2:
            document += letter();
            break;
        case 3:
            document += cell();
            break;
        case 4:
            document += cell() + "\r\n";
            break;
        case 5:
            document += cell() + cell() + "\r\n";
            break;
        case 6:
            document += cell().substr(0, 1 + below(6));
            break;
        case 7:
            document += "\r\n";
            break;
        case 8:
            document += below(2) ? '\r' : '\n';
            break;
        case 9:
            document += "\r\n*";
            break;
        case 10:
            document += std::string(10 + below(26), static_cast<char>('a' + item % 26));
            break;
        case 11:
            document += below(2) ? ' ' : '"';
            break;
        case 12:
            document += "\r\n" + std::string(below(9), 'x');
            break;
        default:
            document += static_cast<char>(below(256));
            break;
        }
    }
    if (below(8) == 0)
        document = '"' + document + '"';
    return document;
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
