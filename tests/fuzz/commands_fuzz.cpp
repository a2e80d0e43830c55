#include "core/codes.h"
#include "core/document.h"
#include "core/find.h"
#include "core/letter_case.h"
#include "core/optimise.h"
#include "core/styles.h"
#include "export/html_writer.h"
#include "export/pdf_file.h"
#include "fuzz/require.h"
#include "graphic/rtf_reader.h"
#include "graphic/rtf_writer.h"
#include "hp48/hp_file.h"
#include "hp48/hp_file_name.h"
#include "hp48/integrity_test.h"
#include "hp48/literal_source_compiler.h"
#include "hp48/preview_compiler.h"
#include "hp48/source_compiler.h"
#include "images/image_text.h"
#include "support/literal_commands.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using zolt::test::require;

/// Longer documents only take longer, and the slow ways the square of it.
constexpr std::size_t kLongest = 4096;
constexpr std::size_t kLongestForTheSlowWay = 300;
constexpr std::size_t kMostSteps = 12;

/// What a step of the program says besides its command.
struct Step {
    unsigned char place;
    unsigned char kind;

    std::size_t start(std::string_view document) const { return place * (document.size() + 1) / 256; }
    std::string_view selection(std::string_view document) const {
        return document.substr(start(document), kind / 8);
    }
};

/// Each takes a document and gives what becomes of it.
using Command = std::string (*)(const std::string &document, Step step);

std::string withSelection(const std::string &document, Step step, std::string_view replacement) {
    return std::string(document).replace(step.start(document), step.selection(document).size(), replacement);
}

std::string applyStyle(const std::string &document, Step step) {
    const zolt::StyleCode &style = zolt::kStyleCodes[step.kind % 8];
    const std::string_view selection = step.selection(document);
    const std::size_t start = step.start(document);
    const zolt::SelectionEdit edit = zolt::applyStyle(document, start, selection.size(), style.letter);
    const std::size_t column = zolt::literal::endColumn(document, start, selection.size());
    const bool fits = column <= static_cast<std::size_t>(style.columnLimit) &&
                      selection.find(zolt::kStyleMark) == std::string::npos &&
                      selection.find(zolt::kLineEnd) == std::string::npos;
    require((edit.outcome == zolt::SelectionEdit::Replaced) == (fits && !selection.empty()),
            "a style where there can be none, or none where there can");
    require((edit.outcome == zolt::SelectionEdit::Refused) == !edit.message.empty(),
            "refused without a word");
    if (edit.outcome != zolt::SelectionEdit::Replaced)
        return document;
    require(zolt::removeStyles(edit.replacement).replacement == selection, "a style that can't be taken off");
    return withSelection(document, step, edit.replacement);
}

std::string removeStyles(const std::string &document, Step step) {
    const std::string plain = zolt::removeStyles(step.selection(document)).replacement;
    const std::size_t mark = plain.find(zolt::kStyleMark);
    require(mark == std::string::npos || mark + 1 == plain.size(), "a style code left");
    return withSelection(document, step, plain);
}

std::string changeCase(const std::string &document, Step step) {
    const auto command = static_cast<zolt::CaseCommand>(step.kind % 4);
    const std::string changed = zolt::changeCase(document, command);
    const std::string again = zolt::changeCase(changed, command);
    require(again == (command == zolt::CaseCommand::Invert ? document : changed),
            "another case a second time");
    for (std::size_t i = 0; i < document.size(); ++i)
        require(document[i] == changed[i] || (document[i] & 0x40) != 0, "a byte changed that is no letter");
    return changed;
}

/// The place of the next match, from 0.
std::size_t slowlyFound(std::string_view text, std::string_view find, bool matchCase, std::size_t from) {
    for (std::size_t i = from; i < text.size(); ++i) {
        const std::string_view here = text.substr(i, find.size());
        if (matchCase ? here == find : zolt::capitals(here) == zolt::capitals(find))
            return i;
    }
    return std::string_view::npos;
}

