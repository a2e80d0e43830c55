#include "shell/tools/mensagem_frm.h"

#include "shell/base/shared_values.h"
#include "shell/widgets/command_button.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zolt {

MensagemFrm::MensagemFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("ZOLT"), HidesTheFrame, owner),
      Option1(new QRadioButton(QStringLiteral("Textual Edition"))),
      Option2(new QRadioButton(QStringLiteral("Graphical Edition"))) {
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option1->setChecked(true);
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("OK"), &MensagemFrm::openInChosenEdition);
    ok->setDefault(true);

    auto *column = new QVBoxLayout(this);
    auto *question = new QLabel(QStringLiteral("Open file in:"));
    question->setObjectName(QStringLiteral("Label1"));
    column->addWidget(question);
    column->addWidget(Option1);
    column->addWidget(Option2);
    column->addWidget(ok, 0, Qt::AlignRight);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setMinimumWidth(240);
}

void MensagemFrm::openInChosenEdition() {
    const int edition = Option2->isChecked() ? 2 : 1;
    // First of all the frame comes back: what follows stands before it.
    close();
    emit chosen(edition);
}

} // namespace zolt
