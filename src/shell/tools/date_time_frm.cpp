#include "shell/tools/date_time_frm.h"

#include "platform/desktop.h"
#include "platform/held_text.h"
#include "shell/base/document_in_use.h"
#include "shell/widgets/command_button.h"

#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QVBoxLayout>

namespace zolt {

namespace {

std::array<std::string, kDateForms> formsOf(const QDateTime &moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    const QLocale system = QLocale::system();
    return dateForms({date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()},
                     {bytesOfOutsideText(system.monthName(date.month(), QLocale::LongFormat)),
                      bytesOfOutsideText(system.monthName(date.month(), QLocale::ShortFormat)),
                      bytesOfOutsideText(system.toString(date, QLocale::LongFormat))});
}

} // namespace

DateTimeFrm::DateTimeFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Date and time"), DisablesTheFrame, owner),
      m_forms(formsOf(QDateTime::currentDateTime())),
      List1(new QListWidget) {
    List1->setObjectName(QStringLiteral("List1"));
    for (const std::string &form : m_forms)
        List1->addItem(fromWindows(form));
    List1->setCurrentRow(0);
    // All forms show whole, without scrolling.
    List1->setMinimumWidth(List1->sizeHintForColumn(0) + 2 * List1->frameWidth());
    List1->setMinimumHeight(List1->sizeHintForRow(0) * static_cast<int>(kDateForms) +
                            2 * List1->frameWidth());
    connect(List1, &QListWidget::itemDoubleClicked, this, &DateTimeFrm::insert);

    auto *label = new QLabel(QStringLiteral("Available formats:"));
    label->setObjectName(QStringLiteral("Label1"));
    label->setBuddy(List1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("OK"), &DateTimeFrm::insert);
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(newButton(this, "Command2", QStringLiteral("Cancel"), &QWidget::close));

    auto *column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(List1);
    column->addLayout(buttons);
    resize(sizeHint().expandedTo(QSize(280, 0)));
}

void DateTimeFrm::insert() {
    const int row = List1->currentRow();
    if (DocumentInUse *document = documentInUse(); document && row >= 0)
        document->insertText(m_forms[static_cast<std::size_t>(row)]);
    close();
}

} // namespace zolt
