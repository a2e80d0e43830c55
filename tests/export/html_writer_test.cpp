#include "export/html_writer.h"

#include <gtest/gtest.h>

namespace zolt {
namespace {

/// What stands between the page's first lines and its last ones.
std::string bodyOf(std::string_view document, const WebPageLook &look = {}) {
    const std::string page = webPage(document, look).file;
    const std::size_t start = page.find("size=\"3\">") + 9;
    return page.substr(start, page.rfind("</font>") - start);
}

TEST(WebPage, IsThisWhole) {
    const WebPage page = webPage("one\r\ntwo", {});
    EXPECT_EQ(page.file, "<html>\r\n"
                         "<body text=\"#000000\" bgcolor=\"#FFFFFF\">\r\n"
                         "<p><font face=\"ZOLT\" size=\"3\">\r\n"
                         "one<br>\r\n"
                         "two</font></p>\r\n"
                         "</body>\r\n"
                         "</html>\r\n");
    EXPECT_EQ(page.message, "");
}

TEST(WebPage, NestsTheTagsOfTheFont) {
    WebPageLook look;
    look.FontBold = look.FontItalic = true;
    EXPECT_EQ(bodyOf("ab", look), "<i><b>\r\nab</b></i>");
    look.FontStrikethru = look.FontUnderline = true;
    EXPECT_EQ(bodyOf("ab", look), "<strike><u><i><b>\r\nab</b></i></u></strike>");
}

TEST(WebPage, SizesChangeBehindTheirLimits) {
    const std::pair<double, int> sizes[] = {{1, 1},     {8.25, 1}, {8.26, 2},  {9.75, 2}, {10, 3},
                                            {12, 3},    {12.5, 4}, {14.25, 4}, {14.5, 5}, {18, 5},
                                            {18.01, 6}, {24, 6},   {24.5, 7},  {36.5, 7}, {72, 7}};
    for (const auto &[points, size] : sizes)
        EXPECT_EQ(htmlFontSize(points), size) << points;
}

TEST(WebPage, IsNotMadeOfAnEmptyDocumentOrWhenStopped) {
    EXPECT_EQ(webPage("", {}).message, "Empty document");
    EXPECT_FALSE(webPage("", {}).ok());
    std::string longText;
    for (int line = 0; line < 100000; ++line)
        longText += "x\r\n";
    int calls = 0;
    const WebPage stopped = webPage(longText, {}, [&](std::size_t, std::size_t) { return ++calls < 2; });
    EXPECT_FALSE(stopped.ok());
    EXPECT_EQ(stopped.message, "");
    EXPECT_EQ(calls, 2);
}

} // namespace
} // namespace zolt
