#include "core/file.h"
#include "export/pdf_file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace zolt {
namespace {

/// Other programs read a file that the writer made.
class PdfReaders : public testing::Test {
protected:
    std::string m_folder = testing::TempDir() + "zolt_pdf_readers_" + std::to_string(::getpid()) + "/";
    std::string m_pdf = m_folder + "a.pdf";

    void SetUp() override { std::filesystem::create_directories(m_folder); }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    static bool installed(const std::string &program) {
        return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
    }

    /// What a program says on both of its outputs.
    static std::string output(const std::string &command) {
        std::string text;
        std::FILE *pipe = ::popen(("(" + command + ") 2>&1").c_str(), "r");
        char piece[4096];
        while (const std::size_t got = std::fread(piece, 1, sizeof piece, pipe))
            text.append(piece, got);
        ::pclose(pipe);
        return text;
    }
};

std::string sampleText() {
    std::string text;
    for (int line = 1; line <= 130; ++line)
        text += "Line " + std::to_string(line) + " (of a sample)\r\n";
    return text + "the end";
}

TEST_F(PdfReaders, QpdfObjectsToTheLineEndsOnly) {
    if (!installed("qpdf"))
        GTEST_SKIP() << "qpdf is not installed";
    writeFile(m_pdf, writtenPdf(sampleText()).bytes);
    std::istringstream said(output("qpdf --check " + m_pdf));
    int warnings = 0;
    for (std::string line; std::getline(said, line);) {
        const bool warning = line.find("WARNING") != std::string::npos;
        warnings += warning;
        EXPECT_EQ(warning, line.find("stream keyword followed by carriage return only") != std::string::npos)
            << line;
        EXPECT_EQ(line.find("ERROR"), std::string::npos) << line;
    }
    EXPECT_EQ(warnings, 3);
    EXPECT_EQ(output("qpdf --show-npages " + m_pdf + " 2>/dev/null"), "3\n");
}

TEST_F(PdfReaders, PdftotextGivesTheTextBack) {
    if (!installed("pdftotext"))
        GTEST_SKIP() << "pdftotext is not installed";
    PdfParameters parameters;
    parameters.title = "A title";
    writeFile(m_pdf, writtenPdf("caf\xE9 (1)\r\nb \\ c", parameters).bytes);
    EXPECT_EQ(output("pdftotext -raw -nopgbrk -enc Latin1 " + m_pdf + " -"), "caf\xE9 (1)\nb c\n1\n");

    writeFile(m_pdf, writtenPdf(sampleText()).bytes);
    std::string expected = ReplaceText(sampleText(), "\r\n", "\n") + "\n3\n";
    expected = ReplaceText(expected, "Line 61 ", "1\nLine 61 ");
    expected = ReplaceText(expected, "Line 121 ", "2\nLine 121 ");
    EXPECT_EQ(output("pdftotext -raw -nopgbrk " + m_pdf + " -"), expected);
}

TEST_F(PdfReaders, PdftoppmShowsThePageUnderItsRotation) {
    if (!installed("pdftoppm"))
        GTEST_SKIP() << "pdftoppm is not installed";
    PdfParameters parameters;
    parameters.rotation = 90;
    parameters.pageHeight = 14;
    writeFile(m_pdf, writtenPdf(sampleText(), parameters).bytes);
    const std::string picture = output("pdftoppm -r 36 -gray -f 1 -l 1 " + m_pdf);
    const std::string head = "P5\n504 306\n255\n";
    ASSERT_EQ(picture.substr(0, head.size()), head);
    EXPECT_GT(std::count_if(picture.begin() + static_cast<std::ptrdiff_t>(head.size()), picture.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 128; }),
              500);
}

TEST_F(PdfReaders, FindTheLastPageOfAFullFile) {
    if (!installed("pdftotext"))
        GTEST_SKIP() << "pdftotext is not installed";
    std::string text = "x";
    for (int line = 1; line < 1700 * 60; ++line)
        text += "\r\n" + std::to_string(line / 60 + 1);
    writeFile(m_pdf, writtenPdf(text).bytes);
    const std::string page = output("pdftotext -raw -nopgbrk -f 1665 -l 1665 " + m_pdf + " - 2>/dev/null");
    EXPECT_EQ(page, ReplaceText(std::string(61, '|'), "|", "1665\n"));
}

} // namespace
} // namespace zolt
