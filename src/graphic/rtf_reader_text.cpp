// How the characters, line ends and cells of an RTF source become text.

#include "graphic/rtf_reading.h"

#include <utility>

namespace zolt {

/// Characters beyond 65535 come in two halves, of which the first shows nothing. Some
/// programs write them in one.
void RtfReader::unicode(int value) {
    const bool isWhole = value > 0xFFFF && value <= 0x10FFFF;
    char32_t unit = isWhole ? static_cast<char32_t>(value) : static_cast<std::uint16_t>(value);
    const char32_t firstHalf = std::exchange(m_firstHalf, 0);
    if (unit >= 0xD800 && unit < 0xDC00) {
        m_firstHalf = unit;
    } else {
        if (firstHalf != 0 && unit >= 0xDC00 && unit < 0xE000)
            unit = 0x10000 + ((firstHalf - 0xD800) << 10) + (unit - 0xDC00);
        appendCharacter(unit);
    }
    m_fallbackLeft = state().fallbackLength;
}

void RtfReader::appendText(std::string_view bytes) {
    if (!isVisible())
        return;
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
    if ((isAscii && m_begun.empty()) || state().fontKind == FontKind::Calculator)
        return append(bytes);
    if (m_begunCodePage != state().codePage)
        endBegunCharacter();
    m_begunCodePage = state().codePage;
    std::string begun = std::exchange(m_begun, {});
    append(m_translations.of(m_begunCodePage).translate(bytes, begun));
    m_begun = std::move(begun);
}

/// A character whose last bytes are missing.
void RtfReader::endBegunCharacter() {
    if (!std::exchange(m_begun, {}).empty())
        append("?");
}

void RtfReader::appendCharacter(char32_t character) {
    if (m_fallbackLeft > 0) {
        --m_fallbackLeft;
        return;
    }
    if (state().destination == RtfDestination::FontTable) {
        // Names are held as bytes of Latin 1.
        const char byte = character < 256 ? static_cast<char>(character) : '?';
        m_fonts.appendToName({&byte, 1});
    } else if (state().destination == RtfDestination::Text) {
        append(bytesInFont(state().fontKind, character));
    }
}

/// Word processors show it only where a line ends, the calculator's fonts always.
void RtfReader::appendSoftHyphen() {
    if (state().fontKind == FontKind::Calculator)
        appendCharacter(U'\u00AD');
    else if (m_fallbackLeft > 0)
        --m_fallbackLeft;
}

/// A CR and the LF behind it end a line, however they were written.
void RtfReader::append(std::string_view bytes) {
    if (!isVisible() || bytes.empty())
        return;
    startContent();
    if (bytes.front() == '\n' && m_builder.takeBack('\r'))
        m_builder.endParagraph();
    else
        m_builder.append(bytes, format());
}

void RtfReader::endParagraph() {
    if (state().destination != RtfDestination::Text || !isVisible())
        return;
    startContent();
    m_builder.endParagraph();
}

void RtfReader::endLineIfBegun() {
    if (!m_builder.paragraphIsEmpty())
        endParagraph();
}

/// A cell's end becomes a tab once another cell follows.
void RtfReader::endCell() {
    if (state().destination != RtfDestination::Text)
        return;
    startContent();
    m_cellEnded = true;
}

void RtfReader::endRow() {
    if (state().destination != RtfDestination::Text)
        return;
    endBegunCharacter();
    m_cellEnded = false;
    m_builder.endParagraph();
}

void RtfReader::startContent() {
    endBegunCharacter();
    separateCells();
}

void RtfReader::separateCells() {
    if (std::exchange(m_cellEnded, false))
        m_builder.append("\t", format());
}

} // namespace zolt
