#include "shell/tools/file_ass_frm.h"

#include "platform/desktop.h"
#include "platform/file_types.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/widgets/command_button.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace zolt {

namespace {

constexpr int kLongestExtension = 3;

QLabel *newLabel(int number, const QString &text) {
    auto *label = new QLabel(text);
    label->setObjectName(QStringLiteral("Label%1").arg(number));
    return label;
}

QCheckBox *newCheck(int number, const QString &caption) {
    auto *check = new QCheckBox(caption);
    check->setObjectName(QStringLiteral("Check%1").arg(number));
    return check;
}

/// Says in the status bar why a type isn't associated, if it isn't.
void sayFailure(const std::string &extension, const std::string &reason) {
    if (!reason.empty())
        sayInStatusBar(QStringLiteral("\"%1\" wasn't associated: %2")
                           .arg(fromFileName(extension), QString::fromLocal8Bit(reason.c_str())));
}

} // namespace

std::string associateTextDocuments() {
    return RegistarTipoDeFicheiro(shared::ExtensãoTexto, shared::CaminhoPrograma, shared::FormatoTexto,
                                  shared::IconeTexto);
}

std::string associateGraphicDocuments() {
    return RegistarTipoDeFicheiro(shared::ExtensãoGráfico, shared::CaminhoPrograma, shared::FormatoGráfico,
                                  shared::IconeGráfico);
}

FileAssFrm::FileAssFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("ZOLT"), DisablesTheFrame, owner),
      Check1(newCheck(1, QStringLiteral("ZLT"))),
      Check2(newCheck(2, QStringLiteral("ZLG"))),
      Check3(newCheck(3, QStringLiteral("Other:"))),
      Text1(new QLineEdit) {
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Extension"));
    Text1->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("WWWWWW")));
    connect(Text1, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.size() > kLongestExtension)
            Text1->clear();
    });
    const auto opensHere = [](const std::string &extension) {
        return opensInThisProgram(extension, shared::CaminhoPrograma);
    };
    Check1->setChecked(opensHere(shared::ExtensãoTexto));
    Check2->setChecked(opensHere(shared::ExtensãoGráfico));

    auto *frame = new QGroupBox(QStringLiteral("File associations"));
    frame->setObjectName(QStringLiteral("Frame1"));
    auto *grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(24);
    const QList<QWidget *> cells{newLabel(2, QStringLiteral(" Format: ")),
                                 newLabel(3, QStringLiteral("Description: ")),
                                 newLabel(4, QStringLiteral(" Extension: ")),
                                 Check1,
                                 newLabel(5, QString::fromStdString(shared::FormatoTexto)),
                                 newLabel(7, QString::fromStdString(shared::ExtensãoTexto)),
                                 Check2,
                                 newLabel(6, QString::fromStdString(shared::FormatoGráfico)),
                                 newLabel(8, QString::fromStdString(shared::ExtensãoGráfico)),
                                 Check3,
                                 Text1,
                                 newLabel(1, QStringLiteral("(Example \"txt\")"))};
    for (qsizetype i = 0; i < cells.size(); ++i)
        grid->addWidget(cells[i], static_cast<int>(i) / 3, static_cast<int>(i) % 3);
    grid->setColumnStretch(1, 1);

    auto *text = newLabel(9, QStringLiteral("In the list bellow select the type of files you wish to "
                                            "associate with ZOLT, allowing direct opening in Windows "
                                            "Explorer (double click)."));
    text->setWordWrap(true);
    auto *buttons = new QHBoxLayout;
    QPushButton *apply = newButton(this, "Command1", QStringLiteral("Associate"), &FileAssFrm::associate);
    QPushButton *ok = newButton(this, "Command2", QStringLiteral("OK"), &FileAssFrm::accept);
    buttons->addWidget(apply);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(newButton(this, "Command3", QStringLiteral("Cancel"), &QWidget::close));
    // OK leaves the further extension out: Enter is to do what stands in the window.
    ok->setDefault(true);
    connect(Check3, &QCheckBox::toggled, this,
            [apply, ok](bool further) { (further ? apply : ok)->setDefault(true); });

    auto *column = new QVBoxLayout(this);
    column->addWidget(text);
    column->addWidget(frame);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    Check1->setFocus();
}

void FileAssFrm::associateOwnTypes() {
    if (Check1->isChecked())
        sayFailure(shared::ExtensãoTexto, associateTextDocuments());
    if (Check2->isChecked())
        sayFailure(shared::ExtensãoGráfico, associateGraphicDocuments());
}

void FileAssFrm::associate() {
    associateOwnTypes();
    if (!Check3->isChecked())
        return;
    const std::string extension = fileNameBytes(Text1->text());
    sayFailure(extension, RegistarTipoDeFicheiro(extension, shared::CaminhoPrograma, "ZOLT Associated File",
                                                 shared::IconeTexto));
}

void FileAssFrm::accept() {
    associateOwnTypes();
    close();
}

} // namespace zolt
