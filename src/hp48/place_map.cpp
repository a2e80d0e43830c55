#include "hp48/place_map.h"

#include <algorithm>

namespace zolt {

void PlaceMap::add(std::size_t from, std::size_t to) {
    if (m_stretches.empty() || from - m_stretches.back().from != to - m_stretches.back().to)
        m_stretches.push_back({from, to});
}

std::size_t PlaceMap::mapped(std::size_t place, End in, End out) const {
    // The last stretch that begins at or in front of the place.
    const auto next =
        std::upper_bound(m_stretches.begin(), m_stretches.end(), place,
                         [in](std::size_t wanted, const Stretch &stretch) { return wanted < stretch.*in; });
    const Stretch stretch = next == m_stretches.begin() ? Stretch{} : *std::prev(next);
    const std::size_t there = stretch.*out + (place - stretch.*in);
    return next == m_stretches.end() ? there : std::min(there, (*next).*out);
}

std::size_t PlaceMap::ahead(std::size_t from) const {
    return mapped(from, &Stretch::from, &Stretch::to);
}

std::size_t PlaceMap::back(std::size_t to) const {
    return mapped(to, &Stretch::to, &Stretch::from);
}

std::size_t placeAhead(std::span<const PlaceMap> maps, std::size_t place) {
    for (const PlaceMap &map : maps)
        place = map.ahead(place);
    return place;
}

std::size_t placeBack(std::span<const PlaceMap> maps, std::size_t place) {
    for (auto map = maps.rbegin(); map != maps.rend(); ++map)
        place = map->back(place);
    return place;
}

} // namespace zolt
