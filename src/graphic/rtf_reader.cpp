#include "graphic/rtf_reader.h"

#include "core/codes.h"
#include "core/document.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_picture.h"
#include "graphic/rtf_tables.h"
#include "graphic/rtf_tokenizer.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zolt {

namespace {

/// Groups nested deeper than this share one state, so that a source of nothing but
/// braces takes no memory.
constexpr std::size_t kDeepestGroup = 4096;
constexpr std::size_t kLongestPropertyName = 32;
constexpr std::size_t kReportEvery = 4096;

/// What becomes of the characters of a group.
enum class Destination {
    Text,
    Skip,
    FontTable,
    ColourTable,
    Picture,
    /// A drawn shape: its text and its picture count, its properties don't.
    Shape,
    ShapePropertyName,
    ShapePropertyValue,
    /// A picture, and behind it the same picture for programs that can't read it.
    PreferredPicture,
    OtherPicture,
};

struct State {
    Destination destination = Destination::Text;
    int font = 0;
    int codePage = kWindowsCodePage;
    /// How many characters stand behind \u for programs without Unicode.
    int fallbackLength = 1;
    bool hidden = false;
    CharFormat format{.font = 0, .halfPoints = 24};
};

/// The edges of a drawn shape, in twips.
struct ShapeEdges {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return distance(left, right); }
    int height() const { return distance(top, bottom); }

private:
    static int distance(std::int64_t from, std::int64_t to) {
        return static_cast<int>(std::clamp<std::int64_t>(to - from, 0, std::numeric_limits<int>::max()));
    }
};

class RtfReader {
public:
    RtfReader(std::string_view rtf, const Progress &progress)
        : m_size(rtf.size()), m_tokens(rtf), m_progress(progress) {}

    RichText read();

private:
    using Handler = void (*)(RtfReader &, const RtfToken &);

    void handle(const RtfToken &token);
    void startGroup();
    void endGroup();
    void leave(const State &inner);
    void word(const RtfToken &token);
    void symbol(const RtfToken &token);
    void characters(std::string_view bytes);
    void hexDigits(std::string_view digits);
    void unicode(int value);
    void enter(Destination destination);
    bool takesShapePicture() const;
    void finishPicture();

    void appendText(std::string_view bytes);
    void appendCharacter(char32_t character);
    void append(std::string_view bytes);
    void endParagraph();
    void endLineIfBegun();
    void endCell();
    void endRow();
    void separateCells();

    void setPlain();
    void setFont(int number);
    void setDocumentCodePage(int codePage);
    void setHalfPoints(int halfPoints);

    State &state() { return m_states.back(); }
    CharFormat &format() { return state().format; }
    bool skipping() const { return m_states.back().destination == Destination::Skip; }

    static const std::unordered_map<std::string_view, Handler> &words();
    static const std::unordered_map<std::string_view, char32_t> &specialCharacters();
    static const std::unordered_map<std::string_view, Destination> &destinations();
    static bool isOn(const RtfToken &token) { return token.parameterOr(1) != 0; }

    std::size_t m_size;
    RtfTokenizer m_tokens;
    const Progress &m_progress;
    RichTextBuilder m_builder;
    RtfFontTable m_fonts;
    RtfColourTable m_colours;
    RtfTranslations m_translations;

    std::vector<State> m_states{State{}};
    /// Groups open beyond kDeepestGroup.
    std::size_t m_deeper = 0;
    int m_defaultFont = 0;
    int m_documentCodePage = kWindowsCodePage;
    /// The next word stands behind \*.
    bool m_optional = false;
    /// Characters still to drop behind \u.
    int m_fallbackLeft = 0;
    bool m_cellEnded = false;

    RtfPicture m_picture;
    int m_highDigit = -1;
    bool m_preferredPictureRead = false;
    ShapeEdges m_shape;
    std::string m_shapeProperty;
};

