#include "zoltc/command_table.h"

namespace zolt::cli {

const std::vector<Command> &commands() {
    static const std::vector<Command> table{
        checkCommand(),   hpCommand(), symbolsCommand(), pdfCommand(), htmlCommand(), imageCommand(),
#ifdef ZOLT_GLYPHS
        previewCommand(),
#endif
    };
    return table;
}

} // namespace zolt::cli
