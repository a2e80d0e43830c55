#include "shell/preview/printing.h"

#include "platform/printer.h"
#include "shell/base/frame.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/base/windows.h"
#include "shell/preview/wait_frm.h"

#include <QFile>
#include <QPointer>
#include <QPrinter>

namespace zolt {

namespace {

constexpr std::int16_t kPortrait = 1;
constexpr std::int16_t kLandscape = 2;

/// Puts a window out of use while work on its behalf is shown in WaitFrm.
class Waiting {
public:
    Waiting(QWidget &window, const QString &task)
        : m_window(&window), m_focus(window.focusWidget()), m_wait(&load<WaitFrm>(frameWindow())) {
        shared::CancelarOperação = 0;
        window.setEnabled(false);
        m_wait->setTask(task);
    }
    ~Waiting() {
        shared::CancelarOperação = 0;
        if (m_window)
            m_window->setEnabled(true);
        if (m_wait)
            m_wait->finish();
        if (m_window)
            m_window->activateWindow();
        if (m_focus)
            m_focus->setFocus();
    }
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

    Progress progress() const { return m_wait->plainProgress(); }

private:
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_focus;
    QPointer<WaitFrm> m_wait;
};

PageMargins marginsOfSettings() {
    const Settings &settings = shared::settings;
    return {.left = settings.PgStpLft,
            .top = settings.PgStpTop,
            .right = settings.PgStpRgt,
            .bottom = settings.PgStpBot};
}

void report(const PrintOutcome &outcome, const QString &file) {
    if (!outcome.reason.empty())
        savedOrSaid(QFile::encodeName(file).toStdString(), outcome.reason);
    else if (outcome.result == PrintResult::NoRoom)
        sayInStatusBar(QStringLiteral("Not printed: the margins fill the page."));
    else if (outcome.result == PrintResult::Failed)
        sayInStatusBar(QStringLiteral("The printer failed."));
}

} // namespace

void print(QWidget &asker, const Printout &printout) {
    std::int16_t &orientation = shared::settings.PgStpOrn;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(printout.title);
    printer.setCreator(QStringLiteral("ZOLT"));
    printer.setPageOrientation(orientation == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (commonDialog(printout.client).ShowPrinter(&asker, printer, printout.hasSelection) != kDialogDone)
        return;
    orientation = printer.pageLayout().orientation() == QPageLayout::Landscape ? kLandscape : kPortrait;

    const RichText text = printout.text(printer.printRange() == QPrinter::Selection);
    PrintOutcome outcome;
    {
        const Waiting waiting(*asker.window(), QStringLiteral("Printing..."));
        outcome = printOn(printer, text, marginsOfSettings(), waiting.progress());
    }
    report(outcome, printer.outputFileName());
}

} // namespace zolt
