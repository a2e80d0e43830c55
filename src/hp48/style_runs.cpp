#include "hp48/style_runs.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace zolt {

namespace {

constexpr std::size_t kCodeLength = 2;
constexpr unsigned kBitsOfRun = 4;
constexpr std::uint32_t kRunMask = (1U << kBitsOfRun) - 1;

void append(std::vector<StyleRuns::Span> &spans, StyleRuns::Span span) {
    if (span.begin >= span.end)
        return;
    if (!spans.empty() && spans.back().kind == span.kind && spans.back().style == span.style)
        spans.back().end = span.end;
    else
        spans.push_back(span);
}

} // namespace

bool StyleRuns::State::isOpen(std::uint32_t letter) const {
    for (std::uint32_t runs = open; runs != 0; runs >>= kBitsOfRun)
        if ((runs & kRunMask) == letter + 1)
            return true;
    return false;
}

void StyleRuns::State::close(std::uint32_t letter) {
    std::uint32_t later = 0; // bits of the runs that were opened behind it
    while ((open >> later & kRunMask) != letter + 1)
        later += kBitsOfRun;
    const std::uint32_t keep = (std::uint32_t{1} << later) - 1;
    open = (open & keep) | (open >> kBitsOfRun & ~keep);
}

StyleRuns::State::Role StyleRuns::State::pass(std::uint32_t letter, bool touches) {
    if (!touches)
        turn = 0;
    if (isOpen(letter)) {
        close(letter);
        return Closes;
    }
    if (letter + 1 <= turn) {
        turn = 0;
        return Stays;
    }
    open = open << kBitsOfRun | (letter + 1);
    turn = letter + 1;
    return Opens;
}

unsigned StyleRuns::State::letters() const {
    unsigned letters = 0;
    for (std::uint32_t runs = open; runs != 0; runs >>= kBitsOfRun)
        letters |= bit((runs & kRunMask) - 1);
    return letters;
}

Style StyleRuns::State::style(unsigned later) const {
    for (std::uint32_t runs = open; runs != 0; runs >>= kBitsOfRun)
        if (const std::uint32_t letter = (runs & kRunMask) - 1; later & bit(letter))
            return kStyleCodes[letter].style;
    return Style::Plain;
}

std::vector<StyleRuns::Found> StyleRuns::codesIn(std::string_view text, std::size_t position) {
    std::vector<Found> codes;
    for (std::size_t i = text.find(kStyleMark); i != std::string_view::npos && i + 1 < text.size();
         i = text.find(kStyleMark, i + 1))
        if (const StyleCode *code = styleOfLetter(text[i + 1]))
            codes.push_back({position + i, static_cast<std::uint32_t>(code - kStyleCodes.data())});
    return codes;
}

bool StyleRuns::replaced(std::size_t from, std::size_t removed, std::string_view inserted, char before,
                         char behind) {
    const std::size_t context = from > 0 ? 1 : 0;
    const Place first = firstFrom(from - context);
    const Place last = firstFrom(from + removed);
    const bool touchesNext = !atEnd(last) && positionOf(last) == from + removed;

    std::string around(context, before);
    around.append(inserted).append(1, behind);
    std::vector<Found> codes = codesIn(around, from - context);
    const std::size_t growth = inserted.size() - removed; // modulo, as positions are
    m_size += growth;
    if (first == last && codes.empty()) {
        move(last, growth);
        return touchesNext;
    }
    replaceCodes(first, last, std::move(codes), growth);
    return true;
}

void StyleRuns::move(Place from, std::size_t growth) {
    if (atEnd(from))
        return;
    Piece &piece = m_pieces[from.piece];
    if (from.code == 0)
        piece.position += growth;
    for (std::size_t code = from.code; from.code > 0 && code < piece.codes.size(); ++code)
        piece.codes[code].offset += static_cast<std::uint32_t>(growth);
    for (std::size_t later = from.piece + 1; later < m_pieces.size(); ++later)
        m_pieces[later].position += growth;
    noteEdited(from.piece, 0, 0);
}