std::string find(const std::string &document, Step step) {
    const std::string_view selection = step.selection(document);
    const bool matchCase = step.kind % 2 != 0;
    for (const std::size_t from : {std::size_t{0}, step.start(document) + 1}) {
        const zolt::ScanResult found = zolt::scan(document, {selection, matchCase}, from);
        const std::size_t expected = slowlyFound(document, selection, matchCase, from);
        const bool isHit = found.outcome == zolt::ScanResult::Matched;
        require(isHit ? found.position - 1 == expected : expected == std::string_view::npos, "another place");
    }
    return document;
}

std::string replaceAll(const std::string &document, Step step) {
    const std::string_view selection = step.selection(document);
    const std::string_view by = std::string_view(document).substr(0, step.kind % 5);
    const bool matchCase = step.kind % 2 != 0;
    const zolt::ReplaceAllResult result = zolt::replaceAll(document, {selection, matchCase}, by);
    if (result.outcome == zolt::ReplaceAllResult::NothingToDo)
        return document;
    std::string expected = document;
    std::size_t done = 0;
    for (std::size_t at; (at = slowlyFound(expected, selection, matchCase, done)) != std::string::npos;
         done = at + by.size())
        expected.replace(at, selection.size(), by);
    require(result.text == expected && result.posiçãoCursor == done, "another text with all replaced");
    require(zolt::textWithReplaced(document, result.offsets, selection.size(), by) == expected,
            "another text at the offsets");
    return result.text;
}

std::string optimise(const std::string &document, Step step) {
    const auto kind = static_cast<zolt::Optimisation>(1 + step.kind % 2);
    const std::string optimised = zolt::optimiseImages(document, kind);
    if (document.size() <= kLongestForTheSlowWay)
        require(optimised == zolt::literal::optimised(document, kind),
                "another text than the slow way optimises");
    return optimised;
}

std::string testIntegrity(const std::string &document, Step) {
    const zolt::IntegrityResult result = zolt::testIntegrity(document);
    const zolt::literal::Corrected expected = zolt::literal::corrected(document);
    const std::string &text = result.TextoCorrigido;
    require(text == expected.text && result.NúmeroDeErros == expected.errors, "another correction");
    const zolt::IntegrityResult again = zolt::testIntegrity(text);
    if (text.front() == '"' && text.back() == '"')
        require(again.TextoCorrigido == text && again.report.find("-Ilegal") == std::string::npos,
                "a corrected text that has to be corrected");
    std::size_t lines = 0;
    for (const std::string_view line : {"-Ilegal", "-Illegal"})
        for (std::size_t at = 0; (at = result.report.find(line, at)) != std::string::npos; ++at)
            ++lines;
    require(lines == result.NúmeroDeErros, "errors without a line");
    return text;
}

std::string writeHpFile(const std::string &document, Step step) {
    const std::string text = zolt::correctedDocument(document);
    require(zolt::hpFile(text) == text + "\r\n", "a file that isn't the text and a line end");
    const std::string name(step.selection(document));
    const zolt::NameVerdict verdict = zolt::checkHpFileName(name);
    require((verdict.kind == zolt::NameVerdict::Allowed) == verdict.message.empty(),
            "a verdict without a word");
    if (verdict.kind == zolt::NameVerdict::Allowed)
        require(name.find_first_of(" ./\"") == std::string::npos &&
                    (name.empty() || zolt::hexDigitValue(name.front()) < 0 || name.front() > '9'),
                "a name that names no variable");
    zolt::checkHpFileTitle(name);
    return document;
}

std::string exportPdf(const std::string &document, Step step) {
    const zolt::WrittenPdf pdf =
        step.kind % 2 ? zolt::writtenPdf(document, zolt::narrowPage()) : zolt::writtenPdf(document);
    require(pdf.bytes.starts_with("%PDF-1.2\r") && pdf.bytes.ends_with("\r%%EOF\r"), "no PDF file");
    require(pdf.result.finished && static_cast<int>(zolt::pagesOf(pdf.bytes).size()) == pdf.result.pageCount,
            "another number of pages");
    require(zolt::hasTrueOffsets(pdf.bytes), "an object elsewhere");
    return document;
}

