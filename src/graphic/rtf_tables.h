#pragma once

#include "graphic/code_page_decoder.h"
#include "graphic/code_pages.h"
#include "graphic/font_characters.h"
#include "graphic/rich_text.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zolt {

/// The font table of an RTF source: from the numbers that the text uses to names.
class RtfFontTable {
public:
    /// While the table is read: begins the entry of a number, tells about it, ends it.
    void begin(int number);
    void setCharset(int charset) { m_entry.charset = charset; }
    void setCodePage(int codePage) { m_entry.codePage = codePage; }
    void appendToName(std::string_view bytes);
    void endEntry();

    /// The index of a font's name in names(); 0 for a number without an entry.
    std::uint16_t index(int number) const;
    /// A number without an entry names no font of the calculator, though the text is
    /// shown in one: what wrote it means characters.
    FontKind kind(int number) const;
    /// How bytes above 127 are read in a foreign font.
    int codePage(int number, int documentCodePage) const;

    /// The names in the order of the table, each once.
    std::vector<std::string> takeNames();

private:
    struct Entry {
        std::uint16_t index = 0;
        int charset = kDefaultCharset;
        int codePage = 0;
        FontKind kind = FontKind::Foreign;
    };
    static constexpr int kDefaultCharset = 1;

    bool m_open = false;
    int m_number = 0;
    Entry m_entry;
    std::string m_name;
    std::unordered_map<int, Entry> m_entries;
    std::unordered_map<std::string, std::uint16_t> m_indices;
    std::vector<std::string> m_names;
};

/// The colour table: entries that set no component are the automatic colour.
class RtfColourTable {
public:
    void setRed(int value) { setComponent(value, 0); }
    void setGreen(int value) { setComponent(value, 8); }
    void setBlue(int value) { setComponent(value, 16); }
    void endEntry();
    Colour colour(int number) const;

private:
    void setComponent(int value, int shift);

    Colour m_colour = kWindowText;
    std::vector<Colour> m_colours;
};

/// How the characters of a code page are to be stored in a foreign font.
class RtfTranslation {
public:
    explicit RtfTranslation(int codePage);

    /// What bytes become that stand behind those of `begun`, and "?" for each character
    /// that there isn't. The first bytes of a character whose others are still to come
    /// are left in `begun`.
    std::string translate(std::string_view bytes, std::string &begun);

private:
    void append(char byte, std::string &begun, std::string &out);

    CodePageDecoder m_decoder;
    /// What each byte becomes that is a character; of others only the length counts.
    std::array<std::string, 256> m_singles;
    std::array<std::uint8_t, 256> m_lengths{};
};

/// The translations that a text needs, by code page.
class RtfTranslations {
public:
    RtfTranslation &of(int codePage) { return m_pages.try_emplace(codePage, codePage).first->second; }

private:
    std::unordered_map<int, RtfTranslation> m_pages;
};

} // namespace zolt
