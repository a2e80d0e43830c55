#include "shell/exports/edit_text_guardar_hp_frm.h"

#include "core/file.h"
#include "hp48/hp_file.h"
#include "hp48/hp_file_name.h"
#include "hp48/integrity_test.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/widgets/command_button.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

namespace zolt {

namespace {

/// As many lines of errors as a user may look through; more would only take memory.
constexpr std::size_t kMostErrorLines = 100'000;

QLabel *label(const char *name, const QString &text, QWidget *buddy) {
    auto *label = new QLabel(text);
    label->setObjectName(QString::fromUtf8(name));
    label->setBuddy(buddy);
    return label;
}

} // namespace

EditTextGuardarHPFrm::EditTextGuardarHPFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("HP file integrity test"), DisablesTheFrame, owner),
      Text1(new TextPane(true)),
      Text2(new TextPane(true)),
      Command1(newButton(this, "Command1", QStringLiteral("Save"), &EditTextGuardarHPFrm::save)),
      Command3(newButton(this, "Command3", QStringLiteral("Correct main document"),
                         &EditTextGuardarHPFrm::correctDocument)) {
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setReadOnly(true);
    Text2->setPaneFont(font());
    for (TextPane *box : {Text1, Text2})
        box->setTabChangesFocus(true);

    auto *column = new QVBoxLayout(this);
    column->addWidget(label("Label2", QStringLiteral(" Integrity test"), Text2));
    column->addWidget(Text2, 2);
    column->addWidget(label("Label1", QStringLiteral("Corrected document:"), Text1));
    column->addWidget(Text1, 3);
    auto *buttons = new QHBoxLayout;
    QPushButton *ok = newButton(this, "Command4", QStringLiteral("OK"), &QWidget::close);
    ok->setDefault(true);
    buttons->addWidget(Command1);
    buttons->addWidget(Command3);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(newButton(this, "Command2", QStringLiteral("Cancel"), &QWidget::close));
    column->addLayout(buttons);
    resize(560, 520);
}

void EditTextGuardarHPFrm::testDocument(TextPane &pane) {
    m_document = &pane;
    Text1->setText({});
    Text2->setText({});
    Text2->setColours(palette().color(QPalette::Text), palette().color(QPalette::Base));
    present();
    const QPointer<EditTextGuardarHPFrm> self = this;
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);

    if (!self || !m_document)
        return;
    Text1->setPaneFont(pane.font());
    Text1->setColours(pane.palette().color(QPalette::Text), pane.palette().color(QPalette::Base));
    std::string report;
    const auto keep = [&report](std::string_view piece) { report.append(piece); };
    const int run = ++m_run;
    const auto stopped = [&self, run] { return !self || !self->isVisible() || self->m_run != run; };
    enableCommands(false);
    const IntegrityResult result =
        testIntegrity(pane.Text(), keep, kMostErrorLines, livelyProgress({}, stopped));
    if (stopped())
        return;
    enableCommands(true);
    Text2->setText(report);
    if (result.NúmeroDeErros > 0)
        Text2->setColours(Qt::red, palette().color(QPalette::Base));
    Text2->setSelStart(Text2->length());
    Text1->setText(result.TextoCorrigido);
}

void EditTextGuardarHPFrm::enableCommands(bool enabled) {
    Command1->setEnabled(enabled);
    Command3->setEnabled(enabled);
}

bool EditTextGuardarHPFrm::nameIsAllowed(const std::string &title) {
    const NameVerdict verdict = checkHpFileTitle(title);
    if (verdict.kind == NameVerdict::Allowed)
        return true;
    const QString message = QString::fromStdString(verdict.message);
    if (verdict.kind == NameVerdict::Reserved)
        return ask(this, message, QMessageBox::Yes | QMessageBox::No, QMessageBox::Warning) ==
               QMessageBox::Yes;
    showMessage(this, message, QMessageBox::Warning);
    return false;
}

std::string EditTextGuardarHPFrm::askForFile() {
    CommonDialog &dialog = commonDialog(DialogFrm::HpFile);
    dialog.InitDir = shared::settings.DfDirFHP;
    const QPointer<EditTextGuardarHPFrm> self = this;
    while (self) {
        dialog.DialogTitle = QStringLiteral("Save");
        dialog.Filter = QStringLiteral("HP48 String (*.*)|*.*|");
        dialog.FilterIndex = 2;
        dialog.Flags = kOverwritePrompt;
        if (dialog.ShowSave(this) != kDialogDone)
            return {};
        if (nameIsAllowed(dialog.FileTitle()))
            return dialog.FileName;
        // A refused name is mended where it was typed.
        dialog.InitDir = dialog.FileName;
    }
    return {};
}

void EditTextGuardarHPFrm::save() {
    const QPointer<EditTextGuardarHPFrm> self = this;
    const std::string file = askForFile();
    if (!self || file.empty() || !savedOrSaid(file, writeFile(file, hpFile(Text1->Text()))))
        return;
    shared::settings.DfDirFHP = folderOf(file);
    close();
}

void EditTextGuardarHPFrm::correctDocument() {
    const QPointer<EditTextGuardarHPFrm> self = this;
    const auto answer =
        ask(this,
            QStringLiteral("Do you wish to substitute the main document by the correction?\r\n"
                           "This operation is not reversible!"),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Question);
    if (answer == QMessageBox::Yes && self && m_document)
        m_document->replaceText(Text1->Text());
}

} // namespace zolt
