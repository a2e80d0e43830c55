#include "literal_compiler.h"

#include <algorithm>

namespace zolt::literal {

namespace {

using Text = std::vector<Position>;

struct Letter {
    char letter;
    const char *font;
};

constexpr Letter kLetters[] = {{'V', "ZOLTInverse"},     {'B', "ZOLTBold"},       {'D', "ZOLTDouble"},
                               {'/', "ZOLTItalicRight"}, {'|', "ZOLTItalicLeft"}, {'U', "ZOLTUnderline"},
                               {'E', "ZOLTExponent"},    {'I', "ZOLTIndice"}};

std::string open(std::string text) {
    if (text.front() == '"')
        text.erase(0, 1);
    if (!text.empty() && text.back() == '"')
        text.pop_back();
    for (char &character : text)
        if (character == '"')
            character = '\'';
    return text + "\r\n";
}

char at(const std::string &text, long position) {
    const bool inside = position >= 1 && position <= static_cast<long>(text.size());
    return inside ? text[static_cast<std::size_t>(position - 1)] : '\0';
}

bool stands(const std::string &text, long position, const std::string &what) {
    return position + static_cast<long>(what.size()) - 1 <= static_cast<long>(text.size()) &&
           text.compare(static_cast<std::size_t>(position - 1), what.size(), what) == 0;
}

/// The characters of a rich text, a blank for each picture.
std::string charactersOf(const Text &text) {
    std::string characters;
    for (const Position &position : text)
        characters += position.character;
    return characters;
}

void erase(Text &text, long position, long count) {
    const auto begin = text.begin() + (position - 1);
    text.erase(begin, begin + std::min(count, static_cast<long>(text.end() - begin)));
}

bool standsIn(const Text &text, long position, const std::string &what) {
    const auto begin = static_cast<std::size_t>(position - 1);
    if (begin + what.size() > text.size())
        return false;
    for (std::size_t i = 0; i < what.size(); ++i)
        if (text[begin + i].character != what[i])
            return false;
    return true;
}

void replaceCodesAt(Text &text, long i) {
    for (const Letter &letter : kLetters) {
        const std::string code = {'\x0B', letter.letter};
        if (!standsIn(text, i, code))
            continue;
        erase(text, i, 2);
        long j = i;
        while (j <= static_cast<long>(text.size()) && !standsIn(text, j, code))
            ++j;
        if (j > static_cast<long>(text.size()))
            continue;
        erase(text, j, 2);
        for (long k = i; k < j; ++k)
            text[static_cast<std::size_t>(k - 1)].font = letter.font;
    }
}

ImageTextSize measure(const std::string &cells) {
    ImageTextSize size;
    std::int64_t count = 0;
    for (long i = 1; i <= static_cast<long>(cells.size()); ++i) {
        if (at(cells, i) == '\x9E')
            ++count;
        size.columns = std::max(size.columns, count);
        if (stands(cells, i, "\r\n")) {
            ++size.lines;
            count = 0;
        }
    }
    return size;
}

/// Gives the selection start behind the pasted picture, from 0.
long replacePictureAt(Text &text, long i, Compiled &result) {
    long p = i;
    long last = i;
    while (true) {
        if (standsIn(text, p, "\x9E")) {
            last = p;
            p += 7;
        } else if (standsIn(text, p, "\r\n")) {
            p += 9;
        } else {
            break;
        }
    }
    last += 6;
    const long count = std::min(last, static_cast<long>(text.size())) - i + 1;
    Position picture{' ', text[static_cast<std::size_t>(i - 1)].font, true, {}};
    picture.cells =
        charactersOf(text).substr(static_cast<std::size_t>(i - 1), static_cast<std::size_t>(count));
    result.pictureSizes.push_back(measure(picture.cells));
    erase(text, i, count);
    text.insert(text.begin() + (i - 1), picture);
    return i;
}

void replaceCodesAndCells(Compiled &result) {
    Text &text = result.text;
    long i = 1;
    do {
        replaceCodesAt(text, i);
        if (standsIn(text, i, "\x9E"))
            i = replacePictureAt(text, i, result);
        i = i + 1;
    } while (i < static_cast<long>(text.size()));
}

void giveThePlainFont(Text &text) {
    for (Position &position : text) {
        const auto found = std::find_if(std::begin(kLetters), std::end(kLetters),
                                        [&](const Letter &letter) { return position.font == letter.font; });
        if (found == std::end(kLetters))
            position.font = "ZOLT";
    }
}

void collectEntries(Compiled &result) {
    const std::string text = charactersOf(result.text);
    for (long i = 1; i <= static_cast<long>(text.size()); ++i) {
        if (!stands(text, i, "\r\n*"))
            continue;
        int line = 0;
        for (long k = 1; k < i + 2; ++k)
            if (stands(text, k, "\r\n"))
                ++line;
        long j = 1;
        while (j <= 34 && !stands(text, i + j, "\r\n"))
            ++j;
        result.entries.push_back(
            {line + 1, text.substr(static_cast<std::size_t>(i + 1), static_cast<std::size_t>(j - 2))});
    }
}

/// `s` ends in CR LF.
std::string fold(const std::string &s) {
    std::string out;
    long col = 1;
    long pos = 1;
    // All characters are taken, the last one too, and none behind them.
    while (pos <= static_cast<long>(s.size())) {
        if (at(s, pos) == '\x9E')
            col -= 7;
        if (stands(s, pos, "\r\n"))
            col = -1;
        for (const Letter &letter : kLetters)
            if (letter.letter != 'D' && stands(s, pos, {'\x0B', letter.letter}))
                col -= 2;
        if (stands(s, pos,
                   "\x0B"
                   "D")) {
            bool lineEnds = false;
            for (long q = pos; q <= pos + 18 - col; ++q)
                lineEnds = lineEnds || stands(s, q, "\r\n");
            const long q = pos + 19 - col;
            // A break before the code would take characters twice.
            if (!lineEnds && q >= pos) {
                for (; pos < q; ++pos)
                    out += at(s, pos);
                out += "\r\n";
            }
        }
        if (col == 33 && at(s, pos + 1) == '\r')
            col -= 2;
        if (col == 33) {
            out += at(s, pos);
            out += "\r\n";
            col = 1;
            ++pos;
        }
        ++col;
        if (pos <= static_cast<long>(s.size()))
            out += at(s, pos);
        ++pos;
    }
    return out;
}

} // namespace

Compiled compile(std::string_view document, PreviewFlavour flavour) {
    Compiled result;
    std::string text(document);
    const bool compiles = text.size() > 2;
    if (compiles)
        text = open(text);
    if (compiles && flavour != PreviewFlavour::Normal)
        text = fold(text);
    for (const char character : text)
        result.text.push_back({character, "Arial", false, {}});
    if (compiles)
        replaceCodesAndCells(result);
    giveThePlainFont(result.text);
    if (compiles)
        collectEntries(result);
    return result;
}

std::vector<Position> positionsOf(const StyledText &text) {
    std::vector<Position> positions;
    PieceReader reader(text);
    while (reader.position() < text.characters.size()) {
        const PieceReader::Piece piece = reader.next(text.characters.size());
        const std::string font(fontOfStyle(piece.style));
        for (std::size_t i = piece.begin; i < piece.end; ++i)
            positions.push_back({text.characters[i], font, piece.picture != nullptr,
                                 piece.picture ? piece.picture->cells : std::string()});
    }
    return positions;
}

std::vector<std::string> draw(const std::string &cells, ImageTextSize size) {
    std::vector<std::string> dots(static_cast<std::size_t>(size.lines * 6),
                                  std::string(static_cast<std::size_t>(size.columns * 4), '.'));
    const std::string digits = "0123456789ABCDEF";
    std::size_t x = 0;
    std::size_t y = 0;
    std::size_t limit = 5;
    for (long i = 1; i <= static_cast<long>(cells.size()); ++i) {
        const std::size_t value = digits.find(at(cells, i));
        if (value != std::string::npos) {
            for (std::size_t k = 0; k < 4; ++k)
                if ((value >> k & 1) && y < dots.size() && x + k < dots[y].size())
                    dots[y][x + k] = '#';
            ++y;
        }
        if (y > limit) {
            y = limit - 5;
            x += 4;
        }
        if (stands(cells, i, "\r\n")) {
            limit += 6;
            y += 6;
            x = 0;
        }
    }
    return dots;
}

} // namespace zolt::literal
