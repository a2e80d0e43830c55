#include "export/pdf_file.h"
#include "support/other_programs.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace zolt {
namespace {

using test::hasProgram;
using test::outputOf;

/// Other programs read a file that the writer made.
class PdfReaders : public testing::Test {
protected:
    test::TemporaryFolder m_folder;
    std::string m_pdf = m_folder.file("a.pdf");
};

std::string sampleText() {
    std::string text;
    for (int line = 1; line <= 130; ++line)
        text += "Line " + std::to_string(line) + " (of a sample)\r\n";
    return text + "the end";
}

TEST_F(PdfReaders, QpdfObjectsToTheLineEndsOnly) {
    if (!hasProgram("qpdf"))
        GTEST_SKIP() << "qpdf is not installed";
    test::putBytes(m_pdf, writtenPdf(sampleText()).bytes);
    std::istringstream said(outputOf("qpdf --check " + m_pdf + " 2>&1"));
    int warnings = 0;
    for (std::string line; std::getline(said, line);) {
        const bool warning = line.find("WARNING") != std::string::npos;
        warnings += warning;
        EXPECT_EQ(warning, line.find("stream keyword followed by carriage return only") != std::string::npos)
            << line;
        EXPECT_EQ(line.find("ERROR"), std::string::npos) << line;
    }
    EXPECT_EQ(warnings, 3);
    EXPECT_EQ(outputOf("qpdf --show-npages " + m_pdf + " 2>/dev/null"), "3\n");
}

TEST_F(PdfReaders, PdftotextGivesTheTextBack) {
    if (!hasProgram("pdftotext"))
        GTEST_SKIP() << "pdftotext is not installed";
    PdfParameters parameters;
    parameters.title = "A title";
    test::putBytes(m_pdf, writtenPdf("caf\xE9 (1)\r\nb \\ c", parameters).bytes);
    EXPECT_EQ(outputOf("pdftotext -raw -nopgbrk -enc Latin1 " + m_pdf + " -"), "caf\xE9 (1)\nb c\n1\n");

    test::putBytes(m_pdf, writtenPdf(sampleText()).bytes);
    std::string expected = ReplaceText(sampleText(), "\r\n", "\n") + "\n3\n";
    expected = ReplaceText(expected, "Line 61 ", "1\nLine 61 ");
    expected = ReplaceText(expected, "Line 121 ", "2\nLine 121 ");
    EXPECT_EQ(outputOf("pdftotext -raw -nopgbrk " + m_pdf + " -"), expected);
}

TEST_F(PdfReaders, PdftoppmShowsThePageUnderItsRotation) {
    if (!hasProgram("pdftoppm"))
        GTEST_SKIP() << "pdftoppm is not installed";
    PdfParameters parameters;
    parameters.rotation = 90;
    parameters.pageHeight = 14;
    test::putBytes(m_pdf, writtenPdf(sampleText(), parameters).bytes);
    const std::string picture = outputOf("pdftoppm -r 36 -gray -f 1 -l 1 " + m_pdf);
    const std::string head = "P5\n504 306\n255\n";
    ASSERT_EQ(picture.substr(0, head.size()), head);
    EXPECT_GT(std::count_if(picture.begin() + static_cast<std::ptrdiff_t>(head.size()), picture.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 128; }),
              500);
}

} // namespace
} // namespace zolt
