#include "export/pdf_writer.h"

#include "core/atomic_file.h"
#include "core/codes.h"
#include "core/document.h"
#include "core/file.h"
#include "core/reporter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <initializer_list>

namespace zolt {

namespace {

/// A wrapped line is cut behind one of these.
constexpr std::string_view kBreakCharacters = R"(*&^%$#,. ;<=>[])}!")";
constexpr char kFormFeed = '\f';
constexpr std::size_t kBufferSize = 32000;

constexpr int kPointsPerInch = 72;
constexpr int kBottomSpace = 72;
constexpr int kTextLeft = 50;
constexpr int kTextBelowTop = 40;
constexpr int pageNumberY = 25;

// The objects that every file has; a page takes three more.
constexpr int infoObject = 1;
constexpr int rootObject = 2;
constexpr int pagesObject = 3;
constexpr int fontObject = 4;
constexpr int encodingObject = 5;
constexpr int resourcesObject = 6;

/// The nearest integer to a quotient of numbers that aren't negative, ties to even.
int roundedQuotient(int dividend, int divisor) {
    const int quotient = dividend / divisor;
    const int twice = 2 * (dividend % divisor);
    return quotient + (twice > divisor || (twice == divisor && quotient % 2 == 1) ? 1 : 0);
}

/// A number of tenths in decimal, without a zero behind the point.
std::string tenthsText(int tenths) {
    const std::string whole = std::to_string(tenths / 10);
    return tenths % 10 == 0 ? whole : whole + "." + std::to_string(tenths % 10);
}

int inPoints(double inches) {
    constexpr double kLargestPage = 100000;
    return static_cast<int>(std::nearbyint(std::clamp(inches * kPointsPerInch, 0.0, kLargestPage)));
}

int sizeOfFont(const PdfParameters &parameters) {
    return std::clamp(parameters.fontSize, 1, 32767);
}

/// The distance of two lines, in tenths of a point.
int leadingTenths(int fontSize) {
    return fontSize * 12;
}

/// How many characters one em of the font takes, in tenths.
int charsPerEmTenths(std::string fontName) {
    std::transform(fontName.begin(), fontName.end(), fontName.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    if (fontName == "courier")
        return 15;
    return fontName == "arial" ? 20 : 22;
}

std::string timeText(const std::tm &time) {
    char text[96];
    std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d", time.tm_year + 1900, time.tm_mon + 1,
                  time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
    return text;
}

std::string_view trimmed(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

/// How much of a piece stays on its line: up to the last character that it may be
/// cut behind, if one stands in its second half.
std::size_t cutLength(std::string_view piece) {
    const std::size_t firstLooked = std::max<std::size_t>(1, piece.size() / 2) - 1;
    const std::size_t cut = piece.substr(firstLooked).find_last_of(kBreakCharacters);
    return cut == std::string_view::npos ? piece.size() : firstLooked + cut + 1;
}

std::string reference(int object) {
    return std::to_string(object) + " 0 R";
}

/// The state of one export, and its steps from the file's front to its end.
struct PdfWriter {
    const PdfParameters &parameters;
    const ByteSink &sink;
    Reporter reporter;

    PdfPageGrid grid{};
    std::string fontSize{};
    std::string leading{};
    std::string pageNumberX{};

    int objectCount = 0;
    int pageCount = 0;
    int lineOnPage = -1;
    /// The byte offset in the file of the next line.
    std::size_t position = 0;
    std::size_t streamStart = 0;
    std::string outputBuffer{};
    std::array<std::size_t, kMostPdfObjects + 1> objectOffsets{};
    std::vector<int> pageObjects{};

    std::vector<std::string> messages{};
    std::size_t emitted = 0;
    bool stopped = false;

    PdfResult write(std::string_view document) {
        initpdf();
        pdfheader();
        pdfobjects();
        pdfbody(document);
        if (!stopped)
            endpdf();
        return {pageCount, std::move(messages), !stopped, {}};
    }

    void initpdf() {
        grid = pdfPageGrid(parameters);
        fontSize = std::to_string(sizeOfFont(parameters));
        leading = tenthsText(leadingTenths(sizeOfFont(parameters)));
        pageNumberX = tenthsText(grid.pageWidth * 5);
    }

    /// Every line of the file ends in a CR alone.
    void writeline(std::initializer_list<std::string_view> texts, bool flush = false) {
        const std::size_t before = outputBuffer.size();
        for (const std::string_view text : texts)
            outputBuffer += text;
        outputBuffer += '\r';
        position += outputBuffer.size() - before;
        if (outputBuffer.size() > kBufferSize || flush) {
            sink(outputBuffer);
            outputBuffer.clear();
        }
    }

    void beginObject(int object) {
        objectOffsets[static_cast<std::size_t>(object)] = position;
        writeline({std::to_string(object), " 0 obj"});
    }

    /// An object whose contents are a dictionary of these lines.
    void writeDictionary(int object, std::initializer_list<std::string> lines) {
        beginObject(object);
        writeline({"<<"});
        for (const std::string &line : lines)
            writeline({line});
        writeline({">>"});
        writeline({"endobj"});
    }

    void pdfheader() {
        writeline({"%PDF-1.2"});
        writeline({"%\xE2\xE3\xCF\xD3"});
    }

    void pdfobjects() {
        writeDictionary(infoObject,
                        {"/Author (" + parameters.author + ")",
                         "/CreationDate (D:" + timeText(parameters.createdAt) + ")",
                         "/Creator (" + parameters.creator + ")", "/Producer (ZOLT)",
                         "/Title (" + parameters.title + ")", "/Subject (" + parameters.subject + ")",
                         "/Keywords (" + parameters.keywords + ")"});
        writeDictionary(fontObject,
                        {"/Type /Font", "/Subtype /Type1", "/Name /F1",
                         "/Encoding " + reference(encodingObject), "/BaseFont /" + parameters.fontName});
        writeDictionary(encodingObject, {"/Type /Encoding", "/BaseEncoding /WinAnsiEncoding"});
        writeDictionary(resourcesObject,
                        {"  /Font << /F1 " + reference(fontObject) + " >>", "  /ProcSet [ /PDF /Text ]"});
        objectCount = resourcesObject;
    }

    void pdfbody(std::string_view document) {
        lineOnPage = -1;
        if (!startpage())
            return;
        for (std::size_t start = 0; start != std::string_view::npos && !stopped;) {
            const std::string_view line = takeLine(document, start);
            ++lineOnPage;
            if ((pageIsFull() || line.find(kFormFeed) != std::string_view::npos) && !turnPage())
                return;
            const std::string escaped = ReplaceText(ReplaceText(line, "(", "\\("), ")", "\\)");
            if (!emitLine(trimmed(escaped)))
                return;
        }
        if (!stopped)
            finishPage();
    }

    /// The line that begins at `start`, which moves on to the next line or, behind the
    /// last one, to npos.
    static std::string_view takeLine(std::string_view document, std::size_t &start) {
        const std::size_t end = document.find('\r', start);
        const std::string_view line = document.substr(start, end - start);
        start = end == std::string_view::npos ? end : end + (document.substr(end, 2) == kLineEnd ? 2 : 1);
        return line;
    }

    /// Emits a line, wrapped if it is too long. False if a page could not begin.
    bool emitLine(std::string_view line) {
        const auto charsPerLine = static_cast<std::size_t>(grid.charsPerLine);
        const bool wrapped = line.size() > charsPerLine;
        const std::size_t lastFormFeed = line.rfind(kFormFeed);
        std::size_t done = 0;
        while (line.size() - done > charsPerLine && !stopped) {
            const std::string_view piece = line.substr(done, charsPerLine);
            const std::size_t length = cutLength(piece);
            emit(piece.substr(0, length));
            done += length;
            ++lineOnPage;
            const bool formFeedLeft = lastFormFeed != std::string_view::npos && lastFormFeed >= done;
            if ((pageIsFull() || formFeedLeft) && !turnPage())
                return false;
        }
        emit(line.substr(done));
        // A wrapped line counts one more than it takes.
        if (wrapped)
            ++lineOnPage;
        return true;
    }

    void emit(std::string_view text) {
        writeline({"T* (", text, kLineEnd, ") Tj"});
        emitted += text.size() + kLineEnd.size();
        stopped = stopped || !reporter.goOn(emitted);
    }

    bool pageIsFull() const { return lineOnPage >= grid.linesPerPage; }

    bool turnPage() {
        finishPage();
        return startpage();
    }

    void finishPage() {
        writeline({"1 0 0 1 ", pageNumberX, " ", std::to_string(pageNumberY), " Tm"});
        writeline({"(", std::to_string(pageCount), ") Tj"});
        writeline({"/F1 ", fontSize, " Tf"});
        endpage();
    }

    /// Opens a page and its contents. False, with a message, if no object is left.
    bool startpage() {
        if (objectCount + 2 > kMostPdfObjects) {
            messages.push_back(
                limitText("the text from page " + std::to_string(pageCount + 1) + " on is left out."));
            return false;
        }
        const int page = objectCount + 1;
        objectCount += 2;
        ++pageCount;
        pageObjects.push_back(page);
        writeDictionary(page, {"/Type /Page", "/Parent " + reference(pagesObject),
                               "/Resources " + reference(resourcesObject), "/Contents " + reference(page + 1),
                               "/Rotate " + std::to_string(parameters.rotation)});
        beginObject(page + 1);
        writeline({"<<"});
        writeline({"/Length ", reference(page + 2)});
        writeline({">>"});
        writeline({"stream"});
        streamStart = position;
        writeline({"BT"});
        writeline({"/F1 ", fontSize, " Tf"});
        writeline({"1 0 0 1 ", std::to_string(kTextLeft), " ",
                   std::to_string(grid.pageHeight - kTextBelowTop), " Tm"});
        writeline({leading, " TL"});
        return true;
    }

    void endpage() {
        writeline({"ET"});
        const std::size_t streamEnd = position;
        writeline({"endstream"});
        writeline({"endobj"});
        if (objectCount + 1 > kMostPdfObjects) {
            messages.push_back(
                limitText("page " + std::to_string(pageCount) + " lacks the length of its contents."));
            return;
        }
        beginObject(++objectCount);
        writeline({std::to_string(streamEnd - streamStart)});
        writeline({"endobj"});
        lineOnPage = 0;
    }

    void endpdf() {
        writeDictionary(rootObject, {"/Type /Catalog", "/Pages " + reference(pagesObject)});
        std::string kids = "/Kids [ ";
        for (const int page : pageObjects)
            kids += reference(page) + " ";
        writeDictionary(pagesObject, {"/Type /Pages", "/Count " + std::to_string(pageCount),
                                      "/MediaBox [ 0 0 " + std::to_string(grid.pageWidth) + " " +
                                          std::to_string(grid.pageHeight) + " ]",
                                      kids + "]"});
        const std::size_t tableOffset = position;
        writeline({"xref"});
        writeline({"0 ", std::to_string(objectCount + 1)});
        writeline({"0000000000 65535 f "});
        for (int object = 1; object <= objectCount; ++object) {
            char offset[24];
            std::snprintf(offset, sizeof offset, "%010zu", objectOffsets[static_cast<std::size_t>(object)]);
            writeline({offset, " 00000 n "});
        }
        writeline({"trailer"});
        writeline({"<<"});
        writeline({"/Size ", std::to_string(objectCount + 1)});
        writeline({"/Root ", reference(rootObject)});
        writeline({"/Info ", reference(infoObject)});
        writeline({">>"});
        writeline({"startxref"});
        writeline({std::to_string(tableOffset)});
        writeline({"%%EOF"}, true);
    }

    static std::string limitText(const std::string &consequence) {
        return "A PDF file of this form holds " + std::to_string(kMostPdfObjects) +
               " objects at most: " + consequence;
    }
};

} // namespace

PdfPageGrid pdfPageGrid(const PdfParameters &parameters) {
    const int fontSize = sizeOfFont(parameters);
    PdfPageGrid grid;
    grid.pageWidth = inPoints(parameters.pageWidth);
    grid.pageHeight = inPoints(parameters.pageHeight);
    grid.linesPerPage =
        roundedQuotient(10 * std::max(0, grid.pageHeight - kBottomSpace), leadingTenths(fontSize));
    grid.charsPerLine =
        std::max(1, roundedQuotient(grid.pageWidth * charsPerEmTenths(parameters.fontName), 10 * fontSize));
    return grid;
}

PdfResult writePdf(std::string_view document, const PdfParameters &parameters, const ByteSink &sink,
                   const Progress &progress) {
    return PdfWriter{parameters, sink, Reporter(progress, document.size())}.write(document);
}

PdfResult ConvertToPDF(const std::string &inputPath, const std::string &outputPath,
                       const PdfParameters &parameters, const Progress &progress) {
    const FileContents input = readFile(inputPath);
    if (!input.ok() || input.bytes.empty())
        return {0, {"The file '" + inputPath + "' doesn't exist."}, true, {}};
    AtomicFile output(outputPath);
    PdfResult result = writePdf(
        documentFromFile(input.bytes), parameters, [&](std::string_view bytes) { output.append(bytes); },
        progress);
    if (result.finished)
        result.writeError = output.commit();
    return result;
}

std::string ReplaceText(std::string_view source, std::string_view find, std::string_view replacement) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t at; (at = source.find(find, done)) != std::string_view::npos; done = at + find.size())
        result.append(source, done, at - done).append(replacement);
    return result.append(source, done);
}

} // namespace zolt
