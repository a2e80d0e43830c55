#include "graphic/rich_text.h"

#include <algorithm>

namespace zolt {

// 100 MB of RTF may be 30 million runs, and a growing vector holds them twice.
static_assert(sizeof(Run) == 24);

std::uint16_t RichText::fontIndex(std::string_view name) {
    const auto found = std::find(fonts.begin(), fonts.end(), name);
    if (found != fonts.end())
        return static_cast<std::uint16_t>(found - fonts.begin());
    fonts.emplace_back(name);
    return static_cast<std::uint16_t>(fonts.size() - 1);
}

namespace {

std::string charactersOf(const RichText &text, std::string_view forPicture) {
    std::string plain;
    for (const Paragraph &paragraph : text.paragraphs) {
        if (&paragraph != &text.paragraphs.front())
            plain += "\r\n";
        for (const Run &run : paragraph.runs)
            plain += run.content.picture() ? forPicture : run.content.characters();
    }
    return plain;
}

} // namespace

std::string plainText(const RichText &text) {
    return charactersOf(text, " ");
}

std::string textWithoutPictures(const RichText &text) {
    return charactersOf(text, {});
}

} // namespace zolt
