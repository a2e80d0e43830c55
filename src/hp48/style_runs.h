#pragma once

#include "core/codes.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zolt {

/// The style codes of a text that is being edited, and what they do to it.
///
/// As for compileStylesAndPictures(), a code opens a run and the next one of its letter
/// closes it; where runs cross the one that was opened last holds; codes that touch are
/// tried in the order of kStyleCodes, so that an opening one whose turn has passed stays
/// as two characters. Unlike there, codes that come about when others between a mark and
/// a letter are taken out aren't seen, and codes that a broken picture swallows are.
///
/// Positions count the text's characters from 0; whether a line end is one or two is the
/// caller's choice. An edit costs what it changes and a step for each thousand codes. The
/// codes behind it are paired anew when they are asked for, and only up to where that
/// makes no difference any more.
class StyleRuns {
public:
    /// Codes are kept in pieces of up to so many.
    explicit StyleRuns(std::size_t pieceSize = 1024) : m_pieceSize(pieceSize) {}

    /// Characters of the text.
    std::size_t size() const { return m_size; }

    /// `removed` characters at `from` have become `inserted`, between the characters
    /// `before` and `behind`, which are zero bytes at the text's start and end. Gives
    /// whether that can change how other characters look: codes came, went or touch it.
    bool replaced(std::size_t from, std::size_t removed, std::string_view inserted, char before, char behind);

    struct Span {
        enum Kind {
            Text,
            /// Codes of a run.
            Codes,
            /// Codes without a partner, which do nothing.
            LoneCodes,
            /// Codes that stay as characters.
            PassedCodes,
        };
        std::size_t begin;
        std::size_t end;
        Kind kind;
        /// Of characters; codes of runs and lone ones have none.
        Style style;

        bool operator==(const Span &) const = default;
    };
    /// What stands between two positions of the text, in order and without gaps; no two
    /// neighbours are alike.
    std::vector<Span> between(std::size_t from, std::size_t to) const;

private:
    /// What the codes in front of a place leave behind.
    struct State {
        /// The numbers in kStyleCodes, each plus 1, of the runs that are open; four bits
        /// each, the lowest for the run that was opened last.
        std::uint32_t open = 0;
        /// The number, plus 1, of the code that was opened last where codes touch.
        std::uint32_t turn = 0;

        bool operator==(const State &) const = default;
        bool isOpen(std::uint32_t letter) const;
        /// The letters of the runs that are open, as bits.
        unsigned letters() const;
        void close(std::uint32_t letter);
        enum Role { Opens, Closes, Stays };
        /// Goes over a code, which touches the code in front of it or doesn't.
        Role pass(std::uint32_t letter, bool touches);
        /// The style of a character in front of codes of the letters `later`.
        Style style(unsigned later) const;
    };
    struct Code {
        /// Of the mark, from the piece's first one.
        std::uint32_t offset;
        /// The number in kStyleCodes.
        std::uint32_t letter;
    };
    struct Piece {
        /// Of the first code's mark.
        std::size_t position = 0;
        std::vector<Code> codes;
        /// A bit for each letter that the codes have.
        unsigned letters = 0;
        /// In front of the first code.
        State before;
    };
    /// A code with its place in the text.
    struct Found {
        std::size_t position;
        std::uint32_t letter;
    };
    /// A code by its piece and its number in there, or the end of all codes.
    struct Place {
        std::size_t piece;
        std::size_t code;

        bool operator==(const Place &) const = default;
    };

    static unsigned bit(std::uint32_t letter) { return 1U << letter; }
    static std::vector<Found> codesIn(std::string_view text, std::size_t position);

    /// The first code whose mark stands at a position or behind it.
    Place firstFrom(std::size_t position) const;
    Place next(Place place) const;
    bool atEnd(Place place) const { return place.piece == m_pieces.size(); }
    Found at(Place place) const;
    std::size_t positionOf(Place place) const;
    /// Moves the codes from a place on by so many characters.
    void move(Place from, std::size_t growth);
    /// Puts codes in the place of others and moves those behind.
    void replaceCodes(Place begin, Place end, std::vector<Found> codes, std::size_t growth);
    std::vector<Piece> piecesOf(const std::vector<Found> &codes) const;
    /// Pieces from `first` on have been put in the place of others, or its codes moved.
    void noteEdited(std::size_t first, std::size_t removed, std::size_t added);

    /// Whether a code touches the one in front of it.
    bool touches(Place place) const;
    /// What the first codes of a piece leave behind, if its own state is right.
    State stateBehind(std::size_t piece, std::size_t codes) const;
    State stateBefore(Place place) const;
    void makeValid(std::size_t piece) const;
    /// Those of the letters `wanted` of which a code stands at a place or behind it.
    unsigned lettersFrom(Place place, unsigned wanted) const;

    std::size_t m_pieceSize;
    std::size_t m_size = 0;
    mutable std::vector<Piece> m_pieces; // none is empty
    /// Up to this piece the states are right. They are made when they are asked for.
    mutable std::size_t m_valid = 0;
    /// Behind this piece each state follows from the one before, right or not.
    mutable std::size_t m_edited = 0;
};

} // namespace zolt
