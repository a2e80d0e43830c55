#pragma once

#include "graphic/rich_text.h"

#include <QFont>
#include <QObject>
#include <QString>
#include <memory>
#include <string>

class QDialog;
class QFileDialog;
class QFileIconProvider;
class QPrinter;
class QWidget;

namespace zolt {

/// How a common dialog ended.
enum DialogError : int { kDialogDone = 0, kDialogCancelled = 32755 };

/// Flags of the file dialogs; other bits have no meaning on this platform.
/// kAddExtension is this system's own: a save dialog gives a name without an extension
/// that of the chosen filter's first pattern, before it asks about overwriting.
enum DialogFlag : int { kOverwritePrompt = 0x2, kFileMustExist = 0x1000, kAddExtension = 0x1000000 };

/// A file, colour, font or print dialog that keeps its values between two showings.
/// Set the fields, show it, read the fields back. Its QDialog bears the object's
/// name, so that a program can find and drive it while it stands.
class CommonDialog : public QObject {
    Q_OBJECT

public:
    explicit CommonDialog(const QString &name, QObject *parent = nullptr);
    ~CommonDialog() override;

    QString DialogTitle;
    /// Pairs of caption and patterns, "Text (*.txt)|*.txt|GROB|*.grb;*.gro|". Where
    /// none of them shows all files, the dialog offers that behind them.
    QString Filter;
    /// The pair preselected, from 1; afterwards the one chosen, which for the dialog's
    /// own "All files" is the number of pairs and 1. An index beyond the last pair
    /// means the last one.
    int FilterIndex = 1;
    int Flags = 0;
    /// Where the dialog starts, as file system bytes: a folder, or a file in it.
    std::string InitDir;
    /// The full path, as file system bytes; empty while none was chosen.
    std::string FileName;
    Colour Color = 0;
    QFont Font;

    /// The file's name without its folder.
    std::string FileTitle() const;

    /// They show the dialog and return kDialogDone with FileName set, or
    /// kDialogCancelled with nothing changed. The asking window owns the dialog, and
    /// the control that had the keyboard has it again afterwards. A window that goes
    /// meanwhile takes the dialog along: it counts as cancelled.
    int ShowOpen(QWidget *asker);
    int ShowSave(QWidget *asker);
    /// The system's folder browser, from InitDir on; FileName takes the folder, without a
    /// trailing separator. The same results.
    int ShowFolder(QWidget *asker);
    /// Color or Font takes the choice; the same results.
    int ShowColor(QWidget *asker);
    int ShowFont(QWidget *asker);
    /// Sets a printer up; the dialog begins with what it is. The whole or, if there is a
    /// selection, that may be printed, no range of pages. The same results.
    int ShowPrinter(QWidget *asker, QPrinter &printer, bool hasSelection);

private:
    int showFileDialog(QFileDialog &dialog);
    void startInFolder(QFileDialog &dialog) const;
    /// Runs a dialog and gives the keyboard back. True if it was accepted; else it may
    /// be gone.
    bool run(QDialog &dialog);

    std::unique_ptr<QFileIconProvider> m_kinds;
};

} // namespace zolt
