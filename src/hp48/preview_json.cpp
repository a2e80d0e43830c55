#include "hp48/preview_json.h"

#include "core/byte_set.h"
#include "core/codes.h"
#include "core/utf8.h"

#include <algorithm>
#include <string>

namespace zolt {

namespace {

constexpr ByteSet kNotAsTheyStand([](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte >= 0x80 || c == '"' || c == '\\';
});

void putOther(std::string &json, char character) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= 0x80) {
        appendCharacter(json, byte);
    } else if (byte < 0x20) {
        json += "\\u00";
        json += kHexDigits[byte >> 4];
        json += kHexDigits[byte & 0xF];
    } else {
        json += '\\';
        json += character;
    }
}

class JsonWriter {
public:
    explicit JsonWriter(const ByteSink &sink) : m_buffer(sink), m_json(m_buffer.bytes()) {}

    void write(const CompiledText &compiled);

private:
    void put(std::string_view json) { m_json += json; }
    void putString(std::string_view text);
    void putEntry(const MenuEntry &entry);
    void putPicture(const PictureBlock &picture);
    void putText(Style style, std::string_view text);

    PieceBuffer m_buffer;
    std::string &m_json;
};

void JsonWriter::putString(std::string_view text) {
    put("\"");
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t most = std::min(i + PieceBuffer::kPiece, text.size());
        const std::size_t end = kNotAsTheyStand.find(text, i, most);
        put(text.substr(i, end - i));
        i = end;
        if (end < most)
            putOther(m_json, text[i++]);
        m_buffer.handOnIfLarge();
    }
    put("\"");
}

void JsonWriter::putEntry(const MenuEntry &entry) {
    put("{\"line\": " + std::to_string(entry.line) + ", \"text\": ");
    putString(entry.text);
    put("}");
}

void JsonWriter::putPicture(const PictureBlock &picture) {
    put("{\"picture\": {\"columns\": " + std::to_string(picture.columns) +
        ", \"lines\": " + std::to_string(picture.lines) + ", \"cells\": ");
    putString(picture.cells);
    put("}}");
}

void JsonWriter::putText(Style style, std::string_view text) {
    put("{\"font\": ");
    putString(fontOfStyle(style));
    put(", \"text\": ");
    putString(text);
    put("}");
}

void JsonWriter::write(const CompiledText &compiled) {
    const std::string_view characters = compiled.text.characters;
    put("{\"entries\": [");
    std::string_view separator;
    for (const MenuEntry &entry : compiled.entries) {
        put(separator);
        putEntry(entry);
        separator = ", ";
    }
    put("], \"items\": [");
    separator = {};
    PieceReader reader(compiled.text);
    while (reader.position() < characters.size()) {
        const PieceReader::Piece piece = reader.next(characters.size());
        put(separator);
        if (piece.picture)
            putPicture(*piece.picture);
        else
            putText(piece.style, characters.substr(piece.begin, piece.end - piece.begin));
        separator = ", ";
    }
    put("]}\n");
    m_buffer.handOn();
}

} // namespace

void writePreviewJson(const CompiledText &compiled, const ByteSink &sink) {
    JsonWriter(sink).write(compiled);
}

} // namespace zolt