std::string exportWebPage(const std::string &document, Step) {
    const zolt::WebPage page = zolt::webPage(document, {});
    require(page.ok() == !document.empty() && page.ok() == page.message.empty(),
            "a page of nothing, or none");
    if (page.ok())
        require(page.file.find("\">\r\n" + zolt::literal::marked(document) + "</font>") != std::string::npos,
                "another text in the page");
    return document;
}

/// A dot for each byte of the picture.
zolt::DotSurface dotsOf(const zolt::RichPicture &picture) {
    zolt::DotSurface surface(zolt::kSourcePictureWidth, zolt::kSourcePictureHeight);
    for (std::size_t i = 0; i < picture.bytes.size(); ++i)
        surface.setDot(static_cast<int>(i % 40), static_cast<int>(i / 40), picture.bytes[i] % 2 != 0);
    return surface;
}

std::string compile(const std::string &document, Step step) {
    constexpr zolt::PreviewFlavour kFlavours[] = {zolt::PreviewFlavour::Wrapped, zolt::PreviewFlavour::Normal,
                                                  zolt::PreviewFlavour::Hp48};
    const zolt::Preview preview = zolt::compilePreview(document, kFlavours[step.kind % 3]);
    require(zolt::plainText(preview.text) == preview.styled.characters, "two forms of one text");
    require(zolt::plainText(zolt::richTextFromRtf(zolt::rtfFromRichText(preview.text))) ==
                zolt::plainText(preview.text),
            "another text in RTF");
    if (document.size() > kLongestForTheSlowWay)
        return document;
    const auto cellsOf = [](const zolt::RichPicture &picture) { return zolt::LerFigura(dotsOf(picture)); };
    const int kind = 1 + step.place % 3;
    require(zolt::compileSource(preview.text, static_cast<zolt::SourceKind>(kind), dotsOf) ==
                zolt::test::literalSource(preview.text, kind, cellsOf),
            "another source than the slow way compiles");
    return document;
}

std::string count(const std::string &document, Step) {
    require(zolt::countWords(document) == zolt::literal::wordCount(document), "other counts");
    return document;
}

std::string saveAndOpen(const std::string &document, Step) {
    const std::string file = zolt::fileFromDocument(document);
    const std::string opened = zolt::documentFromFile(file);
    require(opened == zolt::literal::documentOf(file), "another document than the slow way reads");
    require(zolt::fileFromDocument(opened).size() >= file.size(), "a byte lost in the file");
    require(zolt::documentFromFile(zolt::fileFromDocument(opened)) == opened,
            "another document at reopening");
    return opened;
}

std::string exchangeMarks(const std::string &document, Step) {
    const std::string rich = zolt::withRichTextStyleMarks(document);
    if (document.find(zolt::kRichTextStyleMark) == std::string::npos)
        require(zolt::withStyleMarks(rich) == document, "other marks on the way back");
    return zolt::withStyleMarks(rich);
}

constexpr Command kCommands[] = {applyStyle, removeStyles,  changeCase,  find,         replaceAll,
                                 optimise,   testIntegrity, writeHpFile, exportPdf,    exportWebPage,
                                 compile,    count,         saveAndOpen, exchangeMarks};

} // namespace

/// A line of steps, three bytes each (a letter for the command, from "a", and two that
/// say where and how), and the document that they are done to.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    const std::string_view program = input.substr(0, input.find('\n'));
    std::string document(input.substr(std::min(program.size() + 1, size)));
    for (std::size_t i = 0; i + 2 < program.size() && i < 3 * kMostSteps; i += 3) {
        if (document.size() > kLongest)
            document.resize(kLongest);
        const auto command = static_cast<std::size_t>(static_cast<unsigned char>(program[i] - 'a'));
        const Step step{static_cast<unsigned char>(program[i + 1]),
                        static_cast<unsigned char>(program[i + 2])};
        document = kCommands[command % std::size(kCommands)](document, step);
    }
    return 0;
}
