#include "core/document.h"
#include "core/file.h"
#include "hp48/hp_file.h"
#include "hp48/hp_file_name.h"
#include "hp48/integrity_test.h"
#include "zoltc/command_table.h"

#include <cstdio>
#include <utility>

namespace zolt::cli {

namespace {

/// Whether the calculator takes OUTPUT's name; if not, says why on standard error.
bool nameIsAllowed(const std::string &output, bool reservedToo) {
    if (output == "-")
        return true;
    const NameVerdict verdict = checkHpFileTitle(titleOf(output));
    if (verdict.kind == NameVerdict::Allowed || (verdict.kind == NameVerdict::Reserved && reservedToo))
        return true;
    std::fprintf(stderr, "%s\n", verdict.message.c_str());
    return false;
}

int runHp(const Arguments &arguments) {
    const std::string &output = arguments.files[1];
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    if (!nameIsAllowed(output, arguments.has("reserved")))
        return Refused;
    return writeOutput(output, hpFile(correctedDocument(documentFromFile(std::move(bytes))))) ? Done
                                                                                              : Unusable;
}

} // namespace

Command hpCommand() {
    return {"hp",
            "INPUT OUTPUT",
            "Corrects a document and writes it as the calculator's file.\n"
            "OUTPUT's name without its folder names a variable there, so not every name is allowed.\n"
            "\"zoltc check\" tells what is wrong inside the document.",
            {{"reserved", "", "allow the name of a reserved variable"}},
            2,
            2,
            runHp};
}

} // namespace zolt::cli
