// The text edition's commands that hand the document on as a Web page or PDF file, or to the
// printer.

#include "core/file.h"
#include "export/html_writer.h"
#include "graphic/rich_text_builder.h"
#include "platform/colours.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/document/text/edit_text_frm.h"

#include <QFile>
#include <QRegularExpression>

namespace zolt {

namespace {

WebPageLook lookOf(const TextPane &pane) {
    const QFont &font = pane.font();
    return {.ForeColor = colourValue(pane.palette().color(QPalette::Text)),
            .BackColor = colourValue(pane.palette().color(QPalette::Base)),
            .FontName = windowsBytes(font.family()),
            .FontSize = font.pointSizeF(),
            .FontBold = font.bold(),
            .FontItalic = font.italic(),
            .FontUnderline = font.underline(),
            .FontStrikethru = font.strikeOut()};
}

/// A file's title without its extension. What stands behind a point is none if it is
/// long, holds a blank or is a number: "Chapter 1. Intro", "v1.2".
std::string withoutExtension(const std::string &title) {
    static const QRegularExpression extension(QStringLiteral("(?<=.)\\.(?!\\d+$)[A-Za-z0-9]{1,4}$"));
    const qsizetype length = fromFileName(title).indexOf(extension);
    return length < 0 ? title : QFile::encodeName(fromFileName(title).left(length)).toStdString();
}

/// Asks where the Web page goes; nothing on Cancel. The document's own dialog asks,
/// and keeps the document's name.
std::string askForWebPage(QWidget *asker) {
    CommonDialog &dialog = commonDialog(DialogFrm::Document);
    const std::string document = dialog.FileName;
    const std::string title = dialog.FileTitle();
    dialog.DialogTitle = QStringLiteral("Save As");
    dialog.Filter = QStringLiteral("Web Page (*.htm;*.html)|*.htm|");
    dialog.FilterIndex = 2;
    dialog.InitDir = shared::settings.DefltDir;
    dialog.Flags = kOverwritePrompt | kAddExtension;
    // The document's name itself would be overwritten by a quick Enter.
    if (!title.empty())
        dialog.FileName = withoutExtension(title) + ".htm";
    const std::string chosen = dialog.ShowSave(asker) == kDialogDone ? dialog.FileName : std::string();
    dialog.FileName = document;
    return chosen;
}

} // namespace

RichText EditTextFrm::printout(bool selection) const {
    return inPaneLook(selection ? activePane().SelText() : activePane().Text());
}

std::optional<std::string> EditTextFrm::buildWebPage() {
    const WebPage page = webPage(activePane().Text(), lookOf(activeTextPane()));
    if (page.ok())
        return page.file;
    showMessage(this, QString::fromStdString(page.message));
    return std::nullopt;
}

void EditTextFrm::ExportarHTML() {
    const auto page = buildWebPage();
    if (!page)
        return;
    shared::GuardarCancelado = 1;
    const std::string path = askForWebPage(this);
    if (path.empty() || !savedOrSaid(path, writeFile(path, *page)))
        return;
    shared::settings.DefltDir = folderOf(path);
    shared::GuardarCancelado = 0;
}

void EditTextFrm::FicheiroExportarPrevisualizarpaginaWeb() {
    const auto page = buildWebPage();
    const std::string path = shared::programFolder + "/Temp.html";
    if (page && savedOrSaid(path, writeFile(path, *page)))
        openInDesktop(path);
}

} // namespace zolt
