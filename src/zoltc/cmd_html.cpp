#include "core/codes.h"
#include "core/document.h"
#include "core/utf8.h"
#include "export/html_writer.h"
#include "zoltc/command_table.h"

#include <cctype>
#include <charconv>
#include <optional>
#include <utility>

namespace zolt::cli {

namespace {

/// The colour of six hexadecimal digits, red first.
std::optional<Colour> colourOf(const std::string &text) {
    if (text.size() != 6)
        return std::nullopt;
    Colour redFirst = 0;
    for (const char c : text) {
        const int digit = hexDigitValue(static_cast<char>(std::toupper(static_cast<unsigned char>(c))));
        if (digit < 0)
            return std::nullopt;
        redFirst = redFirst << 4 | static_cast<Colour>(digit);
    }
    return redFirst >> 16 | (redFirst & 0xFF00) | (redFirst & 0xFF) << 16;
}

std::optional<double> pointsOf(const std::string &text) {
    constexpr double kLargestPoints = 32767;
    double points = 0;
    const char *end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, points, std::chars_format::fixed);
    if (read.ec != std::errc() || read.ptr != end || !(points > 0 && points <= kLargestPoints))
        return std::nullopt;
    return points;
}

int runHtml(const Arguments &arguments) {
    const auto points = pointsOf(arguments.value("size", "10"));
    if (!points)
        return unusable("--size", "not a font size in points");
    const auto colour = colourOf(arguments.value("color", "000000"));
    if (!colour)
        return unusable("--color", "not six hexadecimal digits");
    const auto background = colourOf(arguments.value("background", "FFFFFF"));
    if (!background)
        return unusable("--background", "not six hexadecimal digits");

    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    const WebPage page = webPage(documentFromFile(std::move(bytes)),
                                 {.ForeColor = *colour,
                                  .BackColor = *background,
                                  .FontName = windowsFromUtf8(arguments.value("font", "ZOLT")),
                                  .FontSize = *points,
                                  .FontBold = arguments.has("bold"),
                                  .FontItalic = arguments.has("italic"),
                                  .FontUnderline = arguments.has("underline"),
                                  .FontStrikethru = arguments.has("strikethrough")});
    if (!page.ok()) {
        unusable(arguments.files[0], page.message);
        return Refused;
    }
    return writeOutput(arguments.files[1], page.file) ? Done : Unusable;
}

} // namespace

Command htmlCommand() {
    return {"html",
            "INPUT OUTPUT",
            "Writes a document as a Web page.\n"
            "Codes and pictures are not interpreted, and no character is escaped.",
            {{"font", "F", "name of the font (ZOLT)"},
             {"size", "P", "font size in points (10)"},
             {"color", "RRGGBB", "colour of the text (000000)"},
             {"background", "RRGGBB", "colour of the page (FFFFFF)"},
             {"bold", "", "bold text"},
             {"italic", "", "italic text"},
             {"underline", "", "underlined text"},
             {"strikethrough", "", "text that is struck out"}},
            2,
            2,
            runHtml};
}

} // namespace zolt::cli