void StyleRuns::replaceCodes(Place begin, Place end, std::vector<Found> codes, std::size_t growth) {
    // At the border of two pieces the first one grows.
    if (begin.code == 0 && begin.piece > 0)
        begin = {begin.piece - 1, m_pieces[begin.piece - 1].codes.size()};
    std::vector<Found> all;
    for (std::size_t code = 0; code < begin.code; ++code)
        all.push_back(at({begin.piece, code}));
    all.insert(all.end(), codes.begin(), codes.end());
    const std::size_t endPiece = end.piece + (end.code > 0 ? 1 : 0);
    for (std::size_t code = end.code; code > 0 && code < m_pieces[end.piece].codes.size(); ++code) {
        const Found found = at({end.piece, code});
        all.push_back({found.position + growth, found.letter});
    }
    for (std::size_t later = endPiece; later < m_pieces.size(); ++later)
        m_pieces[later].position += growth;

    std::vector<Piece> pieces = piecesOf(all);
    const std::size_t added = pieces.size();
    const std::size_t removed = endPiece - begin.piece;
    const std::size_t kept = std::min(added, removed);
    const auto place = m_pieces.begin() + static_cast<std::ptrdiff_t>(begin.piece);
    const auto middle = pieces.begin() + static_cast<std::ptrdiff_t>(kept);
    const auto behind = std::move(pieces.begin(), middle, place);
    if (added > kept)
        m_pieces.insert(behind, std::make_move_iterator(middle), std::make_move_iterator(pieces.end()));
    else
        m_pieces.erase(behind, behind + static_cast<std::ptrdiff_t>(removed - kept));
    noteEdited(begin.piece, removed, added);
}

std::vector<StyleRuns::Piece> StyleRuns::piecesOf(const std::vector<Found> &codes) const {
    // Pieces that are made of many codes get room to grow.
    const std::size_t most = codes.size() <= m_pieceSize ? m_pieceSize : (m_pieceSize + 1) / 2;
    std::vector<Piece> pieces;
    for (std::size_t begin = 0; begin < codes.size(); begin += most) {
        Piece &piece = pieces.emplace_back();
        piece.position = codes[begin].position;
        piece.codes.reserve(std::min(most, codes.size() - begin));
        for (std::size_t i = begin; i < std::min(begin + most, codes.size()); ++i) {
            piece.codes.push_back(
                {static_cast<std::uint32_t>(codes[i].position - piece.position), codes[i].letter});
            piece.letters |= bit(codes[i].letter);
        }
    }
    return pieces;
}

void StyleRuns::noteEdited(std::size_t first, std::size_t removed, std::size_t added) {
    const auto moved = [&](std::size_t piece) {
        if (piece < first)
            return piece;
        return piece < first + removed ? first + added : piece - removed + added;
    };
    const bool wasRight = m_valid + 1 >= m_pieces.size() - added + removed;
    const std::size_t earlier = wasRight ? 0 : std::max(moved(m_edited), moved(m_valid));
    // The first code behind may touch another one now.
    m_edited = std::max(first + added, earlier);
    m_valid = std::min(m_valid, first > 0 ? first - 1 : 0);
    if (m_valid == 0 && !m_pieces.empty())
        m_pieces.front().before = {};
}

StyleRuns::Place StyleRuns::firstFrom(std::size_t position) const {
    const auto behind = std::partition_point(m_pieces.begin(), m_pieces.end(),
                                             [&](const Piece &piece) { return piece.position < position; });
    if (behind == m_pieces.begin())
        return {0, 0};
    const Piece &piece = *(behind - 1);
    const auto code = std::partition_point(piece.codes.begin(), piece.codes.end(), [&](const Code &each) {
        return piece.position + each.offset < position;
    });
    if (code == piece.codes.end())
        return {static_cast<std::size_t>(behind - m_pieces.begin()), 0};
    return {static_cast<std::size_t>(behind - m_pieces.begin()) - 1,
            static_cast<std::size_t>(code - piece.codes.begin())};
}

