// The life of a document: new, open, save, print, close, exit.

#include "core/file.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/recent_files.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/document/document_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/preview/printing.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QLabel>
#include <QTimer>
#include <QToolBar>
#include <array>
#include <utility>

namespace zolt {

namespace {

/// Shows a step of reading in a panel, once for each percent and until the last, unless it
/// has something else to say.
Progress percentInto(QLabel *panel) {
    return [panel, shown = QString()](std::size_t step, std::size_t total) mutable {
        if (!panel->text().isEmpty() && panel->text() != shown)
            return true;
        const QString percent = QStringLiteral("Opening file... %1%").arg(total ? step * 100 / total : 100);
        if (std::exchange(shown, percent) != percent) {
            panel->setText(percent);
            panel->repaint();
        }
        if (step >= total)
            panel->clear();
        return true;
    };
}

} // namespace

CommonDialog &DocumentFrm::documentDialog(const QString &title, int flags) {
    CommonDialog &dialog = commonDialog(DialogFrm::Document);
    dialog.DialogTitle = title;
    dialog.Filter = QString::fromUtf8(m_edition.filter);
    dialog.FilterIndex = m_edition.filterIndex;
    dialog.InitDir = shared::settings.DefltDir;
    dialog.Flags = flags;
    return dialog;
}

Progress DocumentFrm::openingProgress() {
    return percentInto(m_panels[Message]);
}

KeptSnapshot DocumentFrm::snapshotOf(const Pane &pane) const {
    return {{.edition = m_edition.number,
             .path = commonDialog(DialogFrm::Document).FileName,
             .caption = m_caption.toStdString(),
             .time = QDateTime::currentSecsSinceEpoch(),
             .pane = shared::settings.TxtWWrap == 2 ? 2 : 1,
             .caret = pane.SelStart(),
             .bytes = {}},
            storedLater(pane)};
}

bool DocumentFrm::keepThrownAway() {
    if (!m_touched || !documentChanged())
        return false;
    if (DocumentKeeper *keeper = documentKeeper())
        keeper->throwAway(snapshotOf(activePane()));
    return true;
}

void DocumentFrm::discardDocument() {
    keepThrownAway();
    clear();
    setCaption(QStringLiteral("Document1"));
    commonDialog(DialogFrm::Document).FileName.clear();
    documentBegins();
}

void DocumentFrm::FicheiroNovo() {
    if (ask(this, QStringLiteral("Exit document ?"), QMessageBox::Ok | QMessageBox::Cancel,
            QMessageBox::Warning, QStringLiteral("New document")) != QMessageBox::Ok)
        return;
    discardDocument();
    activePane().takeFocus();
}

std::string DocumentFrm::showFile(const std::string &path, const std::string &bytes, Panes panes) {
    if (std::string reason = m_edition.refusal(bytes); !reason.empty())
        return reason;
    const QString before = caption();
    const bool loses = keepThrownAway();
    takeFileBytes(bytes, panes);
    rememberFile(path);
    say({});
    if (loses)
        sayReplaced(before);
    CommonDialog &dialog = commonDialog(DialogFrm::Document);
    dialog.FileName = path;
    shared::settings.DefltDir = folderOf(path);
    setCaption(dialog.FileTitle());
    documentBegins();
    m_stamp = stampOf(path);
    return {};
}

void DocumentFrm::FicheiroAbrir() {
    CommonDialog &dialog = documentDialog(QStringLiteral("Open"), kFileMustExist);
    const std::string nameBefore = dialog.FileName;
    if (dialog.ShowOpen(this) != kDialogDone)
        return;
    const FileContents file = readFile(dialog.FileName);
    const std::string reason = file.ok() ? showFile(dialog.FileName, file.bytes, ActivePane) : file.reason;
    if (reason.empty())
        return;
    say(QStringLiteral("%1 wasn't opened: %2")
            .arg(fromFileName(dialog.FileTitle()), QString::fromLocal8Bit(reason.c_str())));
    // The next save would overwrite the file that wasn't opened.
    dialog.FileName = nameBefore;
}

bool DocumentFrm::writeDocument() {
    const std::string &path = commonDialog(DialogFrm::Document).FileName;
    std::string document = stored();
    if (!savedOrSaid(path, writeFile(path, fileOf(document))))
        return false;
    rememberFile(path);
    say({});
    shared::TextoGuardado = std::move(document);
    m_savedLength = activePane().length();
    m_stamp = stampOf(path);
    m_touched = false;
    m_comparison->stop();
    showWouldAsk(false);
    return true;
}

void DocumentFrm::FicheiroGuardar() {
    const CommonDialog &dialog = commonDialog(DialogFrm::Document);
    const Answer answer = dialog.FileName.empty() ? SaveAs : askAboutChangedFile();
    if (answer == SaveAs)
        FicheiroGuardarComo();
    else if (answer == Overwrite && writeDocument())
        setCaption(dialog.FileTitle());
}

void DocumentFrm::followFileSince(std::int64_t time) {
    constexpr std::int64_t kSecond = 1'000'000'000;
    m_stamp = stampOf(commonDialog(DialogFrm::Document).FileName);
    if (m_stamp.time / kSecond > time)
        m_stamp.time = time * kSecond;
}

DocumentFrm::Answer DocumentFrm::askAboutChangedFile() {
    const CommonDialog &dialog = commonDialog(DialogFrm::Document);
    const FileStamp now = stampOf(dialog.FileName);
    if (!m_stamp.exists || !now.exists || m_stamp == now)
        return Overwrite;
    constexpr std::array answers{SaveAs, Overwrite, Leave};
    const int chosen =
        choose(this,
               QStringLiteral("%1 was changed by another program since it was opened or saved here.")
                   .arg(fromFileName(dialog.FileTitle())),
               {QStringLiteral("&Save under another name..."), QStringLiteral("&Overwrite"),
                QStringLiteral("Cancel")},
               QMessageBox::Warning);
    return answers[static_cast<std::size_t>(chosen)];
}

void DocumentFrm::FicheiroGuardarComo() {
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

bool DocumentFrm::documentChanged() const {
    if (activePane().length() == 0)
        return false;
    return activePane().length() != m_savedLength || stored() != shared::TextoGuardado;
}

bool DocumentFrm::mayLeaveDocument() {
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

bool DocumentFrm::mayBeReplaced() {
    return !m_touched || mayLeaveDocument();
}

void DocumentFrm::FicheiroFechar() {
    commonDialog(DialogFrm::Document).FileName.clear();
    close();
}

void DocumentFrm::Imprimir() {
    print(*this, {.title = m_caption,
                  .client = DialogFrm::Document,
                  .hasSelection = activePane().hasSelection(),
                  .text = [this](bool selection) { return printout(selection); }});
}

void DocumentFrm::AbandonarPrograma() {
    if (mayLeaveDocument())
        m_frame->close();
}

void DocumentFrm::closeEvent(QCloseEvent *event) {
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
    if (!event->isAccepted())
        return;
    markClosed(*this);
    if (documentInUse() != this)
        return;
    setDocumentInUse(nullptr);
    if (DocumentKeeper *keeper = documentKeeper()) {
        keeper->drop();
        keeper->follow({});
    }
}

void DocumentFrm::OperaçõesDeSaída() {
    recordCompanions();
    closeCompanions();
    m_frame->showDocumentToolbars(m_edition.standardToolbar, false, false);
    m_frame->toolbar(1)->show();
    m_frame->showMenus({});
    m_frame->checkOwnToolbar();
}

} // namespace zolt
