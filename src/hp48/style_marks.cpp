#include "hp48/style_marks.h"

#include <algorithm>
#include <string>

namespace zolt {

namespace {

std::optional<std::size_t> codeOfLetter(char letter) {
    const StyleCode *code = styleOfLetter(letter);
    if (!code)
        return std::nullopt;
    return static_cast<std::size_t>(code - kStyleCodes.data());
}

} // namespace

StyleMarks::StyleMarks(std::string_view text) : m_text(text) {
    m_marks.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), kStyleMark)));
    for (std::size_t i = text.find(kStyleMark); i != std::string_view::npos;
         i = text.find(kStyleMark, i + 1)) {
        if (i + 1 < text.size())
            if (const auto code = codeOfLetter(text[i + 1]))
                m_codes[*code].first.push_back(static_cast<std::uint32_t>(m_marks.size()));
        m_marks.push_back({static_cast<std::uint32_t>(i), kPresent});
    }
}

StyleMarks::Place StyleMarks::settled(Place place) const {
    if (!isRemoved(place.mark) || markPosition(place.mark) != place.position)
        return place;
    const std::size_t lastMark = m_marks[place.mark].otherEnd;
    return {endOfRun(place.mark, lastMark), lastMark + 1};
}

StyleMarks::Place StyleMarks::advance(Place place, std::size_t count) const {
    while (count > 0 && !atEnd(place)) {
        const std::size_t mark = nextMark(place);
        if (place.position == mark) {
            place = {mark + 1, place.mark + 1};
            --count;
        } else {
            const std::size_t step = std::min(count, mark - place.position);
            place.position += step;
            count -= step;
        }
        place = settled(place);
    }
    return place;
}

std::string StyleMarks::between(Place begin, Place end) const {
    std::string text;
    while (begin.position < end.position) {
        const std::size_t mark = std::max(nextMark(begin), begin.position + 1);
        const std::size_t stop = std::min(mark, end.position);
        text.append(m_text, begin.position, stop - begin.position);
        begin = advance(begin, stop - begin.position);
    }
    return text;
}

std::optional<std::size_t> StyleMarks::takeFirst(std::size_t code, Place place) {
    const auto mark = firstCode(m_codes[code], place);
    if (!mark)
        return std::nullopt;
    remove(*mark, place);
    return m_marks[*mark].position;
}

std::optional<std::uint32_t> StyleMarks::firstCode(Codes &codes, Place place) {
    while (codes.used < codes.first.size() && codes.first[codes.used] < place.mark)
        ++codes.used;
    while (!codes.later.empty() && codes.later.top() < place.mark)
        codes.later.pop();
    const bool hasFirst = codes.used < codes.first.size();
    if (!codes.later.empty() && (!hasFirst || codes.later.top() < codes.first[codes.used])) {
        const std::uint32_t mark = codes.later.top();
        codes.later.pop();
        return mark;
    }
    if (!hasFirst)
        return std::nullopt;
    return codes.first[codes.used++];
}

void StyleMarks::remove(std::uint32_t mark, Place place) {
    std::uint32_t first = mark;
    std::uint32_t last = mark;
    // The code's letter may stand behind codes that were taken out from between.
    if (isRemoved(mark + 1) && markPosition(mark + 1) == m_marks[mark].position + 1)
        last = m_marks[mark + 1].otherEnd;
    m_marks[mark].otherEnd = mark;
    const std::size_t end = endOfRun(first, last);
    if (isRemoved(last + 1) && markPosition(last + 1) == end)
        last = m_marks[last + 1].otherEnd;
    if (first > place.mark && isRemoved(first - 1)) {
        const std::uint32_t before = m_marks[first - 1].otherEnd;
        if (endOfRun(before, first - 1) == m_marks[first].position)
            first = before;
    }
    m_marks[first].otherEnd = last;
    m_marks[last].otherEnd = first;
    noteNewCode(first, endOfRun(first, last), place);
}

void StyleMarks::noteNewCode(std::uint32_t firstMark, std::size_t end, Place place) {
    if (firstMark <= place.mark || end >= m_text.size())
        return;
    if (m_marks[firstMark - 1].position + 1 != m_marks[firstMark].position)
        return;
    if (const auto code = codeOfLetter(m_text[end]))
        m_codes[*code].later.push(firstMark - 1);
}

} // namespace zolt
