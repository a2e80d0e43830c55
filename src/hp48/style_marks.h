#pragma once

#include "core/codes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <queue>
#include <string_view>
#include <vector>

namespace zolt {

/// A text from which style codes are taken out one after the other, first to last.
///
/// Taking out a code can put the mark in front of it and the letter behind it side
/// by side, which makes them a code in their turn. All codes are looked up at once,
/// also in a text that holds nothing else. Positions count from 0 in the text as it
/// was at first, which is shorter than 4 GiB, and so never move.
class StyleMarks {
public:
    explicit StyleMarks(std::string_view text);

    /// A character that is still there, or the text's end, and the number of marks
    /// in front of it.
    struct Place {
        std::size_t position = 0;
        std::size_t mark = 0;
    };

    bool atEnd(Place place) const { return place.position >= m_text.size(); }
    /// The character at a place; a zero byte at the end.
    char at(Place place) const { return atEnd(place) ? '\0' : m_text[place.position]; }
    /// The place `count` characters further, or the text's end.
    Place advance(Place place, std::size_t count) const;
    /// Whether a line end stands at a place.
    bool lineEndAt(Place place) const { return at(place) == '\r' && at(advance(place, 1)) == '\n'; }
    /// The text between two places as it is now.
    std::string between(Place begin, Place end) const;

    /// Where the next mark at or behind a place stands, or where the text ends.
    std::size_t nextMark(Place place) const { return markPosition(place.mark); }

    /// Takes out the first code at or behind `place` that has the letter of
    /// kStyleCodes[code]. Gives the position of its mark, or nothing if there is no
    /// such code. Whatever stands in front of `place` has been dealt with for good:
    /// later calls must not name an earlier one.
    std::optional<std::size_t> takeFirst(std::size_t code, Place place);

    /// `place` itself, or where the text goes on if its character has been taken out.
    Place settled(Place place) const;

private:
    static constexpr std::uint32_t kPresent = 0xFFFFFFFF;

    /// The codes of one letter that may still stand ahead, by the number of their
    /// mark: those of the text as it was, and those that came about since.
    struct Codes {
        std::vector<std::uint32_t> first;
        std::size_t used = 0;
        std::priority_queue<std::uint32_t, std::vector<std::uint32_t>, std::greater<>> later;
    };

    std::size_t markPosition(std::size_t mark) const {
        return mark < m_marks.size() ? m_marks[mark].position : m_text.size();
    }
    bool isRemoved(std::size_t mark) const {
        return mark < m_marks.size() && m_marks[mark].otherEnd != kPresent;
    }
    std::size_t endOfRun(std::size_t firstMark, std::size_t lastMark) const {
        return m_marks[firstMark].position + 2 * (lastMark - firstMark + 1);
    }
    std::optional<std::uint32_t> firstCode(Codes &codes, Place place);
    void remove(std::uint32_t mark, Place place);
    void noteNewCode(std::uint32_t firstMark, std::size_t end, Place place);

    /// A mark byte. What has been taken out ahead of the reader is kept as runs of
    /// codes that touch, each from the mark that opens it to its last mark. Both
    /// know the other; the marks between them know nothing.
    struct Mark {
        std::uint32_t position;
        std::uint32_t otherEnd;
    };

    std::string_view m_text;
    std::vector<Mark> m_marks;
    std::array<Codes, kStyleCodes.size()> m_codes;
};

} // namespace zolt
