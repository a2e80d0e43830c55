#include "graphic/rtf_reader.h"

#include "core/charset.h"
#include "core/document.h"
#include "graphic/rtf_reading.h"

#include <charconv>
#include <utility>

namespace zolt {

namespace {

/// Groups nested deeper than this share one state, so that a source of nothing but
/// braces takes no memory.
constexpr std::size_t kDeepestGroup = 4096;
constexpr std::size_t kLongestPropertyName = 32;
/// The property that is the text of a drawn one.
constexpr std::string_view kWordArt = "gtextUNICODE";
/// What is kept of a field's instruction: enough for the name of one that is a character.
constexpr std::size_t kLongestInstruction = 32;

/// The character of an instruction like SYMBOL 183 \f "Symbol": a byte of code page 1252,
/// or a Unicode character. 0 for all others.
char32_t symbolOf(std::string_view instruction) {
    constexpr std::string_view kName = "SYMBOL ";
    instruction.remove_prefix(std::min(instruction.find_first_not_of(' '), instruction.size()));
    if (!instruction.starts_with(kName))
        return 0;
    instruction.remove_prefix(kName.size());
    instruction.remove_prefix(std::min(instruction.find_first_not_of(' '), instruction.size()));
    std::uint16_t number = 0;
    std::from_chars(instruction.data(), instruction.data() + instruction.size(), number);
    return number < 256 ? windowsCharacter(static_cast<unsigned char>(number)) : number;
}

} // namespace

RichText RtfReader::read() {
    for (RtfToken token = m_tokens.next(); token.kind != RtfToken::Kind::End; token = m_tokens.next()) {
        if (!m_reporter.goOn(m_tokens.position()))
            return {};
        handle(token);
        m_previous = token.kind;
        const bool closed = m_states.size() == 1 && token.kind == RtfToken::Kind::GroupEnd;
        if (closed)
            break;
    }
    endBegunCharacter();
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
        if (state().destination == RtfDestination::Picture)
            m_picture.bytes += token.text;
        return;
    case RtfToken::Kind::End:
        return;
    }
}

void RtfReader::startGroup() {
    m_fallbackLeft = 0;
    if (m_states.size() == kDeepestGroup)
        ++m_deeper;
    else
        m_states.push_back(m_states.back());
}

void RtfReader::endGroup() {
    m_fallbackLeft = 0;
    if (m_deeper > 0) {
        --m_deeper;
        return;
    }
    if (m_states.size() == 1)
        return;
    const RtfState inner = m_states.back();
    m_states.pop_back();
    if (inner.destination != state().destination)
        leave(inner);
}

void RtfReader::leave(const RtfState &inner) {
    if (inner.destination == RtfDestination::Picture) {
        finishPicture();
    } else if (inner.destination == RtfDestination::FieldInstruction) {
        finishInstruction();
    } else if (inner.destination == RtfDestination::FontTable) {
        m_fonts.endEntry();
        setFont(state().font);
    }
}

void RtfReader::word(const RtfToken &token) {
    const Star star = m_previous == RtfToken::Kind::Symbol ? m_star : Star::None;
    if (skipping())
        return;
    if (const auto found = specialCharacters().find(token.text); found != specialCharacters().end()) {
        appendCharacter(found->second);
        return;
    }
    m_fallbackLeft = 0;
    if (const auto found = destinations().find(token.text); found != destinations().end())
        enter(found->second);
    else if (const auto handler = words().find(token.text);
             handler != words().end() && star != Star::BehindBrace)
        handler->second(*this, token);
    else if (star != Star::None)
        enter(RtfDestination::Skip);
}

