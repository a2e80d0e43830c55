#include "hp48/picture_chain.h"

#include "core/codes.h"

namespace zolt {

StyleMarks::Place endOfPicture(const StyleMarks &marks, StyleMarks::Place begin, KnownEnds &ends) {
    StyleMarks::Place lastCell = begin;
    StyleMarks::Place place = begin;
    std::vector<std::size_t> lineEnds;
    while (true) {
        if (marks.at(place) == kCellMark) {
            lastCell = place;
            lineEnds.clear();
            place = marks.advance(place, kCellLength);
        } else if (marks.lineEndAt(place) && !ends.has(place.position)) {
            lineEnds.push_back(place.position);
            place = marks.advance(place, kLineEnd.size() + kCellLength);
        } else {
            break;
        }
    }
    ends.add(lineEnds, marks.advance(place, 1).position);
    return marks.advance(lastCell, kCellLength);
}

} // namespace zolt
