#include "graphic/rtf_writer.h"

#include "core/byte_set.h"
#include "core/charset.h"
#include "graphic/rtf_picture.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <unordered_set>
#include <utility>

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

/// How the bytes are written in fonts of one kind.
struct WrittenForms {
    std::array<std::string, 256> forms;
    /// Those that are written other than as themselves.
    ByteSet others;
};

WrittenForms makeWrittenForms(FontKind kind) {
    std::array<std::string, 256> forms;
    for (std::size_t byte = 0; byte < forms.size(); ++byte)
        forms[byte] = writtenForm(kind, static_cast<unsigned char>(byte));
    const auto isOther = [&](char c) {
        return forms[static_cast<unsigned char>(c)] != std::string_view(&c, 1);
    };
    const ByteSet others(isOther);
    return {std::move(forms), others};
}

const WrittenForms &writtenForms(FontKind kind) {
    static const WrittenForms calculator = makeWrittenForms(FontKind::Calculator);
    static const WrittenForms foreign = makeWrittenForms(FontKind::Foreign);
    return kind == FontKind::Calculator ? calculator : foreign;
}

void appendWritten(std::string &out, std::string_view characters, const WrittenForms &written) {
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const std::size_t other = written.others.find(characters, i, characters.size());
        out.append(characters, i, other - i);
        if (other < characters.size())
            out += written.forms[static_cast<unsigned char>(characters[other])];
        i = other;
    }
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

std::vector<Colour> coloursOf(const RichText &text) {
    std::vector<Colour> colours;
    std::unordered_set<Colour> known;
    for (const Paragraph &paragraph : text.paragraphs)
        for (const Run &run : paragraph.runs)
            if (!isSystemColour(run.format.colour) && known.insert(run.format.colour).second)
                colours.push_back(run.format.colour);
    return colours;
}

bool writeRuns(RtfWriter &writer, const Paragraph &paragraph) {
    return std::all_of(paragraph.runs.begin(), paragraph.runs.end(), [&writer](const Run &run) {
        const RichPicture *picture = run.content.picture();
        return picture ? writer.append(*picture, run.format)
                       : writer.append(run.content.characters(), run.format);
    });
}

bool writeParagraphs(RtfWriter &writer, const RichText &text) {
    for (const Paragraph &paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front() && !writer.endParagraph())
            return false;
        if (!writeRuns(writer, paragraph))
            return false;
    }
    return writer.finish();
}

} // namespace

RtfWriter::RtfWriter(const RtfTables &tables, ByteSink sink, Progress progress, std::size_t size)
    : m_buffer(std::move(sink)),
      m_out(m_buffer.bytes()),
      m_progress(std::move(progress)),
      m_reporter(m_progress, size) {
    for (const std::string &font : tables.fonts)
        m_fontKinds.push_back(fontKind(font));
    m_out += "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1";
    writeTables(tables);
    m_out += "\\pard\\plain ";
}

void RtfWriter::writeTables(const RtfTables &tables) {
    m_out += "{\\fonttbl";
    for (std::size_t i = 0; i < tables.fonts.size(); ++i) {
        number("{\\f", static_cast<long>(i));
        m_out += "\\fnil\\fcharset0 ";
        for (const char c : tables.fonts[i]) {
            if (c != ';')
                appendByte(m_out, c);
        }
        m_out += ";}";
    }
    m_out += "}\r\n{\\colortbl ;";
    for (const Colour colour : tables.colours) {
        m_colourNumbers.emplace(colour, m_colourNumbers.size() + 1);
        number("\\red", colour & 255);
        number("\\green", colour >> 8 & 255);
        number("\\blue", colour >> 16 & 255);
        m_out += ';';
    }
    m_out += "}\r\n";
}

bool RtfWriter::report(std::size_t bytes) {
    m_buffer.handOnIfLarge();
    m_done += bytes;
    return m_reporter.goOn(m_done);
}

bool RtfWriter::endParagraph() {
    m_out += "\\par\r\n";
    m_paragraphIsEmpty = true;
    return report(1);
}

bool RtfWriter::finish() {
    // Readers take a \par at the very end as the end of the last paragraph, so an
    // empty last paragraph needs one of its own.
    if (m_paragraphIsEmpty)
        m_out += "\\par\r\n";
    m_out += "}\r\n";
    m_buffer.handOn();
    return report(1);
}

void RtfWriter::number(std::string_view word, long value) {
    (m_out += word) += std::to_string(value);
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

bool RtfWriter::append(std::string_view characters, const CharFormat &format) {
    m_paragraphIsEmpty = false;
    writeFormat(format);
    const WrittenForms &written = writtenForms(m_fontKinds[format.font]);
    for (std::size_t i = 0; i < characters.size(); i += kBytesBetweenReports) {
        const std::string_view piece = characters.substr(i, kBytesBetweenReports);
        appendWritten(m_out, piece, written);
        if (!report(piece.size()))
            return false;
    }
    return true;
}

bool RtfWriter::append(const RichPicture &picture, const CharFormat &format) {
    m_paragraphIsEmpty = false;
    writeFormat(format);
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

std::string rtfFromRichText(const RichText &text, const Progress &progress) {
    const std::size_t size = sizeOf(text);
    std::string rtf;
    rtf.reserve(size + size / 2 + 512);
    const auto sink = [&rtf](std::string_view piece) { rtf.append(piece); };
    RtfWriter writer({text.fonts, coloursOf(text)}, sink, progress, size);
    if (!writeParagraphs(writer, text))
        return {};
    return rtf;
}

} // namespace zolt
