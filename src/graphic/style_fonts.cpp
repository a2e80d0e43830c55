#include "graphic/style_fonts.h"

#include "core/codes.h"
#include "graphic/rich_text_builder.h"

namespace zolt {

std::string_view styleFontRefusal(std::string_view selection, std::size_t endColumn, bool isPlain,
                                  std::string_view font, const StyleMessages &messages) {
    if (selection.find(kLineEnd) != std::string_view::npos)
        return messages.severalLines;
    const bool isDouble = font == fontOfStyle(Style::Double);
    if (endColumn > static_cast<std::size_t>(isDouble ? kDoubleColumns : kColumns))
        return isDouble ? messages.beyondColumn16 : messages.beyondColumn33;
    return isPlain ? std::string_view() : messages.alreadyFormatted;
}

RichText inPlainFont(const RichText &text) {
    RichTextBuilder builder;
    for (const Paragraph &paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front())
            builder.endParagraph();
        for (const Run &run : paragraph.runs) {
            CharFormat format = run.format;
            format.font = 0;
            format.halfPoints = CharFormat{}.halfPoints;
            if (const RichPicture *picture = run.content.picture())
                builder.append(*picture, format);
            else
                builder.append(run.content.characters(), format);
        }
    }
    return std::move(builder.text());
}

RichText changeCase(RichText text, CaseCommand command) {
    for (Paragraph &paragraph : text.paragraphs)
        for (Run &run : paragraph.runs)
            if (!run.content.picture())
                run.content = changeCase(run.content.characters(), command);
    return text;
}

} // namespace zolt
