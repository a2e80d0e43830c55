#include "hp48/source_compiler.h"

#include "core/codes.h"
#include "core/optimise.h"
#include "core/reporter.h"
#include "hp48/quotes.h"
#include "images/image_text.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace zolt {

namespace {

constexpr char kNoStyle = '\0';
constexpr char kQuote = '"';

/// The letter of the style that a font shows.
char letterOfFont(std::string_view font) {
    for (const StyleCode &style : kStyleCodes)
        if (style.font == font)
            return style.letter;
    return kNoStyle;
}

/// Characters of the text, a picture being one.
std::size_t lengthOf(const RichText &text) {
    std::size_t length = (text.paragraphs.size() - 1) * kLineEnd.size();
    for (const Paragraph &paragraph : text.paragraphs)
        for (const Run &run : paragraph.runs)
            length += run.content.picture() ? 1 : run.content.characters().size();
    return length;
}

/// A text with its style codes, and the pictures that stand in it.
struct Coded {
    std::string text;
    struct Picture {
        /// Where in `text` it stands: in front of this byte.
        std::size_t place;
        const RichPicture *picture;
    };
    std::vector<Picture> pictures;
};

/// Puts the codes of the styles into a rich text.
class StyleCoder {
public:
    /// Notes the places if `places` is not null.
    StyleCoder(const RichText &text, const Progress &progress, PlaceMap *places)
        : m_text(text), m_places(places), m_total(lengthOf(text)), m_report(progress, m_total) {
        for (const std::string &font : text.fonts)
            m_letters.push_back(letterOfFont(font));
        m_coded.text.reserve(m_total);
    }

    std::optional<Coded> code() {
        for (const Paragraph &paragraph : m_text.paragraphs) {
            if (&paragraph != &m_text.paragraphs.front())
                endLine();
            for (const Run &run : paragraph.runs)
                if (!append(run))
                    return std::nullopt;
        }
        return std::move(m_coded);
    }

private:
    bool append(const Run &run) {
        goTo(m_letters[run.format.font]);
        notePlace();
        if (const RichPicture *picture = run.content.picture()) {
            m_coded.pictures.push_back({m_coded.text.size(), picture});
            ++m_done;
        } else {
            const std::string_view characters = run.content.characters();
            m_coded.text += characters;
            m_done += characters.size();
        }
        return m_report.goOn(m_done);
    }

    void endLine() {
        goTo(kNoStyle);
        notePlace();
        m_coded.text += kLineEnd;
        m_done += kLineEnd.size();
    }

    void notePlace() {
        if (m_places)
            m_places->add(m_done, m_coded.text.size());
    }

    /// Closes the style in force and opens another.
    void goTo(char letter) {
        if (letter == m_letter)
            return;
        for (const char code : {m_letter, letter})
            if (code != kNoStyle)
                m_coded.text.append({kRichTextStyleMark, code});
        m_letter = letter;
    }

    const RichText &m_text;
    PlaceMap *m_places;
    std::size_t m_total;
    Reporter m_report;
    std::vector<char> m_letters; // by font
    Coded m_coded;
    char m_letter = kNoStyle;
    std::size_t m_done = 0;
};

std::string cellsOf(const RichPicture &picture, const PictureReader &read, const Progress &progress) {
    DotSurface dots = read(picture);
    if (dots.width() != kSourcePictureWidth || dots.height() != kSourcePictureHeight)
        dots = DotSurface(kSourcePictureWidth, kSourcePictureHeight);
    return LerFigura(dots, progress);
}

/// The coded text with cells for its pictures, each behind a line end of its own. Notes their
/// places if `places` is not null.
std::optional<std::string> withCells(const Coded &coded, const PictureReader &read,
                                     const SourceProgress &progress, PlaceMap *places) {
    Reporter report(progress.text, coded.text.size());
    bool stopped = false;
    const Progress dots = [&](std::size_t step, std::size_t total) {
        stopped = stopped || !goOn(progress.dots, step, total);
        return !stopped;
    };
    std::string text;
    text.reserve(coded.text.size());
    std::size_t done = 0;
    for (std::size_t i = 0; i < coded.pictures.size(); ++i) {
        const auto &[place, picture] = coded.pictures[i];
        text.append(coded.text, done, place - done).append(kLineEnd);
        done = place;
        if (progress.image && !progress.image(i + 1))
            return std::nullopt;
        text += cellsOf(*picture, read, dots);
        if (places)
            places->add(done, text.size());
        if (stopped || !goOn(progress.text, done, coded.text.size()))
            return std::nullopt;
    }
    text.append(coded.text, done);
    return goOn(progress.text, coded.text.size(), coded.text.size()) ? std::optional(std::move(text))
                                                                     : std::nullopt;
}

/// The text with its codes and cells, and no quotes yet. Either map of places may be null: one
/// takes memory at each change of style, the other at each picture.
std::optional<std::string> coded(const RichText &text, const PictureReader &read,
                                 const SourceProgress &progress, PlaceMap *ofCodes, PlaceMap *ofCells) {
    const std::optional<Coded> codes = StyleCoder(text, progress.styles, ofCodes).code();
    auto source = codes ? withCells(*codes, read, progress, ofCells) : std::nullopt;
    return source && (!progress.finish || progress.finish()) ? std::move(source) : std::nullopt;
}

/// A text with nothing to see is a string of the calculator too.
std::string quotedSource(std::string text) {
    if (text.find_first_not_of(' ') == std::string::npos)
        return kQuote + std::move(text) + kQuote;
    return quoted(std::move(text)).text;
}

std::string exchangeMarks(std::string text, char from, char to) {
    for (std::size_t i = text.find(from); i < text.size(); i = text.find(from, i + 1))
        if (i + 1 < text.size() && styleOfLetter(text[i + 1]))
            text[i] = to;
    return text;
}

} // namespace

std::optional<std::string> compileSource(const RichText &text, SourceKind kind, const PictureReader &read,
                                         const SourceProgress &progress) {
    auto source = coded(text, read, progress, nullptr, nullptr);
    if (!source)
        return std::nullopt;
    if (kind != SourceKind::Normal)
        source =
            optimiseImages(*source, kind == SourceKind::Total ? Optimisation::Total : Optimisation::Partial);
    return quotedSource(std::move(*source));
}

std::optional<PlacedSource> compilePlacedSource(const RichText &text, const PictureReader &read,
                                                const SourceProgress &progress) {
    PlacedSource placed{{}, std::vector<PlaceMap>(2)};
    auto source = coded(text, read, progress, &placed.places[0], &placed.places[1]);
    if (!source)
        return std::nullopt;
    const bool opens = source->starts_with(kQuote);
    placed.source = quotedSource(std::move(*source));
    if (!opens && placed.source.starts_with(kQuote))
        placed.places.emplace_back().add(0, 1);
    return placed;
}

std::string withStyleMarks(std::string source) {
    return exchangeMarks(std::move(source), kRichTextStyleMark, kStyleMark);
}

std::string withRichTextStyleMarks(std::string text) {
    return exchangeMarks(std::move(text), kStyleMark, kRichTextStyleMark);
}

} // namespace zolt
