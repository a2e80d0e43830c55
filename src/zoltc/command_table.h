#pragma once

#include "zoltc/command.h"

namespace zolt::cli {

// One row for each command, each made in the file of the command's name.
Command checkCommand();
Command compileCommand();
Command countCommand();
Command hpCommand();
Command htmlCommand();
Command imageCommand();
Command optimiseCommand();
Command pdfCommand();
Command previewCommand();
Command symbolsCommand();
Command wrapCommand();

} // namespace zolt::cli
