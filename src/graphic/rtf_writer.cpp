#include "graphic/rtf_writer.h"

#include "core/charset.h"
#include "core/reporter.h"
#include "graphic/font_characters.h"
#include "graphic/rtf_picture.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace zolt {

namespace {

constexpr std::string_view kHex = "0123456789abcdef";
/// Bytes of a picture on one line of the source.
constexpr std::size_t kBytesALine = 64;

/// By RichPicture::Kind. A metafile's number says that it fits itself to its place.
constexpr std::array<std::string_view, 6> kPictureWords{"\\pngblip",    "\\jpegblip", "\\dibitmap0",
                                                        "\\wmetafile8", "\\emfblip",  "\\macpict"};

/// \picw and \pich: hundredths of a millimetre for Windows' metafiles, else pixels.
PictureSize writtenSize(const RichPicture &picture) {
    if (!isMetafile(picture.kind))
        return pictureSize(picture.bytes);
    const bool inPixels = picture.kind == RichPicture::Kind::MacPict;
    const auto units = [inPixels](std::int64_t twips) {
        return static_cast<std::int32_t>(inPixels ? twips / 15 : twips * 2540 / 1440);
    };
    return {units(picture.width), units(picture.height)};
}

bool isSystemColour(Colour colour) {
    return (colour & 0x80000000) != 0;
}

void appendHex(std::string &out, char byte) {
    const auto value = static_cast<unsigned char>(byte);
    out += kHex[value >> 4];
    out += kHex[value & 15];
}

void appendByte(std::string &out, char c) {
    if (c == '\\' || c == '{' || c == '}')
        (out += '\\') += c;
    else if (c >= ' ' && c <= '~')
        out += c;
    else
        appendHex(out += "\\'", c);
}

/// Behind \u stands what programs without Unicode take in its place: one character.
std::string writtenForm(FontKind kind, unsigned char byte) {
    const char32_t character = characterInFont(kind, byte);
    std::string form;
    if (character == U'\t')
        return "\\tab ";
    if (character != windowsCharacter(byte))
        (form = "\\u") += std::to_string(static_cast<std::int16_t>(character));
    if (!form.empty() && kind == FontKind::Foreign)
        return form += '?';
    appendByte(form, static_cast<char>(byte));
    return form;
}

const std::array<std::string, 256> &writtenForms(FontKind kind) {
    static const std::array forms = [] {
        std::array<std::array<std::string, 256>, 2> all;
        for (unsigned code = 0; code < 256; ++code) {
            for (const FontKind each : {FontKind::Calculator, FontKind::Foreign})
                all[static_cast<std::size_t>(each)][code] =
                    writtenForm(each, static_cast<unsigned char>(code));
        }
        return all;
    }();
    return forms[static_cast<std::size_t>(kind)];
}

std::size_t sizeOf(const Run &run) {
    const RichPicture *picture = run.content.picture();
    return picture ? picture->bytes.size() : run.content.characters().size();
}

/// Bytes of text and pictures, and one a paragraph.
std::size_t sizeOf(const RichText &text) {
    std::size_t size = text.paragraphs.size();
    for (const Paragraph &paragraph : text.paragraphs)
        for (const Run &run : paragraph.runs)
            size += sizeOf(run);
    return size;
}

class RtfWriter {
public:
    RtfWriter(const RichText &text, const Progress &progress)
        : m_text(text), m_size(sizeOf(text)), m_reporter(progress, m_size) {}

    std::string write();

private:
    void writeFontTable();
    void numberColours();
    void writeColourTable();
    bool writeParagraphs();
    bool writeRun(const Run &run);
    void writeFormat(const CharFormat &format);
    bool writeCharacters(std::string_view characters, FontKind kind);
    bool writePicture(const RichPicture &picture);

    void number(std::string_view word, long value) { (m_out += word) += std::to_string(value); }
    void flag(std::string_view word, bool before, bool now, bool &changed);
    bool report(std::size_t bytes);

