#include "core/new_file.h"
#include "shell/frame/mdi_frm.h"
#include "shell/start/start_up.h"

#include <QApplication>
#include <cstdio>
#include <string_view>

namespace {

constexpr const char *kHelp =
    "usage: zolt [FILE]\n"
    "\n"
    "Edits a document that is read on an HP48 calculator. Without FILE asks what to begin with.\n"
    "\n"
    "  --help     this text\n"
    "  --version  the version\n"
    "\n"
    "A file of such a name is ./--help. ZOLT_HOME names the folder of the settings.\n"
    "zoltc does the same work on files, without windows.\n";

/// Answers a question about the program, for which no display is needed. False if the
/// words are no such question.
bool answered(int argc, char **argv) {
    const std::string_view word = argc == 2 ? argv[1] : "";
    if (word == "--help")
        std::fputs(kHelp, stdout);
    else if (word == "--version")
        std::puts("zolt " ZOLT_VERSION);
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char **argv) {
    if (answered(argc, argv))
        return 0;
    zolt::leaveNoFilesOnSignals();
    zolt::prepareApplication();
    QApplication application(argc, argv);
    // A name with blanks may come unquoted, in several words.
    std::string commandLine;
    for (int i = 1; i < argc; ++i)
        commandLine.append(i > 1 ? " " : "").append(argv[i]);
    zolt::MDIFrm &frame = zolt::startProgram(commandLine);
    QObject::connect(&frame, &zolt::MDIFrm::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    return QApplication::exec();
}
