// What a start takes, stage by stage: the program is begun with the document named, or
// none, until its window has been painted and all of the text is in.
// Run it with QT_QPA_PLATFORM=offscreen, or under a display.

#include "platform/pane.h"
#include "shell/base/document_in_use.h"
#include "shell/start/start_up.h"

#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>

int main(int argc, char **argv) {
    timespec cpu{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &cpu);
    std::printf("loaded %.1f ms cpu\n", cpu.tv_sec * 1e3 + cpu.tv_nsec / 1e6);
    QElapsedTimer clock;
    clock.start();
    zolt::prepareApplication();
    QApplication application(argc, argv);
    std::printf("application %.1f ms\n", clock.nsecsElapsed() / 1e6);
    zolt::startProgram(argc > 1 ? argv[1] : "");
    std::printf("started %.1f ms\n", clock.nsecsElapsed() / 1e6);
    QCoreApplication::processEvents();
    std::printf("painted %.1f ms\n", clock.nsecsElapsed() / 1e6);
    if (zolt::activePane())
        zolt::activePane()->Text();
    std::printf("all in %.1f ms\n", clock.nsecsElapsed() / 1e6);
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    std::printf("peak %.1f MB\n", use.ru_maxrss / 1024.0);
    std::fflush(stdout);
    _exit(0);
}
