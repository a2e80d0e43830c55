#include "graphic/rich_text_builder.h"

#include "core/codes.h"

#include <utility>

namespace zolt {

void RichTextBuilder::append(std::string_view characters, const CharFormat &format) {
    if (characters.empty())
        return;
    std::vector<Run> &runs = m_text.paragraphs.back().runs;
    if (!runs.empty() && runs.back().format == format && !runs.back().content.picture())
        runs.back().content.append(characters);
    else
        runs.emplace_back(format, characters);
}

void RichTextBuilder::append(RichPicture picture, const CharFormat &format) {
    m_text.paragraphs.back().runs.emplace_back(format, std::move(picture));
}

void RichTextBuilder::replacePicture(RichPicture picture) {
    std::vector<Run> &runs = m_text.paragraphs.back().runs;
    if (!runs.empty() && runs.back().content.picture())
        runs.back().content = std::move(picture);
}

void RichTextBuilder::append(const RichText &text) {
    std::vector<std::uint16_t> fonts;
    for (const std::string &font : text.fonts)
        fonts.push_back(m_text.fontIndex(font));
    for (const Paragraph &paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front())
            endParagraph();
        for (const Run &run : paragraph.runs) {
            CharFormat format = run.format;
            format.font = fonts[format.font];
            if (const RichPicture *picture = run.content.picture())
                append(*picture, format);
            else
                append(run.content.characters(), format);
        }
    }
}

void RichTextBuilder::endParagraph() {
    m_text.paragraphs.emplace_back();
}

bool RichTextBuilder::takeBack(char character) {
    std::vector<Run> &runs = m_text.paragraphs.back().runs;
    if (runs.empty())
        return false;
    RunContent &last = runs.back().content;
    if (!last.characters().ends_with(character))
        return false;
    last.dropLast();
    if (last.characters().empty())
        runs.pop_back();
    return true;
}

RichText richTextFromPlainText(std::string_view plain, const CharFormat &format) {
    RichTextBuilder builder;
    while (true) {
        const std::size_t end = plain.find(kLineEnd);
        builder.append(plain.substr(0, end), format);
        if (end == std::string_view::npos)
            break;
        builder.endParagraph();
        plain.remove_prefix(end + kLineEnd.size());
    }
    return std::move(builder.text());
}

} // namespace zolt
