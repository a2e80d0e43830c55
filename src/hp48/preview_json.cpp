#include "hp48/preview_json.h"

#include "core/codes.h"
#include "core/utf8.h"

namespace zolt {

namespace {

void putString(std::string &json, std::string_view text) {
    json += '"';
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            json += '\\';
            json += character;
        } else if (byte < 0x20) {
            json += "\\u00";
            json += kHexDigits[byte >> 4];
            json += kHexDigits[byte & 0xF];
        } else {
            appendCharacter(json, byte);
        }
    }
    json += '"';
}

void putEntry(std::string &json, const MenuEntry &entry) {
    json += "{\"line\": " + std::to_string(entry.line) + ", \"text\": ";
    putString(json, entry.text);
    json += '}';
}

void putPicture(std::string &json, const PictureBlock &picture) {
    json += "{\"picture\": {\"columns\": " + std::to_string(picture.columns) +
            ", \"lines\": " + std::to_string(picture.lines) + ", \"cells\": ";
    putString(json, picture.cells);
    json += "}}";
}

void putText(std::string &json, Style style, std::string_view text) {
    json += "{\"font\": ";
    putString(json, fontOfStyle(style));
    json += ", \"text\": ";
    putString(json, text);
    json += '}';
}

} // namespace

std::string previewJson(const Preview &preview) {
    const std::string &characters = preview.styled.characters;
    std::string json = "{\"entries\": [";
    std::string_view separator;
    for (const MenuEntry &entry : preview.entries) {
        json += separator;
        putEntry(json, entry);
        separator = ", ";
    }
    json += "], \"items\": [";
    separator = {};
    PieceReader reader(preview.styled);
    while (reader.position() < characters.size()) {
        const PieceReader::Piece piece = reader.next(characters.size());
        json += separator;
        if (piece.picture)
            putPicture(json, *piece.picture);
        else
            putText(json, piece.style,
                    std::string_view(characters).substr(piece.begin, piece.end - piece.begin));
        separator = ", ";
    }
    return json += "]}\n";
}

} // namespace zolt
