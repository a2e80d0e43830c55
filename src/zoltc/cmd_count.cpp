#include "core/document.h"
#include "core/word_count.h"
#include "zoltc/command_table.h"

#include <utility>

namespace zolt::cli {

namespace {

int runCount(const Arguments &arguments) {
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    const WordCount count = countWords(documentFromFile(std::move(bytes)));
    std::string lines;
    const auto addLine = [&](std::string_view caption, std::size_t number) {
        lines.append(caption).append(": ").append(std::to_string(number)).append("\n");
    };
    addLine("Words", count.Palavras);
    addLine("Characters (excl. spaces)", count.CaracteresSemEspaços);
    addLine("Characters (incl. spaces)", count.CaracteresComEspaços);
    addLine("Paragraphs", count.Parágrafos);
    return writeOutput("-", lines) ? Done : Unusable;
}

} // namespace

Command countCommand() {
    return {"count", "INPUT", "Counts a document's words, characters and paragraphs.", {}, 1, 1, runCount};
}

} // namespace zolt::cli
