#include "hp48/fold.h"

#include "core/byte_set.h"
#include "core/codes.h"
#include "core/reporter.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zolt {

namespace {

constexpr std::ptrdiff_t kFirstColumn = 1;

/// What may begin something that takes no column or other than one.
constexpr ByteSet kNotPlain([](char c) { return c == kCellMark || c == kStyleMark || c == '\r'; });

/// Walks a text and calls `onBreak` with each position in front of which a line is
/// broken. Positions count from 0, columns from 1.
template <class OnBreak> class FoldWalk {
public:
    FoldWalk(std::string_view text, std::ptrdiff_t column, OnBreak onBreak)
        : m_text(text), m_onBreak(std::move(onBreak)), m_column(column) {}

    bool atEnd() const { return m_position >= m_text.size(); }
    std::size_t position() const { return m_position; }
    std::ptrdiff_t column() const { return m_column; }

    /// Takes plain characters as far as the line has room for them, then the character at
    /// the position, and the one behind it if the line breaks between the two.
    void takeCharacters() {
        takePlainOnes();
        if (!atEnd())
            takeCharacter();
    }

private:
    /// These only move the column.
    void takePlainOnes() {
        const auto room = static_cast<std::size_t>(std::max<std::ptrdiff_t>(kColumns - m_column, 0));
        const std::size_t most = std::min({room, kBytesBetweenReports, m_text.size() - m_position});
        const std::size_t end = kNotPlain.find(m_text, m_position, m_position + most);
        m_column += static_cast<std::ptrdiff_t>(end - m_position);
        m_position = end;
    }

    void takeCharacter() {
        passItemsWithoutColumns();
        if (m_column == kColumns && at(m_position + 1) == '\r')
            m_column -= 2;
        if (m_column == kColumns) {
            ++m_position;
            m_onBreak(m_position);
            m_column = kFirstColumn;
        }
        ++m_column;
        ++m_position;
    }

    char at(std::size_t position) const { return position < m_text.size() ? m_text[position] : '\0'; }

    /// Each character moves the column by one; what takes no column goes back by
    /// its length beforehand.
    void passItemsWithoutColumns() {
        const char character = m_text[m_position];
        if (character == kCellMark) {
            m_column -= static_cast<std::ptrdiff_t>(kCellLength);
        } else if (character == '\r' && at(m_position + 1) == '\n') {
            m_column = -1;
        } else if (character == kStyleMark) {
            if (const StyleCode *code = styleOfLetter(at(m_position + 1))) {
                if (code->style == Style::Double)
                    breakDoubleLine();
                else
                    m_column -= 2;
            }
        }
    }

    /// A code for double size leaves room for 16 characters at column 1, and for
    /// fewer behind other columns; at column 19 it is itself the first behind the
    /// break. Beyond that the break would lie in front of characters already taken:
    /// the ordinary fold alone serves there.
    void breakDoubleLine() {
        constexpr std::ptrdiff_t kCodeAndRoom = kDoubleColumns + 3;
        if (m_column > kCodeAndRoom)
            return;
        const std::size_t end = m_position + static_cast<std::size_t>(kCodeAndRoom - m_column);
        if (nextLineEnd() < end)
            return;
        m_position = end;
        m_onBreak(m_position);
    }

    /// Where the first line end at or behind the position stands.
    std::size_t nextLineEnd() {
        if (m_lineEnd < m_position || m_lineEnd == std::string_view::npos)
            m_lineEnd = m_text.find(kLineEnd, m_position);
        return m_lineEnd;
    }

    std::string_view m_text;
    OnBreak m_onBreak;
    std::size_t m_position = 0;
    std::size_t m_lineEnd = std::string_view::npos;
    std::ptrdiff_t m_column;
};

} // namespace

std::optional<std::string> foldLines(std::string_view text, const Progress &progress, PlaceMap *places) {
    std::string folded;
    folded.reserve(text.size() + text.size() / 8);
    std::size_t copied = 0;
    FoldWalk walk(text, kFirstColumn, [&](std::size_t place) {
        folded.append(text, copied, place - copied).append(kLineEnd);
        copied = place;
        if (places)
            places->add(copied, folded.size());
    });
    Reporter reporter(progress, text.size());
    while (!walk.atEnd()) {
        if (!reporter.goOn(walk.position()))
            return std::nullopt;
        walk.takeCharacters();
    }
    folded.append(text, copied);
    return folded;
}

LineFolds foldsOfLine(std::string_view line, std::ptrdiff_t column) {
    LineFolds folds;
    // Marks without digits take columns back, so that the next fold is further away.
    const auto marks = static_cast<std::size_t>(std::count(line.begin(), line.end(), kCellMark));
    const std::string longer = std::string(line) + std::string(2 * kColumns + kCellLength * marks, ' ');
    FoldWalk walk(longer, column, [&](std::size_t place) { folds.places.push_back(place); });
    while (!walk.atEnd() && (folds.places.empty() || folds.places.back() < line.size()))
        walk.takeCharacters();

    const std::string ended = std::string(line).append(kLineEnd);
    FoldWalk whole(ended, column, [](std::size_t) {});
    while (!whole.atEnd())
        whole.takeCharacters();
    folds.columnBehind = whole.column();
    return folds;
}

std::size_t visibleColumns(std::string_view line) {
    std::size_t columns = 0;
    for (std::size_t i = 0; i < line.size();) {
        if (line[i] == kCellMark) {
            i += kCellLength;
        } else if (line[i] == kStyleMark && i + 1 < line.size() && styleOfLetter(line[i + 1])) {
            i += 2;
        } else {
            ++columns;
            ++i;
        }
    }
    return columns;
}

} // namespace zolt
