#include "graphic/rtf_tables.h"

#include "core/codes.h"

#include <algorithm>
#include <limits>

namespace zolt {

namespace {

constexpr std::size_t kLongestName = 256;

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
    if (m_open && !m_name.empty() && m_names.size() < std::numeric_limits<std::uint16_t>::max()) {
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
    return entry.codePage != 0 ? entry.codePage : codePageOfCharset(entry.charset, documentCodePage);
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
    m_colours.push_back(m_colour);
    m_colour = kWindowText;
}

Colour RtfColourTable::colour(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < m_colours.size() ? m_colours[index] : kWindowText;
}

const RtfTranslations::Table &RtfTranslations::of(int codePage) {
    const auto [found, isNew] = m_tables.try_emplace(codePage);
    if (isNew) {
        for (unsigned code = 0; code < 256; ++code) {
            const auto byte = static_cast<unsigned char>(code);
            const char32_t character = code < 128 ? 0 : characterOfByte(codePage, byte);
            if (character != 0)
                found->second[code] = bytesInFont(FontKind::Foreign, character);
            else
                found->second[code] = code < 128 ? static_cast<char>(byte) : '?';
        }
    }
    return found->second;
}

} // namespace zolt
