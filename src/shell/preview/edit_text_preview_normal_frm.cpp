#include "shell/preview/edit_text_preview_normal_frm.h"

#include "core/file.h"
#include "platform/rich_text_box.h"
#include "shell/base/command_table.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/frame.h"
#include "shell/base/send_question.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/base/windows.h"
#include "shell/preview/edit_text_preview_normal_menu_frm.h"
#include "shell/preview/preview_compilation.h"
#include "shell/preview/printing.h"

#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace zolt {

namespace {

const QList<ToolRow> kToolbarRows{
    {"Open", "Open", "open", "AbrirFicheiro"},
    {"Save", "Save", "save", "GuardarComoFicheiro"},
    {"Print", "Print", "print", "Imprimir"},
    {"Copy", "Copy", "copy", "Copy"},
    {"MenuPreview", "Menu", "menu", "MenuPreview"},
    {"EnviarGraphic", "Send to graphical edition", "send-graphic", "EnviarGraphic"},
};

CommonDialog &previewDialog(const QString &title, int flags) {
    CommonDialog &dialog = commonDialog(DialogFrm::NormalPreview);
    dialog.DialogTitle = title;
    dialog.Filter = QStringLiteral("Rich Text Format (RTF) (*.rtf)|*.rtf|");
    dialog.FilterIndex = 1;
    dialog.Flags = flags;
    dialog.InitDir = shared::settings.DfDirPrN;
    return dialog;
}

} // namespace

EditTextPreviewNormalFrm::EditTextPreviewNormalFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Preview"), DisablesTheFrame, owner), Text4(new RichTextBox(false)) {
    auto *Toolbar1 = new QToolBar;
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setIconSize(QSize(20, 20));
    buildToolBar(Toolbar1, kToolbarRows, [this] { return QList<QObject *>{this}; });
    // A tool bar keeps its buttons from the keyboard; this window has no menu instead.
    for (QToolButton *button : Toolbar1->findChildren<QToolButton *>(Qt::FindDirectChildrenOnly))
        button->setFocusPolicy(Qt::TabFocus);
    Text4->setObjectName(QStringLiteral("Text4"));
    Text4->setFrameShape(QFrame::NoFrame);
    Text4->installEventFilter(this);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Toolbar1);
    column->addWidget(Text4);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(480, 420);
}

bool EditTextPreviewNormalFrm::compile() {
    const bool folds = shared::PrevisualizarComQuebras == 1;
    if (!compileInto(*Text4, folds ? PreviewFlavour::Wrapped : PreviewFlavour::Normal) ||
        loaded<EditTextPreviewNormalFrm>() != this)
        return false;
    Text4->setFocus();
    return true;
}

void EditTextPreviewNormalFrm::AbrirFicheiro() {
    CommonDialog &dialog = previewDialog(QStringLiteral("Open"), kFileMustExist);
    if (dialog.ShowOpen(this) != kDialogDone)
        return;
    shared::settings.DfDirPrN = folderOf(dialog.FileName);
    // A file that can't be read leaves the window as it was, silently.
    static_cast<void>(Text4->LoadFile(dialog.FileName));
}

void EditTextPreviewNormalFrm::GuardarComoFicheiro() {
    CommonDialog &dialog = previewDialog(QStringLiteral("Save"), kOverwritePrompt | kAddExtension);
    if (dialog.ShowSave(this) != kDialogDone)
        return;
    shared::settings.DfDirPrN = folderOf(dialog.FileName);
    savedOrSaid(dialog.FileName, Text4->SaveFile(dialog.FileName));
}

void EditTextPreviewNormalFrm::Imprimir() {
    print(*this,
          {.title = windowTitle(),
           .client = DialogFrm::NormalPreview,
           .hasSelection = Text4->hasSelection(),
           .text = [this](bool selection) { return selection ? Text4->selRichText() : Text4->richText(); }});
}

void EditTextPreviewNormalFrm::Copy() {
    Text4->selectAll();
    Text4->setFocus();
    Text4->copy();
    Text4->setSelStart(0);
}

void EditTextPreviewNormalFrm::MenuPreview() {
    auto &menu = load<EditTextPreviewNormalMenuFrm>(this);
    menu.fill();
    menu.show();
    menu.raise();
    menu.activateWindow();
}

void EditTextPreviewNormalFrm::EnviarGraphic() {
    const QPointer<EditTextPreviewNormalFrm> self = this;
    if (mayLoseFormat(this, "graphical") && self)
        EnviarPrevisualizaçãoParaEdiçãoGráfica();
}

void EditTextPreviewNormalFrm::EnviarPrevisualizaçãoParaEdiçãoGráfica() {
    mainFrame()->send(Road::PreviewToGraphical);
}

bool EditTextPreviewNormalFrm::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Text4 && asksForEntries(*event)) {
        MenuPreview();
        return true;
    }
    return ToolFrm::eventFilter(watched, event);
}

void EditTextPreviewNormalFrm::closing() {
    unload<EditTextPreviewNormalMenuFrm>();
}

} // namespace zolt
