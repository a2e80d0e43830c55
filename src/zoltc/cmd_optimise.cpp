#include "core/document.h"
#include "core/optimise.h"
#include "zoltc/command_table.h"

#include <utility>

namespace zolt::cli {

namespace {

int runOptimise(const Arguments &arguments) {
    const bool total = arguments.has("total");
    if (total == arguments.has("partial"))
        return unusable("optimise", "needs one of --partial and --total");
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    const Optimisation kind = total ? Optimisation::Total : Optimisation::Partial;
    std::string optimised = optimiseImages(documentFromFile(std::move(bytes)), kind);
    return writeOutput(arguments.files[1], fileFromDocument(std::move(optimised))) ? Done : Unusable;
}

} // namespace

Command optimiseCommand() {
    return {"optimise",
            "INPUT OUTPUT",
            "Shortens a document by the blank parts of its pictures.\n"
            "One of the two options says how far.",
            {{"partial", "", "drop blank cells at line ends"},
             {"total", "", "put blanks in place of the other blank cells too"}},
            2,
            2,
            runOptimise};
}

} // namespace zolt::cli
