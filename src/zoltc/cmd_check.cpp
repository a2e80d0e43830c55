#include "core/document.h"
#include "hp48/integrity_test.h"
#include "zoltc/command_table.h"

#include <utility>

namespace zolt::cli {

namespace {

int runCheck(const Arguments &arguments) {
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    bool written = true;
    IntegrityResult result =
        testIntegrity(documentFromFile(std::move(bytes)),
                      [&written](std::string_view piece) { written = written && writeOutput("-", piece); });
    if (!written)
        return Unusable;
    if (arguments.has("corrected") &&
        !writeOutput(arguments.value("corrected"), fileFromDocument(std::move(result.TextoCorrigido))))
        return Unusable;
    return result.NúmeroDeErros > 0 ? Refused : Done;
}

} // namespace

Command checkCommand() {
    return {"check",
            "INPUT",
            "Tests whether a document can be one string of the calculator.\n"
            "Prints the report, its lines ended by CR LF. Exits with 1 if errors were counted.",
            {{"corrected", "FILE", "write the corrected document to FILE"}},
            1,
            1,
            runCheck};
}

} // namespace zolt::cli
