#include "shell/tools/edit_text_word_count_frm.h"

#include "core/word_count.h"
#include "platform/pane.h"
#include "shell/base/document_in_use.h"
#include "shell/widgets/command_button.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace zolt {

namespace {

struct Row {
    const char *caption;
    const char *name;
    std::size_t WordCount::*count;
};

constexpr std::array<Row, 4> kRows{
    {{"Words", "Palavras", &WordCount::Palavras},
     {"Characters (excl. spaces)", "CaracteresSemEspaços", &WordCount::CaracteresSemEspaços},
     {"Characters (incl. spaces)", "CaracteresComEspaços", &WordCount::CaracteresComEspaços},
     {"Paragraphs", "Parágrafos", &WordCount::Parágrafos}}};

} // namespace

EditTextWordCountFrm::EditTextWordCountFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Word count"), BesideTheFrame, owner) {
    auto *group = new QGroupBox(QStringLiteral("Statistics:"));
    auto *form = new QFormLayout(group);
    form->setHorizontalSpacing(24);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        m_counts[i] = new QLabel;
        m_counts[i]->setObjectName(QString::fromUtf8(kRows[i].name));
        m_counts[i]->setAlignment(Qt::AlignRight);
        m_counts[i]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000000")));
        form->addRow(QString::fromUtf8(kRows[i].caption), m_counts[i]);
    }
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("Close"), &QWidget::close);
    ok->setDefault(true);

    auto *column = new QVBoxLayout(this);
    column->addWidget(group);
    column->addWidget(ok, 0, Qt::AlignRight);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void EditTextWordCountFrm::countDocument() {
    const Pane *pane = activePane();
    const WordCount counts = countWords(pane ? pane->Text() : std::string());
    for (std::size_t i = 0; i < kRows.size(); ++i)
        m_counts[i]->setText(QString::number(counts.*kRows[i].count));
}

} // namespace zolt
