#include "graphic/rtf_tables.h"

#include "core/charset.h"
#include "core/codes.h"

#include <algorithm>
#include <limits>

namespace zolt {

namespace {

constexpr std::size_t kLongestName = 256;

bool isCalculatorFont(std::string_view name) {
    return name == kPlainFont || std::any_of(kStyleCodes.begin(), kStyleCodes.end(),
                                             [name](const StyleCode &code) { return code.font == name; });
}

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
        m_entry.ofTheCalculator = isCalculatorFont(m_name);
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

int RtfFontTable::codePage(int number, int documentCodePage) const {
    const auto found = m_entries.find(number);
    if (found == m_entries.end())
        return documentCodePage;
    const Entry &entry = found->second;
    if (entry.ofTheCalculator)
        return kBytesAsTheyStand;
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
    Table &table = m_tables[codePage];
    if (table.empty()) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            const auto itself = static_cast<unsigned char>(byte);
            const bool asItStands = byte < 128 || codePage == RtfFontTable::kBytesAsTheyStand;
            table +=
                static_cast<char>(asItStands ? itself : byteForUnicode(characterOfByte(codePage, itself)));
        }
    }
    return table;
}

unsigned char byteForUnicode(char32_t character) {
    if (character == 0)
        return '?';
    // Code page 1252 goes first: foreign fonts are written in it.
    const auto byte = byteOfWindowsCharacter(character);
    return byte ? *byte : byteOfCharacter(character).value_or('?');
}

} // namespace zolt
