#include "shell/mdi_frm.h"
#include "shell/start_up.h"

#include <QApplication>

int main(int argc, char **argv) {
    zolt::prepareApplication();
    QApplication application(argc, argv);
    // A name with blanks may come unquoted, in several words.
    std::string commandLine;
    for (int i = 1; i < argc; ++i)
        commandLine += (i > 1 ? " " : "") + std::string(argv[i]);
    zolt::MDIFrm &frame = zolt::startProgram(commandLine);
    QObject::connect(&frame, &zolt::MDIFrm::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    return QApplication::exec();
}