    const RichText &m_text;
    std::size_t m_size;
    Reporter m_reporter;
    std::string m_out;
    /// Entry 0 of the table is the automatic colour.
    std::unordered_map<Colour, std::size_t> m_colourNumbers;
    std::vector<Colour> m_colours;
    std::size_t m_done = 0;
    /// What \plain sets.
    CharFormat m_format{.font = 0, .halfPoints = 24};
};

bool RtfWriter::report(std::size_t bytes) {
    m_done += bytes;
    return m_reporter.goOn(m_done);
}

std::string RtfWriter::write() {
    m_out.reserve(m_size + m_size / 2 + 512);
    m_out += "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1";
    writeFontTable();
    writeColourTable();
    m_out += "\\pard\\plain ";
    if (!writeParagraphs())
        return {};
    m_out += "}\r\n";
    return std::move(m_out);
}

void RtfWriter::writeFontTable() {
    m_out += "{\\fonttbl";
    for (std::size_t i = 0; i < m_text.fonts.size(); ++i) {
        number("{\\f", static_cast<long>(i));
        m_out += "\\fnil\\fcharset0 ";
        for (const char c : m_text.fonts[i]) {
            if (c != ';')
                appendByte(m_out, c);
        }
        m_out += ";}";
    }
    m_out += "}\r\n";
}

void RtfWriter::numberColours() {
    for (const Paragraph &paragraph : m_text.paragraphs)
        for (const Run &run : paragraph.runs)
            if (!isSystemColour(run.format.colour) &&
                m_colourNumbers.try_emplace(run.format.colour, m_colours.size() + 1).second)
                m_colours.push_back(run.format.colour);
}

void RtfWriter::writeColourTable() {
    numberColours();
    m_out += "{\\colortbl ;";
    for (const Colour colour : m_colours) {
        number("\\red", colour & 255);
        number("\\green", colour >> 8 & 255);
        number("\\blue", colour >> 16 & 255);
        m_out += ';';
    }
    m_out += "}\r\n";
}

bool RtfWriter::writeParagraphs() {
    for (const Paragraph &paragraph : m_text.paragraphs) {
        if (&paragraph != &m_text.paragraphs.front())
            m_out += "\\par\r\n";
        for (const Run &run : paragraph.runs) {
            if (!writeRun(run))
                return false;
        }
        if (!report(1))
            return false;
    }
    // Readers take a \par at the very end as the end of the last paragraph, so an
    // empty last paragraph needs one of its own.
    if (!m_text.paragraphs.empty() && m_text.paragraphs.back().runs.empty())
        m_out += "\\par\r\n";
    return true;
}

bool RtfWriter::writeRun(const Run &run) {
    writeFormat(run.format);
    if (const RichPicture *picture = run.content.picture())
        return writePicture(*picture);
    return writeCharacters(run.content.characters(), fontKind(m_text.fonts[run.format.font]));
}

void RtfWriter::flag(std::string_view word, bool before, bool now, bool &changed) {
    if (before == now)
        return;
    m_out += word;
    if (!now)
        m_out += '0';
    changed = true;
}

void RtfWriter::writeFormat(const CharFormat &format) {
    bool changed = false;
    if (format.font != m_format.font) {
        number("\\f", format.font);
        changed = true;
    }
    if (format.halfPoints != m_format.halfPoints) {
        number("\\fs", format.halfPoints);
        changed = true;
    }
    if (format.colour != m_format.colour) {
        const auto entry = m_colourNumbers.find(format.colour);
        number("\\cf", entry == m_colourNumbers.end() ? 0 : static_cast<long>(entry->second));
        changed = true;
    }
    flag("\\b", m_format.bold, format.bold, changed);
    flag("\\i", m_format.italic, format.italic, changed);
    flag("\\ul", m_format.underline, format.underline, changed);
    flag("\\strike", m_format.strikeThru, format.strikeThru, changed);
    if (changed)
        m_out += ' ';
    m_format = format;
}

bool RtfWriter::writeCharacters(std::string_view characters, FontKind kind) {
    const std::array<std::string, 256> &forms = writtenForms(kind);
    for (std::size_t i = 0; i < characters.size(); i += kBytesBetweenReports) {
        const std::string_view piece = characters.substr(i, kBytesBetweenReports);
        for (const char c : piece)
            m_out += forms[static_cast<unsigned char>(c)];
        if (!report(piece.size()))
            return false;
    }
    return true;
}

bool RtfWriter::writePicture(const RichPicture &picture) {
    const PictureSize size = writtenSize(picture);
    (m_out += "{\\pict") += kPictureWords[static_cast<std::size_t>(picture.kind)];
    std::string_view bytes = picture.bytes;
    std::string dib;
    if (picture.kind == RichPicture::Kind::Bmp) {
        dib = dibFromBmp(picture.bytes);
        bytes = dib;
    }
    number("\\picw", size.width);
    number("\\pich", size.height);
    number("\\picwgoal", picture.width);
    number("\\pichgoal", picture.height);
    for (std::size_t i = 0; i < bytes.size(); i += kBytesALine) {
        m_out += "\r\n";
        const std::string_view line = bytes.substr(i, kBytesALine);
        for (const char c : line)
            appendHex(m_out, c);
        if (!report(line.size()))
            return false;
    }
    m_out += "}";
    return true;
}

} // namespace

std::string rtfFromRichText(const RichText &text, const Progress &progress) {
    return RtfWriter(text, progress).write();
}

} // namespace zolt
