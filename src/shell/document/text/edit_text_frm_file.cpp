// The life of the text edition's document: new, open, save, close, exit.

#include "core/document.h"
#include "core/file.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

#include <QCloseEvent>
#include <QLabel>
#include <QTimer>
#include <QToolBar>

namespace zolt {

namespace {

CommonDialog &documentDialog(const QString &title, int flags) {
    CommonDialog &dialog = commonDialog(DialogFrm::Document);
    dialog.DialogTitle = title;
    dialog.Filter = QStringLiteral("All files (*.*)|*.*|ZOLT Text Format (*.zlt)|*.zlt|");
    dialog.FilterIndex = 1;
    dialog.InitDir = shared::settings.DefltDir;
    dialog.Flags = flags;
    return dialog;
}

/// Shows a step of reading in a panel, once for each percent.
Progress percentInto(QLabel *panel) {
    return [panel, shown = std::size_t{101}](std::size_t step, std::size_t total) mutable {
        const std::size_t percent = total ? step * 100 / total : 100;
        if (percent != shown) {
            shown = percent;
            panel->setText(QStringLiteral("Opening file... %1%").arg(percent));
            panel->repaint();
        }
        return true;
    };
}

} // namespace

void EditTextFrm::showDocument(const std::string &document, const QString &caption) {
    activePane().setText(document);
    setCaption(caption);
    documentBegins();
}

void EditTextFrm::FicheiroNovo() {
    if (ask(this, QStringLiteral("Exit document ?"), QMessageBox::Ok | QMessageBox::Cancel,
            QMessageBox::Warning, QStringLiteral("New document")) != QMessageBox::Ok)
        return;
    showDocument({}, QStringLiteral("Document1"));
    commonDialog(DialogFrm::Document).FileName.clear();
}

void EditTextFrm::FicheiroAbrir() {
    CommonDialog &dialog = documentDialog(QStringLiteral("Open"), kFileMustExist);
    const std::string nameBefore = dialog.FileName;
    if (dialog.ShowOpen(this) != kDialogDone)
        return;
    const FileContents file = readFile(dialog.FileName);
    if (!file.ok()) {
        say(QStringLiteral("%1 wasn't opened: %2")
                .arg(fromFileName(dialog.FileTitle()), QString::fromLocal8Bit(file.reason.c_str())));
        dialog.FileName = nameBefore;
        return;
    }
    const std::string document = documentFromFile(file.bytes, percentInto(m_panels[Progress]));
    say({});
    if (m_touched && documentChanged())
        sayReplaced(caption());
    shared::settings.DefltDir = folderOf(dialog.FileName);
    showDocument(document, fromFileName(dialog.FileTitle()));
}

bool EditTextFrm::writeDocument() {
    const std::string document = activePane().Text();
    const std::string &path = commonDialog(DialogFrm::Document).FileName;
    if (!savedOrSaid(path, writeFile(path, fileFromDocument(document))))
        return false;
    say({});
    shared::TextoGuardado = document;
    m_touched = false;
    m_comparison->stop();
    showWouldAsk(false);
    return true;
}

void EditTextFrm::FicheiroGuardar() {
    const CommonDialog &dialog = commonDialog(DialogFrm::Document);
    if (dialog.FileName.empty())
        FicheiroGuardarComo();
    else if (writeDocument())
        setCaption(dialog.FileTitle());
}

void EditTextFrm::FicheiroGuardarComo() {
    CommonDialog &dialog = documentDialog(QStringLiteral("Save As"), kFileMustExist | kOverwritePrompt);
    const std::string nameBefore = dialog.FileName;
    shared::GuardarCancelado = 1;
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    if (!writeDocument()) {
        dialog.FileName = nameBefore;
        return;
    }
    shared::GuardarCancelado = 0;
    shared::settings.DefltDir = folderOf(dialog.FileName);
    setCaption(dialog.FileTitle());
}

bool EditTextFrm::documentChanged() const {
    const auto length = static_cast<std::size_t>(activePane().length());
    return length > 0 &&
           (length != shared::TextoGuardado.size() || activePane().Text() != shared::TextoGuardado);
}

void EditTextFrm::discardDocument() {
    showDocument({}, QStringLiteral("Document1"));
    commonDialog(DialogFrm::Document).FileName.clear();
}

bool EditTextFrm::mayLeaveDocument() {
    if (!documentChanged())
        return true;
    switch (ask(this, QStringLiteral("Save changes to %1?").arg(caption()),
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Warning)) {
    case QMessageBox::Yes:
        FicheiroGuardarComo();
        return shared::GuardarCancelado == 0;
    case QMessageBox::No:
        discardDocument();
        return true;
    default:
        return false;
    }
}

void EditTextFrm::FicheiroFechar() {
    commonDialog(DialogFrm::Document).FileName.clear();
    close();
}

void EditTextFrm::AbandonarPrograma() {
    if (mayLeaveDocument())
        m_frame->close();
}

void EditTextFrm::closeEvent(QCloseEvent *event) {
    if (shared::SemPerguntaDeSaída == 1) {
        OperaçõesDeSaída();
    } else if (mayLeaveDocument()) {
        OperaçõesDeSaída();
        commonDialog(DialogFrm::Document).FileName.clear();
    } else {
        event->ignore();
        return;
    }
    QMdiSubWindow::closeEvent(event);
    if (event->isAccepted())
        markClosed(*this);
}

void EditTextFrm::OperaçõesDeSaída() {
    recordCompanions();
    closeCompanions();
    m_frame->showTextToolbars(false, false);
    m_frame->toolbar(1)->show();
    m_frame->showMenus({});
    m_frame->checkOwnToolbar();
}

} // namespace zolt
