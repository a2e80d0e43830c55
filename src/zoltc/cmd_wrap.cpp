#include "core/document.h"
#include "hp48/word_wrap.h"
#include "zoltc/command_table.h"

#include <utility>

namespace zolt::cli {

namespace {

int runWrap(const Arguments &arguments) {
    const auto columns = wholeNumber(arguments.value("columns", std::to_string(kColumns)));
    if (!columns || *columns < 1 || *columns > kColumns)
        return unusable("--columns", "not a number from 1 to " + std::to_string(kColumns));
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    const WrapOptions options{.columns = *columns, .reflow = arguments.has("reflow")};
    auto wrapped = wrapAtWords(documentFromFile(std::move(bytes)), options);
    return writeOutput(arguments.files[1], fileFromDocument(std::move(*wrapped))) ? Done : Unusable;
}

} // namespace

Command wrapCommand() {
    return {"wrap",
            "INPUT OUTPUT",
            "Breaks a document's lines at blanks, so that the calculator cuts no word.\n"
            "The blank stays at the end of its line. Pictures, menu entries and line ends of one's own stay.",
            {{"columns", "N", "the longest line, 1 to 33 (33); double size has half of it"},
             {"reflow", "", "first join lines broken so before, those that end in a blank"}},
            2,
            2,
            runWrap};
}

} // namespace zolt::cli
