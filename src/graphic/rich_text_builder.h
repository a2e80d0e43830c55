#pragma once

#include "graphic/rich_text.h"

#include <string_view>

namespace zolt {

/// Puts a rich text together from its start to its end. Neighbours of one format
/// become one run.
class RichTextBuilder {
public:
    /// Characters with no line end in them.
    void append(std::string_view characters, const CharFormat &format);
    void append(RichPicture picture, const CharFormat &format);
    /// Puts this picture in the place of the last one, if that stands at the end.
    void replacePicture(RichPicture picture);
    /// A whole text, whose first paragraph goes on with the one at the end here.
    void append(const RichText &text);
    /// Ends the paragraph and begins the next one.
    void endParagraph();

    bool paragraphIsEmpty() const { return m_text.paragraphs.back().runs.empty(); }
    /// The last character if it is `character` and no picture: takes it away.
    bool takeBack(char character);

    RichText &text() { return m_text; }

private:
    RichText m_text;
};

/// The rich text of a plain one, all of it in `format`: each CR LF begins a new
/// paragraph, every other byte is a character.
RichText richTextFromPlainText(std::string_view plain, const CharFormat &format = {});

} // namespace zolt