const std::unordered_map<std::string_view, RtfReader::Handler> &RtfReader::words() {
    using R = RtfReader &;
    using T = const RtfToken &;
    using Kind = RtfPicture::Kind;
    static const std::unordered_map<std::string_view, Handler> table{
        {"ansi", [](R r, T) { r.setDocumentCodePage(kWindowsCodePage); }},
        {"pc", [](R r, T) { r.setDocumentCodePage(437); }},
        {"pca", [](R r, T) { r.setDocumentCodePage(850); }},
        {"ansicpg", [](R r, T t) { r.setDocumentCodePage(t.parameterOr(kWindowsCodePage)); }},
        {"deff", [](R r, T t) { r.setFont(r.m_defaultFont = t.parameterOr(0)); }},
        {"uc", [](R r, T t) { r.state().fallbackLength = std::clamp(t.parameterOr(1), 0, 255); }},
        {"u", [](R r, T t) { r.unicode(t.parameterOr(0)); }},

        {"f", [](R r, T t) { r.setFont(t.parameterOr(0)); }},
        {"fcharset", [](R r, T t) { r.m_fonts.setCharset(t.parameterOr(1)); }},
        {"cpg", [](R r, T t) { r.m_fonts.setCodePage(t.parameterOr(0)); }},
        {"red", [](R r, T t) { r.m_colours.setRed(t.parameterOr(0)); }},
        {"green", [](R r, T t) { r.m_colours.setGreen(t.parameterOr(0)); }},
        {"blue", [](R r, T t) { r.m_colours.setBlue(t.parameterOr(0)); }},

        {"plain", [](R r, T) { r.setPlain(); }},
        {"fs", [](R r, T t) { r.setHalfPoints(t.parameterOr(24)); }},
        {"cf", [](R r, T t) { r.format().colour = r.m_colours.colour(t.parameterOr(0)); }},
        {"b", [](R r, T t) { r.format().bold = isOn(t); }},
        {"i", [](R r, T t) { r.format().italic = isOn(t); }},
        {"ul", [](R r, T t) { r.format().underline = isOn(t); }},
        {"uld", [](R r, T t) { r.format().underline = isOn(t); }},
        {"uldb", [](R r, T t) { r.format().underline = isOn(t); }},
        {"uldash", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulth", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulw", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulwave", [](R r, T t) { r.format().underline = isOn(t); }},
        {"ulnone", [](R r, T) { r.format().underline = false; }},
        {"strike", [](R r, T t) { r.format().strikeThru = isOn(t); }},
        {"striked", [](R r, T t) { r.format().strikeThru = isOn(t); }},
        {"v", [](R r, T t) { r.state().hidden = isOn(t); }},

        {"par", [](R r, T) { r.endParagraph(); }},
        {"line", [](R r, T) { r.endParagraph(); }},
        {"sect", [](R r, T) { r.endLineIfBegun(); }},
        {"page", [](R r, T) { r.endLineIfBegun(); }},
        {"column", [](R r, T) { r.endLineIfBegun(); }},
        {"cell", [](R r, T) { r.endCell(); }},
        {"nestcell", [](R r, T) { r.endCell(); }},
        {"row", [](R r, T) { r.endRow(); }},
        {"nestrow", [](R r, T) { r.endRow(); }},

        {"pngblip", [](R r, T) { r.m_picture.kind = Kind::Png; }},
        {"jpegblip", [](R r, T) { r.m_picture.kind = Kind::Jpeg; }},
        {"dibitmap", [](R r, T) { r.m_picture.kind = Kind::Dib; }},
        {"wmetafile", [](R r, T) { r.m_picture.kind = Kind::Metafile; }},
        {"picw", [](R r, T t) { r.m_picture.width = t.parameter; }},
        {"pich", [](R r, T t) { r.m_picture.height = t.parameter; }},
        {"picwgoal", [](R r, T t) { r.m_picture.goalWidth = t.parameter; }},
        {"pichgoal", [](R r, T t) { r.m_picture.goalHeight = t.parameter; }},
        {"picscalex", [](R r, T t) { r.m_picture.scaleX = t.parameterOr(100); }},
        {"picscaley", [](R r, T t) { r.m_picture.scaleY = t.parameterOr(100); }},
        {"shpleft", [](R r, T t) { r.m_shape.left = t.parameter; }},
        {"shptop", [](R r, T t) { r.m_shape.top = t.parameter; }},
        {"shpright", [](R r, T t) { r.m_shape.right = t.parameter; }},
        {"shpbottom", [](R r, T t) { r.m_shape.bottom = t.parameter; }},
    };
    return table;
}

const std::unordered_map<std::string_view, char32_t> &RtfReader::specialCharacters() {
    static const std::unordered_map<std::string_view, char32_t> table{
        {"tab", U'\t'},        {"emdash", U'\u2014'}, {"endash", U'\u2013'},    {"bullet", U'\u2022'},
        {"lquote", U'\u2018'}, {"rquote", U'\u2019'}, {"ldblquote", U'\u201C'}, {"rdblquote", U'\u201D'},
        {"emspace", U' '},     {"enspace", U' '},     {"qmspace", U' '},
    };
    return table;
}

const std::unordered_map<std::string_view, Destination> &RtfReader::destinations() {
    static const std::unordered_map<std::string_view, Destination> table{
        {"fonttbl", Destination::FontTable},
        {"colortbl", Destination::ColourTable},
        {"pict", Destination::Picture},
        {"shppict", Destination::PreferredPicture},
        {"nonshppict", Destination::OtherPicture},
        {"shpinst", Destination::Shape},
        {"shptxt", Destination::Text},
        {"sn", Destination::ShapePropertyName},
        {"sv", Destination::ShapePropertyValue},
        // The shape again, for programs that draw no shapes.
        {"shprslt", Destination::Skip},
        {"stylesheet", Destination::Skip},
        {"info", Destination::Skip},
        {"header", Destination::Skip},
        {"headerl", Destination::Skip},
        {"headerr", Destination::Skip},
        {"headerf", Destination::Skip},
        {"footer", Destination::Skip},
        {"footerl", Destination::Skip},
        {"footerr", Destination::Skip},
        {"footerf", Destination::Skip},
        {"footnote", Destination::Skip},
        {"annotation", Destination::Skip},
        {"fldinst", Destination::Skip},
        {"filetbl", Destination::Skip},
        {"revtbl", Destination::Skip},
        {"listtable", Destination::Skip},
        {"listoverridetable", Destination::Skip},
        {"objclass", Destination::Skip},
        {"objname", Destination::Skip},
        {"objdata", Destination::Skip},
        {"tc", Destination::Skip},
        {"tcn", Destination::Skip},
        {"xe", Destination::Skip},
        {"rxe", Destination::Skip},
        {"txe", Destination::Skip},
        {"bkmkstart", Destination::Skip},
        {"bkmkend", Destination::Skip},
        {"ftnsep", Destination::Skip},
        {"ftnsepc", Destination::Skip},
        {"ftncn", Destination::Skip},
        {"aftnsep", Destination::Skip},
        {"aftnsepc", Destination::Skip},
        {"aftncn", Destination::Skip},
        {"template", Destination::Skip},
        {"private", Destination::Skip},
    };
    return table;
}

RichText RtfReader::read() {
    std::size_t reported = 0;
    for (RtfToken token = m_tokens.next(); token.kind != RtfToken::Kind::End; token = m_tokens.next()) {
        if (m_tokens.position() - reported >= kReportEvery) {
            reported = m_tokens.position();
            if (!goOn(m_progress, reported, m_size))
                return {};
        }
        handle(token);
        const bool closed = m_states.size() == 1 && token.kind == RtfToken::Kind::GroupEnd;
        if (closed)
            break;
    }
    RichText &text = m_builder.text();
    if (m_builder.paragraphIsEmpty() && text.paragraphs.size() > 1)
        text.paragraphs.pop_back();
    m_fonts.endEntry();
    text.fonts = m_fonts.takeNames();
    return std::move(text);
}

void RtfReader::handle(const RtfToken &token) {
    switch (token.kind) {
    case RtfToken::Kind::GroupStart:
        return startGroup();
    case RtfToken::Kind::GroupEnd:
        return endGroup();
    case RtfToken::Kind::Word:
        return word(token);
    case RtfToken::Kind::Symbol:
        return symbol(token);
    case RtfToken::Kind::Byte: {
        const char byte = static_cast<char>(token.parameter);
        return characters({&byte, 1});
    }
    case RtfToken::Kind::Text:
        return characters(token.text);
    case RtfToken::Kind::Binary:
        if (state().destination == Destination::Picture)
            m_picture.bytes += token.text;
        return;
    case RtfToken::Kind::End:
        return;
    }
}

void RtfReader::startGroup() {
    m_fallbackLeft = 0;
    m_optional = false;
    if (m_states.size() == kDeepestGroup)
        ++m_deeper;
    else
        m_states.push_back(m_states.back());
}

void RtfReader::endGroup() {
    m_fallbackLeft = 0;
    m_optional = false;
    if (m_deeper > 0) {
        --m_deeper;
        return;
    }
    if (m_states.size() == 1)
        return;
    const State inner = m_states.back();
    m_states.pop_back();
    if (inner.destination != state().destination)
        leave(inner);
}

void RtfReader::leave(const State &inner) {
    if (inner.destination == Destination::Picture) {
        finishPicture();
    } else if (inner.destination == Destination::FontTable) {
        m_fonts.endEntry();
        setFont(state().font);
    }
}

void RtfReader::word(const RtfToken &token) {
    const bool optional = std::exchange(m_optional, false);
    if (skipping())
        return;
    if (const auto found = specialCharacters().find(token.text); found != specialCharacters().end()) {
        appendCharacter(found->second);
        return;
    }
    m_fallbackLeft = 0;
    if (const auto found = destinations().find(token.text); found != destinations().end())
        enter(found->second);
    else if (optional)
        enter(Destination::Skip);
    else if (const auto handler = words().find(token.text); handler != words().end())
        handler->second(*this, token);
}

void RtfReader::symbol(const RtfToken &token) {
    switch (token.text.front()) {
    case '*':
        m_optional = true;
        break;
    case '\\':
    case '{':
    case '}':
        characters(token.text);
        break;
    case '~':
        appendCharacter(U'\u00A0');
        break;
    case '_':
        appendCharacter(U'-');
        break;
    case '\t':
        appendCharacter(U'\t');
        break;
    case '\r':
    case '\n':
        endParagraph();
        break;
    default:
        break;
    }
}

void RtfReader::enter(Destination destination) {
    switch (destination) {
    case Destination::PreferredPicture:
        m_preferredPictureRead = false;
        return;
    case Destination::OtherPicture:
        if (!std::exchange(m_preferredPictureRead, false))
            return;
        destination = Destination::Skip;
        break;
    case Destination::Picture:
        if (!takesShapePicture())
            destination = Destination::Skip;
        m_picture = {};
        m_highDigit = -1;
        break;
    case Destination::Shape:
        m_shape = {};
        break;
    case Destination::ShapePropertyName:
        m_shapeProperty.clear();
        break;
    default:
        break;
    }
    state().destination = destination;
}

bool RtfReader::takesShapePicture() const {
    const Destination around = m_states.back().destination;
    return around == Destination::Text ||
           (around == Destination::ShapePropertyValue && m_shapeProperty == "pib");
}

void RtfReader::finishPicture() {
    if (state().destination == Destination::ShapePropertyValue) {
        m_picture.goalWidth = m_shape.width();
        m_picture.goalHeight = m_shape.height();
    }
    std::optional<RichPicture> picture = richPicture(std::exchange(m_picture, {}));
    if (!picture || state().hidden)
        return;
    m_preferredPictureRead = true;
    separateCells();
    m_builder.append(std::move(*picture), format());
}

void RtfReader::characters(std::string_view bytes) {
    const std::size_t dropped = std::min(bytes.size(), static_cast<std::size_t>(m_fallbackLeft));
    m_fallbackLeft -= static_cast<int>(dropped);
    bytes.remove_prefix(dropped);
    if (bytes.empty())
        return;
    switch (state().destination) {
    case Destination::Text:
        return appendText(bytes);
    case Destination::FontTable:
        return m_fonts.appendToName(bytes);
    case Destination::ColourTable:
        for (std::ptrdiff_t ends = std::count(bytes.begin(), bytes.end(), ';'); ends > 0; --ends)
            m_colours.endEntry();
        return;
    case Destination::Picture:
        return hexDigits(bytes);
    case Destination::ShapePropertyName:
        if (m_shapeProperty.size() < kLongestPropertyName)
            m_shapeProperty += bytes.substr(0, kLongestPropertyName);
        return;
    default:
        return;
    }
}

void RtfReader::hexDigits(std::string_view digits) {
    for (const char c : digits) {
        const int value = rtfHexValue(c);
        if (value < 0)
            continue;
        if (m_highDigit < 0) {
            m_highDigit = value;
            continue;
        }
        m_picture.bytes += static_cast<char>(m_highDigit * 16 + value);
        m_highDigit = -1;
    }
}

/// Characters beyond 65535 come as two values; the first of them shows nothing.
void RtfReader::unicode(int value) {
    const char32_t unit = static_cast<std::uint16_t>(value);
    const bool firstOfTwo = unit >= 0xD800 && unit < 0xDC00;
    const bool ofSymbolFont = unit >= 0xF000 && unit <= 0xF0FF;
    if (!firstOfTwo)
        appendCharacter(ofSymbolFont ? unit - 0xF000 : unit);
    m_fallbackLeft = state().fallbackLength;
}

void RtfReader::appendText(std::string_view bytes) {
    if (state().codePage == RtfFontTable::kBytesAsTheyStand) {
        append(bytes);
        return;
    }
    const RtfTranslations::Table &table = m_translations.of(state().codePage);
    std::string translated(bytes);
    for (char &c : translated)
        c = table[static_cast<unsigned char>(c)];
    append(translated);
}

void RtfReader::appendCharacter(char32_t character) {
    if (m_fallbackLeft > 0) {
        --m_fallbackLeft;
        return;
    }
    const char byte = static_cast<char>(byteForUnicode(character));
    if (state().destination == Destination::FontTable)
        m_fonts.appendToName({&byte, 1});
    else if (state().destination == Destination::Text)
        append({&byte, 1});
}

/// A CR and the LF behind it end a line, however they were written.
void RtfReader::append(std::string_view bytes) {
    if (state().hidden)
        return;
    separateCells();
    if (bytes.front() == '\n' && m_builder.takeBack('\r'))
        m_builder.endParagraph();
    else
        m_builder.append(bytes, format());
}

void RtfReader::endParagraph() {
    if (state().destination != Destination::Text || state().hidden)
        return;
    separateCells();
    m_builder.endParagraph();
}

void RtfReader::endLineIfBegun() {
    if (!m_builder.paragraphIsEmpty())
        endParagraph();
}

/// A cell's end becomes a tab once another cell follows.
void RtfReader::endCell() {
    if (state().destination != Destination::Text)
        return;
    separateCells();
    m_cellEnded = true;
}

void RtfReader::endRow() {
    if (state().destination != Destination::Text)
        return;
    m_cellEnded = false;
    m_builder.endParagraph();
}

void RtfReader::separateCells() {
    if (std::exchange(m_cellEnded, false))
        m_builder.append("\t", format());
}

void RtfReader::setPlain() {
    state().hidden = false;
    format() = State{}.format;
    setFont(m_defaultFont);
}

void RtfReader::setFont(int number) {
    if (state().destination == Destination::FontTable) {
        m_fonts.begin(number);
        return;
    }
    state().font = number;
    format().font = m_fonts.index(number);
    state().codePage = m_fonts.codePage(number, m_documentCodePage);
}

void RtfReader::setDocumentCodePage(int codePage) {
    m_documentCodePage = codePage;
    setFont(state().font);
}

void RtfReader::setHalfPoints(int halfPoints) {
    constexpr int kLargest = std::numeric_limits<std::uint16_t>::max();
    if (halfPoints > 0)
        format().halfPoints = static_cast<std::uint16_t>(std::min(halfPoints, kLargest));
}

} // namespace

bool isRtf(std::string_view bytes) {
    return bytes.starts_with("{\\rtf");
}

RichText richTextFromRtf(std::string_view rtf, const Progress &progress) {
    if (!isRtf(rtf))
        return richTextFromPlainText(documentFromFile(rtf, progress));
    return RtfReader(rtf, progress).read();
}

} // namespace zolt
