#pragma once

#include "hp48/open_runs.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace zolt {

/// What a document shows, one thing after the other, with its place among the bytes.
struct ShownItem {
    enum class Kind { Character, Blank, LineEnd, Picture };
    Kind kind;
    /// Where the item begins with the codes that open a run at it. Codes that close one
    /// there stand in front of this.
    std::size_t lead;
    std::size_t begin;
    /// Behind its own bytes and the codes that close a run there.
    std::size_t end;
    bool isDouble;
    /// Whether a line end put in or taken away at `lead` leaves the pictures as they
    /// are that were read so far: the search for their cells looks beyond them.
    bool isFree;
};

/// Whether a picture goes over a line end.
inline bool spansLines(const ShownItem &item, std::string_view text) {
    return text.substr(item.begin, item.end - item.begin).find(kLineEnd) != std::string_view::npos;
}

/// Reads a document's styles and pictures as the previews do (hp48/styles_and_pictures.h)
/// but leaves its lines as they are. Positions count from 0.
class ShownItems {
public:
    explicit ShownItems(std::string_view text) : m_text(text), m_marks(text), m_ends(text.size()) {}

    std::optional<ShownItem> next();

private:
    ShownItem::Kind kindHere() const;
    void advance(std::size_t count);

    std::string_view m_text;
    StyleMarks m_marks;
    KnownEnds m_ends;
    StyleMarks::Place m_at;
    OpenRuns m_runs;
};

/// What is known of a line while its items are read.
class ShownLine {
public:
    /// Takes an item that belongs to the line, so no line end.
    void take(const ShownItem &item, std::string_view text);
    /// Begins the next line.
    void startNext() { *this = ShownLine(false); }

    bool afterBlank() const { return m_afterBlank; }
    /// Whether a wrap may break the line behind what was taken, at a blank.
    bool canBreak() const { return m_afterBlank && m_hasCharacter && !m_isEntry; }
    /// Whether a wrap may have begun a line with the word read last.
    bool wordCanLead() const { return m_wordHasCharacter && !m_wordIsEntry; }

    ShownLine() : ShownLine(true) {}

private:
    explicit ShownLine(bool isFirst) : m_isFirst(isFirst) {}

    /// The first line of a document makes no menu entry.
    bool m_isFirst;
    bool m_isEmpty = true;
    bool m_isEntry = false;
    bool m_afterBlank = false;
    bool m_hasCharacter = false;
    bool m_inWord = false;
    bool m_wordHasCharacter = false;
    bool m_wordIsEntry = false;
};

} // namespace zolt
