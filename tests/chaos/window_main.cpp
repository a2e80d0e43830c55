// The program's windows with a user who never stops: chaos_window FILE types numbers at the
// end of FILE by real keys, saves now and then, rests now and then, and tells on its
// standard output what it did: "t N" once the number N is typed, "s N" once a save said
// nothing against it.

#include "core/new_file.h"
#include "platform/pane.h"
#include "shell/base/document_in_use.h"
#include "shell/frame/mdi_frm.h"
#include "shell/start/start_up.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QTimer>
#include <cstdio>
#include <random>
#include <string>

namespace {

using zolt::documentInUse;

void type(QChar character) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, character);
        QCoreApplication::sendEvent(&documentInUse()->activePane().control(), &event);
    }
}

class Typist {
public:
    explicit Typist(unsigned seed) : m_random(seed) {
        zolt::Pane &pane = documentInUse()->activePane();
        pane.setSelStart(pane.length());
        next(0);
    }

private:
    void next(int milliseconds) {
        QTimer::singleShot(milliseconds, qApp, [this] { act(); });
    }

    void act() {
        const unsigned chance = m_random() % 100;
        if (chance < 10)
            return rest();
        if (chance < 25)
            save();
        else
            typeNumber();
        next(static_cast<int>(m_random() % 60));
    }

    /// Long enough for what is typed to be kept.
    void rest() { next(2500 + static_cast<int>(m_random() % 1000)); }

    void save() {
        QMetaObject::invokeMethod(&documentInUse()->window(), "FicheiroGuardar", Qt::DirectConnection);
        // A save that fails leaves the document changed.
        if (!documentInUse()->wouldAsk())
            tell('s');
    }

    void typeNumber() {
        for (const QChar digit : QString::number(m_number + 1) + QLatin1Char(' '))
            type(digit);
        ++m_number;
        tell('t');
    }

    void tell(char what) const {
        std::printf("%c %d\n", what, m_number);
        std::fflush(stdout);
    }

    std::mt19937 m_random;
    int m_number = 0;
};

} // namespace

int main(int argc, char **argv) {
    zolt::leaveNoFilesOnSignals();
    zolt::prepareApplication();
    QApplication application(argc, argv);
    zolt::startProgram("\"" + std::string(argv[1]) + "\"");
    if (!documentInUse())
        return 1;
    const Typist typist(static_cast<unsigned>(std::stoul(argv[2])));
    return QApplication::exec();
}
