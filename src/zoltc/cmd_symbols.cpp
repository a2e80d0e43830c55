#include "symbols/symbol_list.h"
#include "zoltc/command_table.h"

namespace zolt::cli {

namespace {

int runSymbols(const Arguments &arguments) {
    std::string bytes;
    if (!readInput(arguments.files[0], bytes))
        return Unusable;
    SymbolList list;
    list.load(bytes);
    if (const auto others = arguments.options.find("import"); others != arguments.options.end())
        for (const std::string &other : others->second) {
            if (!readInput(other, bytes))
                return Unusable;
            list.import(bytes);
        }
    std::string output;
    if (arguments.files.size() > 1)
        output = list.save();
    else
        for (int i = 1; i <= list.NumeroDeSimbolos(); ++i)
            output += list.NomesDosSimbolos(i) + "\t" + list.ExpressoesDosSimbolos(i) + "\n";
    return writeOutput(arguments.files.size() > 1 ? arguments.files[1] : "-", output) ? Done : Unusable;
}

} // namespace

Command symbolsCommand() {
    return {"symbols",
            "INPUT [OUTPUT]",
            "Lists the symbols of a symbol file, or joins symbol files.\n"
            "Without OUTPUT, prints a line for each symbol: its title, a tab and its expression, as bytes.\n"
            "A damaged file is read as far as it goes.",
            {{"import", "OTHER", "add the symbols of OTHER at the end", true}},
            1,
            2,
            runSymbols};
}

} // namespace zolt::cli
