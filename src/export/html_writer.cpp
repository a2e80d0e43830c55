#include "export/html_writer.h"

#include "core/codes.h"
#include "core/reporter.h"

#include <array>

namespace zolt {

namespace {

/// The largest font size in points of each size from 1 on.
constexpr std::array kLargestPoints{8.25, 9.75, 12.0, 14.25, 18.0, 24.0};

struct TagPair {
    bool WebPageLook::*wanted;
    std::string_view opening;
    std::string_view closing;
};

/// From the outermost pair to the innermost.
constexpr std::array<TagPair, 4> kTagPairs{{
    {&WebPageLook::FontStrikethru, "<strike>", "</strike>"},
    {&WebPageLook::FontUnderline, "<u>", "</u>"},
    {&WebPageLook::FontItalic, "<i>", "</i>"},
    {&WebPageLook::FontBold, "<b>", "</b>"},
}};

std::string head(const WebPageLook &look) {
    std::string head = "<html>\r\n<body text=\"" + htmlColour(look.ForeColor) + "\" bgcolor=\"" +
                       htmlColour(look.BackColor) + "\">\r\n<p><font face=\"" + look.FontName + "\" size=\"" +
                       std::to_string(htmlFontSize(look.FontSize)) + "\">";
    for (const TagPair &tag : kTagPairs)
        if (look.*tag.wanted)
            head += tag.opening;
    return head += kLineEnd;
}

std::string foot(const WebPageLook &look) {
    std::string foot;
    for (auto tag = kTagPairs.rbegin(); tag != kTagPairs.rend(); ++tag)
        if (look.*tag->wanted)
            foot += tag->closing;
    return foot += "</font></p>\r\n</body>\r\n</html>\r\n";
}

/// Appends a text with a mark in front of each line end. False if told to stop.
bool appendMarked(std::string &page, std::string_view text, const Progress &progress) {
    std::size_t done = 0;
    Reporter reporter(progress, text.size());
    for (std::size_t end; (end = text.find(kLineEnd, done)) != std::string_view::npos;) {
        page.append(text, done, end - done).append("<br>").append(kLineEnd);
        done = end + kLineEnd.size();
        if (!reporter.goOn(done))
            return false;
    }
    page.append(text, done);
    return true;
}

} // namespace

WebPage webPage(std::string_view document, const WebPageLook &look, const Progress &progress) {
    if (document.empty())
        return {{}, "Empty document"};
    WebPage page;
    page.file.reserve(document.size() + document.size() / 8);
    page.file += head(look);
    if (!appendMarked(page.file, document, progress))
        return {};
    if (document.size() == 1)
        page.file.append("<br>").append(kLineEnd);
    page.file += foot(look);
    return page;
}

int htmlFontSize(double points) {
    int size = 1;
    for (const double largest : kLargestPoints)
        size += points > largest ? 1 : 0;
    return size;
}

std::string htmlColour(Colour colour) {
    std::string text = "#";
    for (const int shift : {4, 0, 12, 8, 20, 16})
        text += kHexDigits[(colour >> shift) & 0xF];
    return text;
}

} // namespace zolt
