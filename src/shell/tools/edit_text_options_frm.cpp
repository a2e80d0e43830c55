#include "shell/tools/edit_text_options_frm.h"

#include "platform/desktop.h"
#include "platform/message_box.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/document_in_use.h"
#include "shell/base/frame.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/widgets/command_button.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTabWidget>
#include <algorithm>

namespace zolt {

namespace {

struct Row {
    const char *caption;
    std::string Settings::*path;
    bool isFile = false;
};

constexpr Row kPaths[] = {
    {"Documents", &Settings::DefltDir},         {"Symbol files", &Settings::DefltSmb, true},
    {"Format conversion", &Settings::DfDirCnv}, {"PDF files", &Settings::DfDirPdf},
    {"HP files", &Settings::DfDirFHP},          {"ZOLT images", &Settings::DfDirIHa},
    {"Grob images", &Settings::DfDirIGr},       {"PC images", &Settings::DfDirIPC},
    {"Previews", &Settings::DfDirPrN},
};

/// Behind the window's own two.
constexpr std::size_t kFirstButton = 3;
/// Wide enough for a folder in the user's home, in digits.
constexpr int kBoxWidth = 36;

/// All settings become the defaults. The document goes over to the pane that they name:
/// what was typed stands in the other one.
void restoreDefaults() {
    DocumentInUse *document = documentInUse();
    const Settings defaults = defaultSettings(shared::programFolder);
    if (document && shared::settings.TxtWWrap != defaults.TxtWWrap)
        QMetaObject::invokeMethod(&document->window(), "EditarTranslinearpalavras", Qt::DirectConnection);
    shared::settings = defaults;
}

/// Ends the program. The document window goes first: on closing it writes down what stands
/// beside it, and the defaults are to be the last word.
void restoreDefaultsAndLeave() {
    DocumentInUse *document = documentInUse();
    const bool leaves = !document || document->window().close();
    restoreDefaults();
    if (leaves)
        frameWindow()->close();
}

} // namespace

EditTextOptionsFrm::EditTextOptionsFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Options"), DisablesTheFrame, owner),
      Check1(new QCheckBox(QStringLiteral("Re-establish standard configuration"))) {
    static_assert(std::size(kPaths) == kRows);
    Check1->setObjectName(QStringLiteral("Check1"));
    auto *page = new QWidget;
    auto *rows = new QVBoxLayout(page);
    rows->addWidget(newRows());
    rows->addWidget(Check1);
    auto *tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("Tab1"));
    tabs->addTab(page, QStringLiteral("Main Options"));
    // The one tab leads nowhere: the keyboard begins at the first path.
    tabs->setFocusPolicy(Qt::NoFocus);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *ok = newButton(this, "Command2", QStringLiteral("OK"), &EditTextOptionsFrm::accept);
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(newButton(this, "Command1", QStringLiteral("Cancel"), &QWidget::close));
    auto *column = new QVBoxLayout(this);
    column->addWidget(tabs);
    column->addLayout(buttons);
    m_boxes.front()->setFocus();
}

QWidget *EditTextOptionsFrm::newRows() {
    auto *group = new QGroupBox(QStringLiteral("File localization"));
    auto *grid = new QGridLayout(group);
    auto *type = new QLabel(QStringLiteral("File &type:"));
    grid->addWidget(type, 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Localization:")), 0, 1);
    for (std::size_t row = 0; row < kRows; ++row) {
        const QString caption = QString::fromUtf8(kPaths[row].caption);
        auto *box = m_boxes[row] = new QLineEdit(fromFileName(shared::settings.*kPaths[row].path));
        m_shown[row] = box->text();
        box->setObjectName(QStringLiteral("Text%1").arg(row + 1));
        box->setAccessibleName(caption);
        box->setMinimumWidth(fontMetrics().horizontalAdvance(QString(kBoxWidth, u'0')));
        const QByteArray name = "Command" + QByteArray::number(row + kFirstButton);
        const auto choose =
            kPaths[row].isFile ? &EditTextOptionsFrm::chooseSymbolFile : &EditTextOptionsFrm::browse;
        QPushButton *modify = newButton(this, name.constData(), QStringLiteral("&Modify..."),
                                        [this, row, choose] { (this->*choose)(row); });
        modify->setAccessibleName(QStringLiteral("Modify %1").arg(caption));
        modify->setAutoDefault(false);
        const int line = static_cast<int>(row) + 1;
        grid->addWidget(new QLabel(caption), line, 0);
        grid->addWidget(box, line, 1);
        grid->addWidget(modify, line, 2);
    }
    type->setBuddy(m_boxes.front());
    grid->setColumnStretch(1, 1);
    return group;
}

void EditTextOptionsFrm::browse(std::size_t row) {
    CommonDialog browser(QStringLiteral("FolderBrowser"));
    browser.DialogTitle = QStringLiteral("Select folder:");
    browser.InitDir = fileNameBytes(m_boxes[row]->text());
    if (browser.ShowFolder(this) == kDialogDone)
        m_boxes[row]->setText(fromFileName(browser.FileName));
}

void EditTextOptionsFrm::chooseSymbolFile(std::size_t row) {
    CommonDialog &dialog = commonDialog(DialogFrm::Options);
    dialog.DialogTitle = QStringLiteral("Change localization");
    dialog.Filter = QStringLiteral("Symbol file (*.zls)|*.zls|");
    dialog.FilterIndex = 2;
    dialog.Flags = kFileMustExist;
    dialog.InitDir = fileNameBytes(m_boxes[row]->text());
    if (dialog.ShowOpen(this) == kDialogDone)
        m_boxes[row]->setText(fromFileName(dialog.FileName));
}

void EditTextOptionsFrm::storePaths() const {
    for (std::size_t row = 0; row < kRows; ++row)
        if (const QString path = m_boxes[row]->text(); path != m_shown[row])
            shared::settings.*kPaths[row].path = fileNameBytes(path);
}

void EditTextOptionsFrm::accept() {
    storePaths();
    if (!Check1->isChecked()) {
        close();
        // The settings file can't hold one, and keeps the path that it has.
        const auto unfit = std::ranges::find_if(
            kPaths, [](const Row &row) { return !fitsSetting(shared::settings.*row.path); });
        if (unfit != std::end(kPaths))
            sayInStatusBar(QStringLiteral("%1: a path with a comma isn't stored")
                               .arg(QString::fromUtf8(unfit->caption)));
        return;
    }
    const auto answer = ask(this,
                            QStringLiteral("Some changes will only take effect after you restart the "
                                           "program.\r\nAbandon ZOLT?"),
                            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Question);
    if (answer == QMessageBox::Cancel)
        return;
    close();
    answer == QMessageBox::Yes ? restoreDefaultsAndLeave() : restoreDefaults();
}

} // namespace zolt
