#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zolt {

/// A set of bytes for walks over long texts: a look at a table for each byte.
class ByteSet {
public:
    /// `holds(c)` says whether a char is one of the set.
    template <class Holds> explicit constexpr ByteSet(const Holds &holds) {
        for (std::size_t byte = 0; byte < m_holds.size(); ++byte)
            m_holds[byte] = holds(static_cast<char>(byte));
    }

    constexpr bool has(char c) const { return m_holds[static_cast<unsigned char>(c)]; }

    /// The first position from `begin` on whose byte is one of the set, or `end`, which
    /// doesn't lie behind the text's.
    std::size_t find(std::string_view text, std::size_t begin, std::size_t end) const {
        while (begin < end && !has(text[begin]))
            ++begin;
        return begin;
    }

private:
    std::array<bool, 256> m_holds{};
};

} // namespace zolt
