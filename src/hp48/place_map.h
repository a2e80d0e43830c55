#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zolt {

/// Where the characters of a text stand in another one that was made of it, with some
/// left out and others put in. Positions count from 0; up to the first stretch that is
/// added both texts are alike.
class PlaceMap {
public:
    /// From `from` on, up to the next stretch, characters stand in the same order from
    /// `to` on. Neither ever goes back.
    void add(std::size_t from, std::size_t to);

    /// Where a character of the first text stands in the second; one that was left out
    /// gives the place of what follows.
    std::size_t ahead(std::size_t from) const;
    /// The other way round; one that was put in gives the character in front of which it is.
    std::size_t back(std::size_t to) const;

private:
    struct Stretch {
        std::size_t from = 0;
        std::size_t to = 0;
    };
    using End = std::size_t Stretch::*;

    std::size_t mapped(std::size_t place, End in, End out) const;

    std::vector<Stretch> m_stretches;
};

/// A text was made of another in several steps, one map each, first to last.
std::size_t placeAhead(std::span<const PlaceMap> maps, std::size_t place);
std::size_t placeBack(std::span<const PlaceMap> maps, std::size_t place);

} // namespace zolt
