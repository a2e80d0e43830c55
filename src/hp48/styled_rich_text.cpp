#include "hp48/styled_rich_text.h"

#include "core/reporter.h"
#include "graphic/rich_text_builder.h"
#include "graphic/rtf_writer.h"
#include "hp48/picture_block.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace zolt {

namespace {

/// The formats of the styles in a rich text, and its fonts: those that are used, in the
/// order of the text.
class Formats {
public:
    explicit Formats(const StyledText &text) {
        m_numbers.fill(kUnknown);
        for (std::size_t i = 0; i < text.spans.size(); ++i) {
            std::uint16_t &number = m_numbers[static_cast<std::size_t>(text.spans[i].style)];
            if (number == kUnknown && hasCharacters(text, i))
                number = m_fonts.fontIndex(fontOfStyle(text.spans[i].style));
        }
    }

    const std::vector<std::string> &fonts() const { return m_fonts.fonts; }

    CharFormat of(Style style) const {
        CharFormat format;
        format.font = m_numbers[static_cast<std::size_t>(style)];
        return format;
    }

private:
    static constexpr std::uint16_t kUnknown = 0xFFFF;

    /// Whether a span holds more than line ends, which need no font.
    static bool hasCharacters(const StyledText &text, std::size_t span) {
        const std::string_view characters = text.characters;
        const std::size_t end = span + 1 < text.spans.size() ? text.spans[span + 1].begin : characters.size();
        const auto isLineEnd = [&](std::size_t i) {
            return characters.substr(i, kLineEnd.size()) == kLineEnd;
        };
        std::size_t i = text.spans[span].begin;
        i += i > 0 && isLineEnd(i - 1) ? 1 : 0; // one that began in the span before
        while (i < end && isLineEnd(i))
            i += kLineEnd.size();
        return i < end;
    }

    /// Of a rich text without paragraphs.
    RichText m_fonts;
    std::array<std::uint16_t, kStyleCount> m_numbers;
};

/// Puts a compiled text into what takes a rich text from start to end: a RichTextBuilder or
/// an RtfWriter. `pictureOf(number)` draws a picture. False if asked to stop.
template <class Target, class PictureOf>
bool putInto(Target &target, const StyledText &text, const Formats &formats, const PictureOf &pictureOf,
             const Progress &progress) {
    PieceReader reader(text);
    Reporter reporter(progress, text.characters.size());
    while (reporter.goOn(reader.position())) {
        const std::size_t found = text.characters.find(kLineEnd, reader.position());
        const std::size_t lineEnd = std::min(found, text.characters.size());
        while (reader.position() < lineEnd) {
            const PieceReader::Piece piece = reader.next(lineEnd);
            const CharFormat format = formats.of(piece.style);
            if (piece.picture)
                target.append(pictureOf(static_cast<std::size_t>(piece.picture - text.pictures.data())),
                              format);
            else
                target.append(std::string_view(text.characters).substr(piece.begin, piece.end - piece.begin),
                              format);
        }
        if (found == std::string::npos)
            return true;
        reader.moveTo(lineEnd + kLineEnd.size());
        target.endParagraph();
    }
    return false;
}

} // namespace

std::optional<RichText> richTextOf(const StyledText &text, std::vector<RichPicture> drawn,
                                   const Progress &progress) {
    const Formats formats(text);
    RichTextBuilder builder;
    builder.text().fonts = formats.fonts();
    builder.text().paragraphs.reserve(
        1 + static_cast<std::size_t>(std::count(text.characters.begin(), text.characters.end(), '\n')));
    const auto pictureOf = [&drawn](std::size_t number) { return std::move(drawn[number]); };
    if (!putInto(builder, text, formats, pictureOf, progress))
        return std::nullopt;
    return std::move(builder.text());
}

void writeRtf(const StyledText &text, const ByteSink &sink) {
    const Formats formats(text);
    RtfWriter writer({formats.fonts()}, sink);
    const auto pictureOf = [&text](std::size_t number) {
        const PictureBlock &block = text.pictures[number];
        return *DesenhoDaFigura(block.cells, {block.columns, block.lines});
    };
    putInto(writer, text, formats, pictureOf, {});
    writer.finish();
}

} // namespace zolt
