#include "zoltc/command_line.h"

namespace zolt::cli {
namespace {

using ExportCommands = CommandLine;

TEST_F(ExportCommands, SymbolsListsAndJoins) {
    put("a.zls", " 1 \r\nLeft, \x8E\r\n\x9EZ\r\n");
    put("b.zls", " 3 \r\nb\r\nB\r\nc\r\n");
    EXPECT_EQ(zoltc({"symbols", "@a.zls"}), Done);
    EXPECT_EQ(m_output, "Left, \x8E\t\x9EZ\n");
    EXPECT_EQ(zoltc({"symbols", "@a.zls", "--import", "@b.zls", "--import=" + path("a.zls"), "@out.zls"}),
              Done);
    EXPECT_EQ(m_output + m_errors, "");
    EXPECT_EQ(get("out.zls"),
              " 5 \r\nLeft, \x8E\r\n\x9EZ\r\nb\r\nB\r\nc\r\n\r\n\r\n\r\nLeft, \x8E\r\n\x9EZ\r\n");
    EXPECT_EQ(zoltc({"symbols", "@none.zls"}), Unusable);
    EXPECT_EQ(zoltc({"symbols", "@a.zls", "--import", "@none.zls", "@new.zls"}), Unusable);
    EXPECT_FALSE(exists("new.zls"));
}

TEST_F(ExportCommands, CompileMakesTheCalculatorsStringOfAGraphicalDocument) {
    put("a.zlg", R"({\rtf1{\fonttbl{\f0 ZOLT;}{\f1 ZOLTBold;}}\f0 a {\f1 "b"}\par c})");
    EXPECT_EQ(zoltc({"compile", "@a.zlg", "@any name.x"}), Done);
    EXPECT_EQ(m_output + m_errors, "");
    EXPECT_EQ(get("any name.x"), "\"a \x0B"
                                 "B'b'\x0B"
                                 "B\r\nc\"\r\n");
    put("plain.txt", "\x9E"
                     "000000x\x9E"
                     "000000\r\n");
    EXPECT_EQ(zoltc({"compile", "@plain.txt", "-", "--partial"}), Done);
    EXPECT_EQ(m_output, "\"\x9E"
                        "000000x\"\r\n");
    EXPECT_EQ(zoltc({"compile", "@plain.txt", "-", "--total"}), Done);
    EXPECT_EQ(m_output, "\" x\"\r\n");
    EXPECT_EQ(zoltc({"compile", "@plain.txt", "-", "--total", "--partial"}), Unusable);
    EXPECT_EQ(zoltc({"compile", "@none.zlg", "@none"}), Unusable);
    EXPECT_FALSE(exists("none"));
}

TEST_F(ExportCommands, HtmlTakesTheLookFromItsOptions) {
    put("a.zlt", "a\rb\r\n");
    EXPECT_EQ(zoltc({"html", "@a.zlt", "@a.html", "--font", "S\u00E3o \u03B1", "--size", "14.25", "--color",
                     "12aBcD", "--background=0000FF", "--underline", "--strikethrough"}),
              Done);
    EXPECT_EQ(get("a.html"), "<html>\r\n<body text=\"#12ABCD\" bgcolor=\"#0000FF\">\r\n"
                             "<p><font face=\"S\xE3o ?\" size=\"4\"><strike><u>\r\n"
                             "a<br>\r\nb</u></strike></font></p>\r\n</body>\r\n</html>\r\n");
    put("empty.zlt", "\r\n");
    EXPECT_EQ(zoltc({"html", "@empty.zlt", "@empty.html"}), Refused);
    EXPECT_NE(m_errors.find("Empty document"), std::string::npos);
    EXPECT_FALSE(exists("empty.html"));
}

TEST_F(ExportCommands, PdfTakesItsFormFromItsOptions) {
    put("a.zlt", "a\rb\r\n");
    const std::string author = "\u00C2 \u2013 \u4E2D\x80.";
    EXPECT_EQ(zoltc({"pdf",        "@a.zlt",   "@a.pdf", "--font",     "Courier", "--size",    "8",
                     "--rotation", "270",      "--page", "14x11",      "--title", "T",         "--subject",
                     "S",          "--author", author,   "--keywords", "K",       "--creator", "C"}),
              Done);
    const std::string pdf = get("a.pdf");
    for (const char *part :
         {"/Author (\xC2 \x96 ??.)\r/CreationDate (D:2", "/Creator (C)\r",
          "/Title (T)\r/Subject (S)\r/Keywords (K)\r", "/BaseFont /Courier\r", "/Rotate 270\r",
          "/MediaBox [ 0 0 1008 792 ]\r", "9.6 TL\rT* (a\r\n) Tj\rT* (b\r\n) Tj\r"})
        EXPECT_NE(pdf.find(part), std::string::npos) << part;

    // What can't be replaced whole, such as a pipe, is written as it stands.
    EXPECT_EQ(zoltc({"pdf", "@a.zlt", "/dev/null"}), Done);

    put("long.zlt", std::string(1665 * 60, '\r'));
    EXPECT_EQ(zoltc({"pdf", "@long.zlt", "@long.pdf"}), Refused);
    EXPECT_NE(m_errors.find("page 1665"), std::string::npos);
    EXPECT_NE(get("long.pdf").find("/Count 1665\r"), std::string::npos);
}

TEST_F(ExportCommands, RefuseValuesOutOfRange) {
    put("a.zlt", "a\r\n");
    const std::vector<std::string> bad[] = {
        {"pdf", "--font", "Helvetica"}, {"pdf", "--size", "7"},
        {"pdf", "--size", "21"},        {"pdf", "--size", "10.5"},
        {"pdf", "--size", ""},          {"pdf", "--rotation", "45"},
        {"pdf", "--page", "A4"},        {"html", "--size", "0"},
        {"html", "--size", "ten"},      {"html", "--size", "nan"},
        {"html", "--color", "12345"},   {"html", "--color", "12345G"},
        {"html", "--background", ""},   {"html", "--background", "1234567"}};
    for (std::vector<std::string> words : bad) {
        words.insert(words.end(), {"@a.zlt", "@out"});
        EXPECT_EQ(zoltc(words), Unusable) << words[0] << words[1] << words[2];
        EXPECT_FALSE(exists("out"));
    }
    EXPECT_EQ(zoltc({"pdf", "@none.zlt", "@out"}), Unusable);
    EXPECT_EQ(zoltc({"pdf", "@a.zlt", "@none/out"}), Unusable);
    EXPECT_EQ(zoltc({"html", "@a.zlt", "@none/out"}), Unusable);
}

} // namespace
} // namespace zolt::cli
