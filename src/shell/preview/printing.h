#pragma once

#include "graphic/rich_text.h"
#include "shell/base/dialog_frm.h"

#include <QString>
#include <functional>

class QWidget;

namespace zolt {

/// What a window has to print.
struct Printout {
    /// The name of the job.
    QString title;
    /// Whose dialog asks for the printer.
    DialogFrm::Client client;
    bool hasSelection;
    /// All of it, or what is selected.
    std::function<RichText(bool selection)> text;
};

/// Asks for a printer and prints there, with the margins of the settings; their
/// orientation is where the dialog begins, and becomes what was chosen. `asker` can't be
/// used meanwhile, and has the keyboard again afterwards. Cancel is silent; a job that
/// fails is told in the status bar.
void print(QWidget &asker, const Printout &printout);

} // namespace zolt
