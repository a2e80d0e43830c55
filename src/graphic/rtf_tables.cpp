#include "graphic/rtf_tables.h"

#include "core/codes.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr std::size_t kLongestName = 256;
/// More fonts or colours than any program writes: a source of nothing else takes no memory.
constexpr std::size_t kMostEntries = 65535;

} // namespace

void RtfFontTable::begin(int number) {
    endEntry();
    m_open = true;
    m_number = number;
}

void RtfFontTable::appendToName(std::string_view bytes) {
    for (const char c : bytes) {
        if (c == ';')
            endEntry();
        else if (m_open && m_name.size() < kLongestName && !(m_name.empty() && c == ' '))
            m_name += c;
    }
}

void RtfFontTable::endEntry() {
    if (m_open && !m_name.empty() && m_names.size() < kMostEntries && m_entries.size() < kMostEntries) {
        const auto next = static_cast<std::uint16_t>(m_names.size());
        const auto [found, isNew] = m_indices.try_emplace(m_name, next);
        if (isNew)
            m_names.push_back(m_name);
        m_entry.index = found->second;
        m_entry.kind = fontKind(m_name);
        m_entries[m_number] = m_entry;
    }
    m_open = false;
    m_entry = {};
    m_name.clear();
}

std::uint16_t RtfFontTable::index(int number) const {
    const auto found = m_entries.find(number);
    return found == m_entries.end() ? 0 : found->second.index;
}

FontKind RtfFontTable::kind(int number) const {
    const auto found = m_entries.find(number);
    return found == m_entries.end() ? FontKind::Foreign : found->second.kind;
}

int RtfFontTable::codePage(int number, int documentCodePage) const {
    const auto found = m_entries.find(number);
    if (found == m_entries.end())
        return documentCodePage;
    const Entry &entry = found->second;
    return entry.codePage != 0 ? readableCodePage(entry.codePage)
                               : codePageOfCharset(entry.charset, documentCodePage);
}

std::vector<std::string> RtfFontTable::takeNames() {
    if (m_names.empty())
        m_names.emplace_back(kPlainFont);
    return std::move(m_names);
}

void RtfColourTable::setComponent(int value, int shift) {
    if (m_colour == kWindowText)
        m_colour = 0;
    m_colour &= ~(Colour{255} << shift);
    m_colour |= static_cast<Colour>(std::clamp(value, 0, 255)) << shift;
}

void RtfColourTable::endEntry() {
    if (m_colours.size() < kMostEntries)
        m_colours.push_back(m_colour);
    m_colour = kWindowText;
}

Colour RtfColourTable::colour(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < m_colours.size() ? m_colours[index] : kWindowText;
}

RtfTranslation::RtfTranslation(int codePage) : m_decoder(codePage) {
    for (unsigned code = 0; code < 256; ++code) {
        const auto byte = static_cast<char>(code);
        m_lengths[code] = static_cast<std::uint8_t>(m_decoder.length(static_cast<unsigned char>(code)));
        const char32_t character = code < 128 || m_lengths[code] > 1 ? 0 : m_decoder.character({&byte, 1});
        if (character != 0)
            m_singles[code] = bytesInFont(FontKind::Foreign, character);
        else
            m_singles[code] = code < 128 ? byte : '?';
    }
}

std::string RtfTranslation::translate(std::string_view bytes, std::string &begun) {
    std::string translated;
    translated.reserve(bytes.size());
    for (const char byte : bytes)
        append(byte, begun, translated);
    return translated;
}

/// A sequence that is broken off, or that makes no character with an ASCII one at its
/// end, is one character that there isn't, and what follows stands for itself.
void RtfTranslation::append(char byte, std::string &begun, std::string &out) {
    const auto code = static_cast<unsigned char>(byte);
    if (!begun.empty() && m_decoder.mayFollow(code)) {
        begun += byte;
        if (begun.size() < m_lengths[static_cast<unsigned char>(begun.front())])
            return;
        const char32_t character = m_decoder.character(begun);
        begun.clear();
        out += character != 0 ? bytesInFont(FontKind::Foreign, character) : "?";
        if (character == 0 && code < 128)
            out += byte;
        return;
    }
    if (!begun.empty())
        out += '?';
    begun.clear();
    if (m_lengths[code] > 1)
        begun = byte;
    else
        out += m_singles[code];
}

} // namespace zolt
