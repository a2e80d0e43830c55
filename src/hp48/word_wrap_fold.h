#pragma once

#include <cstddef>
#include <string_view>

namespace zolt {

/// The columns of the calculator's fold (hp48/fold.h) for a text whose line ends are
/// still to be found: it takes bytes one after the other and counts the cuts that the
/// fold makes in them. A code for double size allows only so many bytes up to the next
/// line end, which is not known yet; the cut is counted once they are used up.
class FoldColumns {
public:
    /// Takes the bytes of `text` from `begin` up to `end`. Those behind are only looked
    /// at, and no code may stand over `end`.
    void take(std::string_view text, std::size_t begin, std::size_t end);

    std::size_t cuts() const { return m_cuts; }
    /// Whether a line end can stand behind what was taken and make no cut itself.
    bool canEndHere() const { return m_taken != m_doubleEnd; }
    /// The columns in use on the shown line.
    std::size_t used() const;

private:
    void takeByte(char character, char next);
    bool wasCutBefore(char character);
    void passCode(char letter);
    void passDoubleCode();

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::size_t m_taken = 0;
    std::size_t m_cuts = 0;
    /// From 1; of the byte to be taken next.
    std::ptrdiff_t m_column = 1;
    /// Whether the last byte took the last column: what follows it decides on the cut.
    bool m_full = false;
    /// Where a code for double size cuts if no line end comes before, counted as
    /// m_taken, and the column that counts on from there.
    std::size_t m_doubleEnd = kNone;
    std::ptrdiff_t m_doubleColumn = 0;
};

} // namespace zolt
