#include "shell/tools/recover_frm.h"

#include "platform/desktop.h"
#include "shell/base/document_keeper.h"
#include "shell/base/more_settings.h"
#include "shell/widgets/command_button.h"

#include <QCheckBox>
#include <QDateTime>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace zolt {

namespace {

/// One line of the list: "notes.zlt, 23 Nov 2026 10:15, 1.2 kB".
QString lineOf(const KeptDocument &document) {
    const QLocale locale = QLocale::system();
    const QDateTime time = QDateTime::fromSecsSinceEpoch(document.time);
    QString line =
        QStringLiteral("%1, %2, %3")
            .arg(QString::fromStdString(document.caption), locale.toString(time, QLocale::ShortFormat),
                 locale.formattedDataSize(static_cast<qint64>(document.bytes.size())));
    if (document.isDamaged)
        line += QStringLiteral(" (damaged)");
    return line;
}

} // namespace

RecoverFrm::RecoverFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Recover text"), DisablesTheFrame, owner),
      Label1(new QLabel),
      List1(new QListWidget),
      Check1(new QCheckBox(QStringLiteral("&Keep texts that are thrown away"))),
      Command1(newButton(this, "Command1", QStringLiteral("&Recover"), &RecoverFrm::recover)),
      Command2(newButton(this, "Command2", QStringLiteral("&Delete"), &RecoverFrm::deleteCurrent)),
      Command3(newButton(this, "Command3", QString(), &QWidget::close)) {
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setBuddy(List1);
    List1->setObjectName(QStringLiteral("List1"));
    Check1->setObjectName(QStringLiteral("Check1"));
    Command1->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    buttons->addStretch();
    buttons->addWidget(Command3);
    auto *column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(List1);
    column->addWidget(Check1);
    column->addLayout(buttons);
    connect(List1, &QListWidget::itemDoubleClicked, this, &RecoverFrm::recover);
    connect(List1, &QListWidget::currentRowChanged, this, &RecoverFrm::updateButtons);
    resize(460, 280);
}

void RecoverFrm::list(What what, std::vector<KeptDocuments::Entry> entries) {
    const bool afterCrash = what == LeftByCrash;
    Label1->setText(afterCrash ? QStringLiteral("The program ended before these documents were saved:")
                               : QStringLiteral("Documents that were thrown away in the last thirty days:"));
    Check1->setVisible(!afterCrash);
    Command3->setText(afterCrash ? QStringLiteral("&Later") : QStringLiteral("Close"));
    Check1->setChecked(documentKeeper()->keepsThrownAway());
    m_entries = std::move(entries);
    fill();
}

void RecoverFrm::fill() {
    List1->clear();
    for (const KeptDocuments::Entry &entry : m_entries) {
        auto *item = new QListWidgetItem(lineOf(entry.document), List1);
        item->setToolTip(fromFileName(entry.document.path));
    }
    List1->setCurrentRow(0);
    List1->setFocus();
    updateButtons();
}

void RecoverFrm::updateButtons() {
    for (QPushButton *button : {Command1, Command2})
        button->setEnabled(List1->currentRow() >= 0);
}

void RecoverFrm::recover() {
    const int row = List1->currentRow();
    if (row < 0)
        return;
    const KeptDocuments::Entry entry = m_entries[static_cast<std::size_t>(row)];
    // The frame is enabled again before the document comes.
    m_hasChosen = true;
    close();
    emit chosen(entry);
}

void RecoverFrm::deleteCurrent() {
    const int row = List1->currentRow();
    if (row < 0)
        return;
    documentKeeper()->remove(m_entries[static_cast<std::size_t>(row)]);
    m_entries.erase(m_entries.begin() + row);
    fill();
}

void RecoverFrm::closing() {
    takeOption();
    if (!m_hasChosen)
        emit left();
}

void RecoverFrm::takeOption() {
    DocumentKeeper *keeper = documentKeeper();
    if (!keeper || Check1->isHidden() || Check1->isChecked() == keeper->keepsThrownAway())
        return;
    keeper->setKeepsThrownAway(Check1->isChecked());
    changeExtraSettings(
        [on = Check1->isChecked()](ExtraSettings &settings) { settings.keepsThrownAway = on; });
}

} // namespace zolt
