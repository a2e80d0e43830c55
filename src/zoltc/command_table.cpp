#include "zoltc/command_table.h"

namespace zolt::cli {

const std::vector<Command> &commands() {
    static const std::vector<Command> table{
        checkCommand(), hpCommand(),       compileCommand(), previewCommand(),
        countCommand(), optimiseCommand(), wrapCommand(),    symbolsCommand(),
        pdfCommand(),   htmlCommand(),     imageCommand(),
    };
    return table;
}

} // namespace zolt::cli
