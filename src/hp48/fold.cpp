#include "hp48/fold.h"

#include "core/codes.h"
#include "core/reporter.h"

#include <cstddef>

namespace zolt {

namespace {

/// Walks a text and breaks its lines. Positions count from 0, columns from 1.
class Folder {
public:
    Folder(std::string_view text, PlaceMap *places) : m_text(text), m_places(places) {
        m_folded.reserve(text.size() + text.size() / 8);
        notePlace();
    }

    bool atEnd() const { return m_position >= m_text.size(); }
    std::size_t position() const { return m_position; }

    /// Takes the character at the position, and the one behind it if the line
    /// breaks between the two.
    void takeCharacter() {
        passItemsWithoutColumns();
        if (m_column == kColumns && at(m_position + 1) == '\r')
            m_column -= 2;
        if (m_column == kColumns) {
            ++m_position;
            breakLine();
            m_column = 1;
        }
        ++m_column;
        ++m_position;
    }

    std::string finish() {
        m_folded.append(m_text, m_copied);
        return std::move(m_folded);
    }

private:
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
        breakLine();
    }

    /// Where the first line end at or behind the position stands.
    std::size_t nextLineEnd() {
        if (m_lineEnd < m_position || m_lineEnd == std::string_view::npos)
            m_lineEnd = m_text.find(kLineEnd, m_position);
        return m_lineEnd;
    }

    /// Puts a line end in front of the character at the position.
    void breakLine() {
        m_folded.append(m_text, m_copied, m_position - m_copied).append(kLineEnd);
        m_copied = m_position;
        notePlace();
    }

    void notePlace() {
        if (m_places)
            m_places->add(m_copied, m_folded.size());
    }

    std::string_view m_text;
    PlaceMap *m_places;
    std::string m_folded;
    std::size_t m_position = 0;
    std::size_t m_copied = 0;
    std::size_t m_lineEnd = std::string_view::npos;
    std::ptrdiff_t m_column = 1;
};

} // namespace

std::optional<std::string> foldLines(std::string_view text, const Progress &progress, PlaceMap *places) {
    Folder folder(text, places);
    Reporter reporter(progress, text.size());
    while (!folder.atEnd()) {
        if (!reporter.goOn(folder.position()))
            return std::nullopt;
        folder.takeCharacter();
    }
    return folder.finish();
}

} // namespace zolt
