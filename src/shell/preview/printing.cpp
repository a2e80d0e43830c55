#include "shell/preview/printing.h"

#include "platform/printer.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/preview/waiting.h"

#include <QFile>
#include <QPrinter>

namespace zolt {

namespace {

constexpr std::int16_t kPortrait = 1;
constexpr std::int16_t kLandscape = 2;

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