void RtfReader::symbol(const RtfToken &token) {
    m_star = Star::None;
    switch (token.text.front()) {
    case '*':
        m_star = m_previous == RtfToken::Kind::GroupStart ? Star::BehindBrace : Star::InText;
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
        appendCharacter(U'\u2011');
        break;
    case '-':
        appendSoftHyphen();
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

void RtfReader::enter(RtfDestination destination) {
    switch (destination) {
    case RtfDestination::PreferredPicture:
        m_preferred.reset();
        state().picturePlace = RtfPicturePlace::Preferred;
        return;
    case RtfDestination::OtherPicture:
        return enterOtherPicture();
    case RtfDestination::ShapePropertyValue:
        if (m_shapeProperty == kWordArt)
            destination = RtfDestination::Text;
        break;
    case RtfDestination::Alternatives:
        if (state().destination != RtfDestination::Text)
            return;
        break;
    case RtfDestination::UnicodeAlternative:
        destination =
            state().destination == RtfDestination::Alternatives ? RtfDestination::Text : RtfDestination::Skip;
        break;
    case RtfDestination::FieldInstruction:
        m_instruction.clear();
        break;
    case RtfDestination::FieldResult:
        if (!state().symbolGiven)
            return;
        destination = RtfDestination::Skip;
        break;
    case RtfDestination::Picture:
        if (!takesShapePicture())
            destination = RtfDestination::Skip;
        m_picture = {};
        m_highDigit = -1;
        break;
    case RtfDestination::Shape:
        m_shape = {};
        break;
    case RtfDestination::ShapePropertyName:
        m_shapeProperty.clear();
        break;
    default:
        break;
    }
    state().destination = destination;
}

bool RtfReader::takesShapePicture() const {
    const RtfDestination around = m_states.back().destination;
    return around == RtfDestination::Text ||
           (around == RtfDestination::ShapePropertyValue && m_shapeProperty == "pib");
}

void RtfReader::enterOtherPicture() {
    const std::optional<RichPicture::Kind> preferred = std::exchange(m_preferred, std::nullopt);
    if (!preferred)
        state().picturePlace = RtfPicturePlace::Other;
    else if (isMetafile(*preferred))
        state().picturePlace = RtfPicturePlace::OtherForFrame;
    else
        state().destination = RtfDestination::Skip;
}

void RtfReader::finishPicture() {
    if (state().destination == RtfDestination::ShapePropertyValue) {
        m_picture.goalWidth = m_shape.width();
        m_picture.goalHeight = m_shape.height();
    }
    std::optional<RichPicture> picture = richPicture(std::exchange(m_picture, {}));
    if (!picture || !isVisible())
        return;
    if (state().picturePlace == RtfPicturePlace::OtherForFrame) {
        if (!isMetafile(picture->kind))
            m_builder.replacePicture(std::move(*picture));
        return;
    }
    if (state().picturePlace == RtfPicturePlace::Preferred)
        m_preferred = picture->kind;
    startContent();
    m_builder.append(std::move(*picture), format());
}

/// An instruction stands beside its result in the group of their field.
void RtfReader::finishInstruction() {
    const char32_t character = symbolOf(m_instruction);
    state().symbolGiven = character != 0;
    if (character != 0)
        appendCharacter(character);
}

void RtfReader::characters(std::string_view bytes) {
    const std::size_t dropped = std::min(bytes.size(), static_cast<std::size_t>(m_fallbackLeft));
    m_fallbackLeft -= static_cast<int>(dropped);
    bytes.remove_prefix(dropped);
    if (bytes.empty())
        return;
    switch (state().destination) {
    case RtfDestination::Text:
        return appendText(bytes);
    case RtfDestination::FontTable:
        return m_fonts.appendToName(bytes);
    case RtfDestination::ColourTable:
        for (std::ptrdiff_t ends = std::count(bytes.begin(), bytes.end(), ';'); ends > 0; --ends)
            m_colours.endEntry();
        return;
    case RtfDestination::Picture:
        return hexDigits(bytes);
    case RtfDestination::ShapePropertyName:
        if (m_shapeProperty.size() < kLongestPropertyName)
            m_shapeProperty += bytes.substr(0, kLongestPropertyName);
        return;
    case RtfDestination::FieldInstruction:
        if (m_instruction.size() < kLongestInstruction)
            m_instruction += bytes.substr(0, kLongestInstruction);
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

void RtfReader::setPlain() {
    state().hidden = false;
    state().deleted = false;
    format() = RtfState{}.format;
    setFont(m_defaultFont);
}

void RtfReader::setFont(int number) {
    if (state().destination == RtfDestination::FontTable) {
        m_fonts.begin(number);
        return;
    }
    state().font = number;
    format().font = m_fonts.index(number);
    state().fontKind = m_fonts.kind(number);
    state().codePage = m_fonts.codePage(number, m_documentCodePage);
}

void RtfReader::setDocumentCodePage(int codePage) {
    m_documentCodePage = readableCodePage(codePage);
    setFont(state().font);
}

void RtfReader::setHalfPoints(int halfPoints) {
    constexpr int kLargest = std::numeric_limits<std::uint16_t>::max();
    if (halfPoints > 0)
        format().halfPoints = static_cast<std::uint16_t>(std::min(halfPoints, kLargest));
}

bool isRtf(std::string_view bytes) {
    return bytes.starts_with("{\\rtf");
}

bool mayBePlainText(std::string_view bytes) {
    // JPEG, GIF, PDF and gzip files may hold no NUL; other kinds always do.
    static constexpr std::string_view kOtherFiles[] = {"\xFF\xD8\xFF", "GIF87a", "GIF89a", "%PDF-",
                                                       "\x1F\x8B\b"};
    const auto begins = [bytes](std::string_view start) { return bytes.starts_with(start); };
    return bytes.find('\0') == std::string_view::npos &&
           std::none_of(std::begin(kOtherFiles), std::end(kOtherFiles), begins);
}

RichText richTextFromRtf(std::string_view rtf, const Progress &progress) {
    if (!isRtf(rtf))
        return richTextFromPlainText(documentFromFile(rtf, progress));
    return RtfReader(rtf, progress).read();
}

} // namespace zolt
