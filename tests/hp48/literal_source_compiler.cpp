#include "hp48/literal_source_compiler.h"

#include "support/literal_commands.h"

#include <utility>
#include <vector>

namespace zolt::test {

namespace {

/// One character position: a byte, or a picture.
struct Position {
    char byte = 0;
    const RichPicture *picture = nullptr;
    std::string font;
};
using Row = std::vector<Position>;

const std::pair<const char *, char> kFonts[] = {
    {"ZOLTInverse", 'V'},    {"ZOLTBold", 'B'},      {"ZOLTDouble", 'D'},   {"ZOLTItalicRight", '/'},
    {"ZOLTItalicLeft", '|'}, {"ZOLTUnderline", 'U'}, {"ZOLTExponent", 'E'}, {"ZOLTIndice", 'I'},
};

Row rowOf(const RichText &text) {
    Row row;
    for (const Paragraph &paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front())
            row.insert(row.end(), {{'\r', nullptr, ""}, {'\n', nullptr, ""}});
        for (const Run &run : paragraph.runs) {
            const std::string &font = text.fonts[run.format.font];
            if (const auto *picture = run.content.picture())
                row.push_back({0, picture, font});
            else
                for (const char byte : run.content.characters())
                    row.push_back({byte, nullptr, font});
        }
    }
    return row;
}

bool isLineEnd(const Row &row, std::size_t i) {
    return i + 1 < row.size() && !row[i].picture && !row[i + 1].picture && row[i].byte == '\r' &&
           row[i + 1].byte == '\n';
}

void putCode(Row &row, std::size_t i, char letter) {
    const Position code[] = {{'\x1F', nullptr, "ZOLT"}, {letter, nullptr, "ZOLT"}};
    row.insert(row.begin() + static_cast<std::ptrdiff_t>(i), std::begin(code), std::end(code));
}

void putCodes(Row &row) {
    for (std::size_t i = 0; i < row.size(); ++i)
        for (const auto &[font, letter] : kFonts) {
            if (row[i].font != font)
                continue;
            putCode(row, i, letter);
            std::size_t j = i + 3;
            while (j < row.size() && !isLineEnd(row, j) && row[j].font == font)
                ++j;
            if (j == row.size())
                return;
            putCode(row, j, letter);
            // What ended the run is looked at next.
            i = j + 1;
            break;
        }
}

std::string withPictures(const Row &row, const std::function<std::string(const RichPicture &)> &cells) {
    std::string text;
    for (const Position &position : row) {
        if (!position.picture)
            text += position.byte;
        else
            text = text + "\r\n" + cells(*position.picture);
    }
    return text;
}

} // namespace

std::string literalSource(const RichText &text, int kind,
                          const std::function<std::string(const RichPicture &)> &cells) {
    Row row = rowOf(text);
    putCodes(row);
    std::string source = withPictures(row, cells);
    if (kind >= 2)
        source = literal::optimised(std::move(source), static_cast<Optimisation>(kind - 1));
    const bool opened =
        source.find_first_not_of(' ') != std::string::npos && source[source.find_first_not_of(' ')] == '"';
    const bool closed =
        source.find_last_not_of(' ') != std::string::npos && source[source.find_last_not_of(' ')] == '"';
    source = (opened ? "" : "\"") + source + (closed ? "" : "\"");
    for (std::size_t i = 1; i + 1 < source.size(); ++i)
        if (source[i] == '"')
            source[i] = '\'';
    return source;
}

} // namespace zolt::test
