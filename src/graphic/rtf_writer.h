#pragma once

#include "core/byte_sink.h"
#include "core/progress.h"
#include "core/reporter.h"
#include "graphic/font_characters.h"
#include "graphic/rich_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zolt {

/// A rich text as RTF 1.x in code page 1252. Each font stands in the font table
/// under its name, each picture in a group that begins with "{\pict" and holds no
/// other group. Every byte comes back from richTextFromRtf as it was, also
/// when a word processor has read and written the text: outside plain ASCII it is
/// written \'hh, where the font's character for it (font_characters.h) is another than
/// code page 1252's \u, with the byte for programs without Unicode behind it. Colours of the system are
/// written as the automatic colour. Reports bytes of text; when `progress` asks to
/// stop, the result is empty.
std::string rtfFromRichText(const RichText &text, const Progress &progress = {});

/// What a rich text has beside its paragraphs.
struct RtfTables {
    std::vector<std::string> fonts;
    /// Those of its runs, each once; without those of the system.
    std::vector<Colour> colours = {};
};

/// Writes the same from the text's start to its end, for a text that needn't stand in
/// memory whole. Each operation is false once `progress` has asked to stop.
class RtfWriter {
public:
    /// `size` counts the bytes of text and pictures, and one a paragraph.
    RtfWriter(const RtfTables &tables, ByteSink sink, Progress progress = {}, std::size_t size = 0);
    RtfWriter(const RtfWriter &) = delete;
    RtfWriter &operator=(const RtfWriter &) = delete;

    /// Characters with no line end in them.
    bool append(std::string_view characters, const CharFormat &format);
    bool append(const RichPicture &picture, const CharFormat &format);
    /// Ends the paragraph and begins the next one.
    bool endParagraph();
    /// Ends the last paragraph and the text.
    bool finish();

private:
    void writeTables(const RtfTables &tables);
    void writeFormat(const CharFormat &format);
    void number(std::string_view word, long value);
    void flag(std::string_view word, bool before, bool now, bool &changed);
    bool report(std::size_t bytes);

    PieceBuffer m_buffer;
    std::string &m_out;
    Progress m_progress;
    Reporter m_reporter;
    std::vector<FontKind> m_fontKinds;
    /// Entry 0 of the table is the automatic colour.
    std::unordered_map<Colour, std::size_t> m_colourNumbers;
    bool m_paragraphIsEmpty = true;
    std::size_t m_done = 0;
    /// What \plain sets.
    CharFormat m_format{.font = 0, .halfPoints = 24};
};

} // namespace zolt
