#include "core/document.h"
#include "core/utf8.h"
#include "export/pdf_writer.h"
#include "zoltc/command_table.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <utility>

namespace zolt::cli {

namespace {

constexpr std::array<std::string_view, 3> kFonts{"Courier", "Times-Roman", "Arial"};
constexpr std::array kRotations{0, 90, 180, 270};
constexpr int kSmallestSize = 8;
constexpr int kLargestSize = 20;

struct PageSize {
    std::string_view name;
    double width;
    double height;
};

constexpr std::array<PageSize, 3> kPageSizes{{{"8.5x11", 8.5, 11}, {"8.5x14", 8.5, 14}, {"14x11", 14, 11}}};

std::tm localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

/// Reads the options into `parameters`. Gives the option with a bad value, else nothing.
std::optional<std::string_view> readOptions(const Arguments &arguments, PdfParameters &parameters) {
    parameters.fontName = arguments.value("font", parameters.fontName);
    if (std::find(kFonts.begin(), kFonts.end(), parameters.fontName) == kFonts.end())
        return "--font";

    const auto size = wholeNumber(arguments.value("size", std::to_string(parameters.fontSize)));
    if (!size || *size < kSmallestSize || *size > kLargestSize)
        return "--size";
    parameters.fontSize = *size;

    const auto rotation = wholeNumber(arguments.value("rotation", std::to_string(parameters.rotation)));
    if (!rotation || std::find(kRotations.begin(), kRotations.end(), *rotation) == kRotations.end())
        return "--rotation";
    parameters.rotation = *rotation;

    const std::string pageName = arguments.value("page", kPageSizes.front().name);
    const auto page = std::find_if(kPageSizes.begin(), kPageSizes.end(),
                                   [&](const PageSize &known) { return known.name == pageName; });
    if (page == kPageSizes.end())
        return "--page";
    parameters.pageWidth = page->width;
    parameters.pageHeight = page->height;

    parameters.title = windowsFromUtf8(arguments.value("title"));
    parameters.subject = windowsFromUtf8(arguments.value("subject"));
    parameters.author = windowsFromUtf8(arguments.value("author"));
    parameters.keywords = windowsFromUtf8(arguments.value("keywords"));
    parameters.creator = windowsFromUtf8(arguments.value("creator", parameters.creator));
    return std::nullopt;
}

int runPdf(const Arguments &arguments) {
    PdfParameters parameters;
    if (const auto bad = readOptions(arguments, parameters))
        return unusable(*bad, "not a value that this option takes");
    parameters.createdAt = localTime();

    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    Output output(arguments.files[1]);
    const PdfResult result = writePdf(documentFromFile(std::move(bytes)), parameters,
                                      [&output](std::string_view piece) { output.append(piece); });
    if (!output.finish())
        return Unusable;
    for (const std::string &message : result.messages)
        unusable(arguments.files[1], message);
    return result.messages.empty() ? Done : Refused;
}

} // namespace

Command pdfCommand() {
    return {"pdf",
            "INPUT OUTPUT",
            "Writes a document as a PDF file.\n"
            "Codes and pictures are not interpreted. Texts of options are stored in code page 1252.",
            {{"font", "NAME", "Courier, Times-Roman or Arial (Times-Roman)"},
             {"size", "POINTS", "font size, 8 to 20 (10)"},
             {"rotation", "DEGREES", "0, 90, 180 or 270 (0)"},
             {"page", "SIZE", "page in inches: 8.5x11, 8.5x14 or 14x11 (8.5x11)"},
             {"title", "T", "title of the document"},
             {"subject", "T", "subject of the document"},
             {"author", "T", "author of the document"},
             {"keywords", "T", "keywords of the document"},
             {"creator", "T", "program that made the document (ZOLT)"}},
            2,
            2,
            runPdf};
}

} // namespace zolt::cli
