#include "export/pdf_writer.h"

#include "core/document.h"
#include "export/pdf_file.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

namespace zolt {
namespace {

using Lines = std::vector<std::string>;

std::string lines(int count, std::string_view text = "x") {
    std::string document(text);
    for (int i = 1; i < count; ++i)
        document.append(kLineEnd).append(text);
    return document;
}

TEST(Pdf, OfAnEmptyDocumentIsThisWhole) {
    PdfParameters parameters;
    parameters.author = "A (b";
    parameters.title = "T";
    parameters.fontSize = 12;
    parameters.rotation = 90;
    parameters.createdAt.tm_year = 104;
    parameters.createdAt.tm_mon = 1;
    parameters.createdAt.tm_mday = 3;
    parameters.createdAt.tm_hour = 14;
    parameters.createdAt.tm_sec = 9;
    std::string expected =
        "%PDF-1.2\n%\xE2\xE3\xCF\xD3\n"
        "1 0 obj\n<<\n/Author (A (b)\n/CreationDate (D:20040203140009)\n/Creator (ZOLT)\n/Producer (ZOLT)\n"
        "/Title (T)\n/Subject ()\n/Keywords ()\n>>\nendobj\n"
        "4 0 obj\n<<\n/Type /Font\n/Subtype /Type1\n/Name /F1\n/Encoding 5 0 R\n/BaseFont /Times-Roman\n>>\n"
        "endobj\n"
        "5 0 obj\n<<\n/Type /Encoding\n/BaseEncoding /WinAnsiEncoding\n>>\nendobj\n"
        "6 0 obj\n<<\n  /Font << /F1 4 0 R >>\n  /ProcSet [ /PDF /Text ]\n>>\nendobj\n"
        "7 0 obj\n<<\n/Type /Page\n/Parent 3 0 R\n/Resources 6 0 R\n/Contents 8 0 R\n/Rotate 90\n>>\nendobj\n"
        "8 0 obj\n<<\n/Length 9 0 R\n>>\nstream\n"
        "BT\n/F1 12 Tf\n1 0 0 1 50 752 Tm\n14.4 TL\nT* (~) Tj\n1 0 0 1 306 25 Tm\n(1) Tj\n/F1 12 Tf\nET\n"
        "endstream\nendobj\n"
        "9 0 obj\n88\nendobj\n"
        "2 0 obj\n<<\n/Type /Catalog\n/Pages 3 0 R\n>>\nendobj\n"
        "3 0 obj\n<<\n/Type /Pages\n/Count 1\n/MediaBox [ 0 0 612 792 ]\n/Kids [ 7 0 R ]\n>>\nendobj\n"
        "xref\n0 10\n0000000000 65535 f \n";
    const std::string pdf = writtenPdf("", parameters).bytes;
    expected = ReplaceText(ReplaceText(expected, "\n", "\r"), "~", "\r\n");
    EXPECT_EQ(pdf.substr(0, expected.size()), expected);
    EXPECT_EQ(pdf.substr(expected.size() + 9 * 20),
              "trailer\r<<\r/Size 10\r/Root 2 0 R\r/Info 1 0 R\r>>\rstartxref\r" +
                  std::to_string(pdf.find("xref")) + "\r%%EOF\r");
    EXPECT_TRUE(hasTrueOffsets(pdf));
}

TEST(Pdf, PagesTakeTheseLinesAndCharacters) {
    struct Row {
        int fontSize, lines11, lines14;
        int narrow[3], wide[3];
    };
    const Row rows[] = {
        {8, 75, 98, {115, 153, 168}, {189, 252, 277}}, {10, 60, 78, {92, 122, 135}, {151, 202, 222}},
        {12, 50, 65, {76, 102, 112}, {126, 168, 185}}, {14, 43, 56, {66, 87, 96}, {108, 144, 158}},
        {16, 38, 49, {57, 76, 84}, {94, 126, 139}},    {18, 33, 43, {51, 68, 75}, {84, 112, 123}},
        {20, 30, 39, {46, 61, 67}, {76, 101, 111}}};
    const char *fonts[] = {"Courier", "Arial", "Times-Roman"};
    for (const Row &row : rows)
        for (int font = 0; font < 3; ++font) {
            PdfParameters parameters;
            parameters.fontSize = row.fontSize;
            parameters.fontName = fonts[font];
            EXPECT_EQ(pdfPageGrid(parameters).linesPerPage, row.lines11);
            EXPECT_EQ(pdfPageGrid(parameters).charsPerLine, row.narrow[font]) << row.fontSize << fonts[font];
            parameters.pageHeight = 14;
            EXPECT_EQ(pdfPageGrid(parameters).linesPerPage, row.lines14);
            parameters.pageWidth = 14;
            EXPECT_EQ(pdfPageGrid(parameters).charsPerLine, row.wide[font]) << row.fontSize << fonts[font];
        }
}

TEST(Pdf, WrapsLinesOfMoreThanFiveCharacters) {
    const std::pair<std::string_view, Lines> cases[] = {
        {"abcde", {"abcde"}},
        {"abcdef", {"abcde", "f"}},
        {"abcdefghijk", {"abcde", "fghij", "k"}},
        {"ab,def", {"ab,", "def"}},
        {"a,c,efg", {"a,c,", "efg"}},
        // The second half begins at the second of five characters.
        {"a,cdefg", {"a,", "cdefg"}},
        {",bcdef", {",bcde", "f"}},
        {"abcd,ef", {"abcd,", "ef"}},
        {"ab  cdef", {"ab  ", "cdef"}},
        // Blanks go from the ends only, and before the line is measured.
        {"  abcde  ", {"abcde"}},
        {"   ", {""}},
        {"\tab", {"\tab"}},
        // An escaped parenthesis takes two characters.
        {"(a)", {"\\(a\\)"}},
        {"(abcd", {"\\(abc", "d"}},
        {"a\\(", {"a\\\\("}},
        {"a\nb", {"a\nb"}}};
    for (const auto &[line, shown] : cases)
        EXPECT_EQ(pagesOf(writtenPdf(line, narrowPage()).bytes), std::vector<Lines>{shown});
}

TEST(Pdf, CutsBehindTheseCharacters) {
    std::string breaking;
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        if (c == '\r' || c == '\f' || c == '(')
            continue;
        const std::string line = std::string("abc") + c + "efgh";
        if (pagesOf(writtenPdf(line, narrowPage()).bytes)[0][0].size() != 5)
            breaking += c;
    }
    // A closing parenthesis has its backslash before it and so fills the five.
    EXPECT_EQ(breaking, " !\"#$%&*,.;<=>[]^}");
    EXPECT_EQ(pagesOf(writtenPdf("ab)defgh", narrowPage()).bytes)[0][0], "ab\\)");
}

std::vector<std::size_t> linesOfPages(const std::string &document, const PdfParameters &parameters = {}) {
    std::vector<std::size_t> counts;
    for (const Lines &page : pagesOf(writtenPdf(document, parameters).bytes))
        counts.push_back(page.size());
    return counts;
}

TEST(Pdf, TurnsThePageOnTheCountedLine) {
    using Counts = std::vector<std::size_t>;
    EXPECT_EQ(linesOfPages(lines(60)), Counts{60});
    EXPECT_EQ(linesOfPages(lines(61)), (Counts{60, 1}));
    EXPECT_EQ(linesOfPages(lines(181)), (Counts{60, 60, 60, 1}));
    EXPECT_EQ(linesOfPages(lines(60) + "\r\n"), (Counts{60, 1}));
    // A wrapped line counts one line more than it takes.
    const std::string wrapped = std::string(136, 'y');
    EXPECT_EQ(linesOfPages(wrapped + "\r\n" + lines(60)), (Counts{59, 3}));
    // It may end a page within itself, or count past the page's end.
    EXPECT_EQ(linesOfPages(lines(59) + "\r\n" + wrapped + "\r\nx"), (Counts{60, 2}));
    EXPECT_EQ(linesOfPages(lines(58) + "\r\n" + wrapped + "\r\nx"), (Counts{60, 1}));
}

TEST(Pdf, TurnsThePageBeforeAFormFeed) {
    const auto shown = [](std::string_view document) {
        return pagesOf(writtenPdf(document, narrowPage()).bytes);
    };
    EXPECT_EQ(shown("a\r\nb\fc\r\nd"), (std::vector<Lines>{{"a"}, {"b\fc", "d"}}));
    EXPECT_EQ(shown("\f"), (std::vector<Lines>{{}, {"\f"}}));
    // Each piece of a wrapped line turns the page while a form feed is still to come.
    EXPECT_EQ(shown("abcdefghijk\flm"), (std::vector<Lines>{{}, {"abcde"}, {"fghij"}, {"k\flm"}}));
    EXPECT_EQ(shown("ab\fdefgh"), (std::vector<Lines>{{}, {"ab\fde", "fgh"}}));
}

TEST(Pdf, HoldsWhatItsObjectsAllow) {
    const auto paged = [](int pages) { return writtenPdf(lines(pages * 30), narrowPage()); };
    const WrittenPdf whole = paged(1664);
    EXPECT_EQ(whole.result.pageCount, 1664);
    EXPECT_TRUE(whole.result.messages.empty());

    const WrittenPdf last = paged(1665);
    EXPECT_EQ(last.result.pageCount, 1665);
    EXPECT_EQ(last.result.messages.size(), 1u);
    EXPECT_EQ(pagesOf(last.bytes).back().size(), 30u);

    const WrittenPdf over = paged(5000);
    EXPECT_EQ(over.result.pageCount, 1665);
    EXPECT_EQ(over.result.messages.size(), 2u);
    EXPECT_EQ(over.bytes, last.bytes);
    for (const WrittenPdf &pdf : {whole, last})
        EXPECT_TRUE(hasTrueOffsets(pdf.bytes));
}

TEST(Pdf, LosesNothingOfAnyBytes) {
    std::mt19937 random(6);
    for (int round = 0; round < 200; ++round) {
        std::string document;
        for (unsigned i = random() % 600; i > 0; --i)
            document += random() % 4 ? static_cast<char>(random()) : " \r\n()\\\f"[random() % 7];
        document = documentFromFile(document);
        const std::string pdf = writtenPdf(document, narrowPage()).bytes;
        EXPECT_TRUE(hasTrueOffsets(pdf));
        std::string shown;
        for (const Lines &page : pagesOf(pdf))
            for (const std::string &line : page)
                shown += line;
        std::string expected = ReplaceText(ReplaceText(document, "(", "\\("), ")", "\\)");
        // Blanks may go at line ends, and a piece may end in any of them.
        for (std::string *text : {&shown, &expected})
            std::erase_if(*text, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
        EXPECT_EQ(shown, expected);
    }
}

TEST(Pdf, HandsItsBytesOnInPieces) {
    std::size_t largest = 0;
    std::size_t count = 0;
    writePdf(lines(100000), {}, [&](std::string_view piece) {
        largest = std::max(largest, piece.size());
        ++count;
    });
    EXPECT_GT(count, 30u);
    EXPECT_LT(largest, 64000u);
}

class PdfFile : public testing::Test {
protected:
    test::TemporaryFolder m_folder;
    std::string m_input = m_folder.file("in.txt");
    std::string m_output = m_folder.file("out.pdf");
};

TEST_F(PdfFile, StaysAsItWasWithoutInputOrWhenStopped) {
    test::putBytes(m_output, "old");
    EXPECT_EQ(ConvertToPDF(m_input, m_output, {}).messages,
              Lines{"The file '" + m_input + "' doesn't exist."});
    test::putBytes(m_input, "");
    EXPECT_EQ(ConvertToPDF(m_input, m_output, {}).messages.size(), 1u);
    test::putBytes(m_input, lines(100000));
    EXPECT_FALSE(
        ConvertToPDF(m_input, m_output, {}, [](std::size_t, std::size_t) { return false; }).finished);
    EXPECT_EQ(test::bytesOf(m_output), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.path()), {}), 2);

    EXPECT_NE(ConvertToPDF(m_input, m_folder.file("none/out.pdf"), {}).writeError, "");
}

} // namespace
} // namespace zolt