StyleRuns::Place StyleRuns::next(Place place) const {
    if (place.code + 1 < m_pieces[place.piece].codes.size())
        return {place.piece, place.code + 1};
    return {place.piece + 1, 0};
}

StyleRuns::Found StyleRuns::at(Place place) const {
    return {positionOf(place), m_pieces[place.piece].codes[place.code].letter};
}

std::size_t StyleRuns::positionOf(Place place) const {
    const Piece &piece = m_pieces[place.piece];
    return piece.position + piece.codes[place.code].offset;
}

bool StyleRuns::touches(Place place) const {
    if (place.code == 0 && place.piece == 0)
        return false;
    const Place before = place.code > 0 ? Place{place.piece, place.code - 1}
                                        : Place{place.piece - 1, m_pieces[place.piece - 1].codes.size() - 1};
    return positionOf(before) + kCodeLength == positionOf(place);
}

StyleRuns::State StyleRuns::stateBehind(std::size_t piece, std::size_t codes) const {
    State state = m_pieces[piece].before;
    for (std::size_t code = 0; code < codes; ++code)
        state.pass(m_pieces[piece].codes[code].letter, touches({piece, code}));
    return state;
}

StyleRuns::State StyleRuns::stateBefore(Place place) const {
    if (m_pieces.empty())
        return {};
    if (!atEnd(place)) {
        makeValid(place.piece);
        return stateBehind(place.piece, place.code);
    }
    makeValid(m_pieces.size() - 1);
    return stateBehind(m_pieces.size() - 1, m_pieces.back().codes.size());
}

void StyleRuns::makeValid(std::size_t piece) const {
    while (m_valid < piece) {
        const State state = stateBehind(m_valid, m_pieces[m_valid].codes.size());
        ++m_valid;
        if (m_valid > m_edited && m_pieces[m_valid].before == state)
            m_valid = m_pieces.size() - 1;
        else
            m_pieces[m_valid].before = state;
    }
}

unsigned StyleRuns::lettersFrom(Place place, unsigned wanted) const {
    unsigned letters = 0;
    for (std::size_t code = place.code; !atEnd(place) && code < m_pieces[place.piece].codes.size(); ++code)
        letters |= bit(m_pieces[place.piece].codes[code].letter);
    for (std::size_t piece = place.piece + 1; piece < m_pieces.size() && (letters & wanted) != wanted;
         ++piece)
        letters |= m_pieces[piece].letters;
    return letters & wanted;
}

std::vector<StyleRuns::Span> StyleRuns::between(std::size_t from, std::size_t to) const {
    const Place first = firstFrom(from > 0 ? from - 1 : 0);
    const Place last = firstFrom(to);
    State state = stateBefore(first);
    std::vector<Found> codes;
    unsigned wanted = state.letters();
    for (Place place = first; !(place == last); place = next(place)) {
        codes.push_back(at(place));
        wanted |= bit(codes.back().letter);
    }
    // The letters of the codes from each one on, and behind the last.
    std::vector<unsigned> later(codes.size() + 1, lettersFrom(last, wanted));
    for (std::size_t i = codes.size(); i-- > 0;)
        later[i] = later[i + 1] | bit(codes[i].letter);

    std::vector<Span> spans;
    std::size_t done = from;
    Place place = first;
    for (std::size_t i = 0; i < codes.size(); ++i, place = next(place)) {
        const Style style = state.style(later[i]);
        append(spans, {done, codes[i].position, Span::Text, style});
        const State::Role role = state.pass(codes[i].letter, touches(place));
        const bool hasPartner = role == State::Closes || later[i + 1] & bit(codes[i].letter);
        const Span::Kind kind = role == State::Stays ? Span::PassedCodes
                                : hasPartner         ? Span::Codes
                                                     : Span::LoneCodes;
        done = std::min(codes[i].position + kCodeLength, to);
        append(spans, {std::max(codes[i].position, from), done, kind,
                       kind == Span::PassedCodes ? style : Style::Plain});
    }
    append(spans, {done, to, Span::Text, state.style(later.back())});
    return spans;
}

} // namespace zolt
