#include "shell/preview/edit_text_preview_normal_menu_frm.h"

#include "platform/fonts.h"
#include "platform/held_text.h"
#include "platform/rich_text_box.h"
#include "platform/svg_icon.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "shell/preview/preview_compilation.h"
#include "shell/widgets/entry_line.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace zolt {

EditTextPreviewNormalMenuFrm::EditTextPreviewNormalMenuFrm(QWidget *owner)
    : QDialog(owner), List1(new QListWidget) {
    setWindowTitle(QStringLiteral("Menu"));
    setWindowIcon(svgIcon(QStringLiteral("zolt")));
    List1->setObjectName(QStringLiteral("List1"));
    List1->setFont(zoltFont(QStringLiteral("ZOLT"), 10));
    List1->setItemDelegate(new EntryLine(List1));
    List1->setUniformItemSizes(true);
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *StatusBar1 = new QStatusBar;
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(false);
    for (std::size_t i = 0; i < m_panels.size(); ++i) {
        m_panels[i] = new QLabel;
        m_panels[i]->setObjectName(QStringLiteral("Panel%1").arg(i + 1));
        m_panels[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        m_panels[i]->setAlignment(Qt::AlignCenter);
        m_panels[i]->setMargin(2);
        StatusBar1->addWidget(m_panels[i], 1);
    }
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(List1);
    column->addWidget(StatusBar1);
    connect(List1, &QListWidget::currentRowChanged, this, &EditTextPreviewNormalMenuFrm::showPanels);
    connect(List1, &QListWidget::itemDoubleClicked, this, &EditTextPreviewNormalMenuFrm::goToCurrent);
    List1->installEventFilter(this);
    List1->setMinimumWidth(EntryLine::widthOfLine(List1->font()) + 2 * List1->frameWidth() +
                           List1->verticalScrollBar()->sizeHint().width());
    resize(320, 260);
}

void EditTextPreviewNormalMenuFrm::fill() {
    List1->clear();
    for (const std::string &text : shared::TextosDasEntradas)
        List1->addItem(heldText(text));
    m_panels[0]->setVisible(shared::PrevisualizarComQuebras == 1);
    List1->setCurrentRow(0);
    List1->setFocus();
}

void EditTextPreviewNormalMenuFrm::showPanels() {
    const int row = List1->currentRow();
    if (row < 0)
        return;
    if (shared::PrevisualizarComQuebras == 1)
        m_panels[0]->setText(QString::number(shared::LinhasDasEntradas[static_cast<std::size_t>(row)]));
    m_panels[1]->setText(QStringLiteral("%1/%2").arg(row + 1).arg(shared::NúmeroDeEntradas));
}

bool EditTextPreviewNormalMenuFrm::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            goToCurrent();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void EditTextPreviewNormalMenuFrm::hideEvent(QHideEvent *event) {
    QDialog::hideEvent(event);
    if (auto *preview = loaded<EditTextPreviewNormalFrm>(); preview && !event->spontaneous()) {
        preview->activateWindow();
        preview->text().setFocus();
    }
}

void EditTextPreviewNormalMenuFrm::goToCurrent() {
    if (auto *preview = loaded<EditTextPreviewNormalFrm>(); preview && List1->currentRow() >= 0)
        goToEntry(preview->text(), List1->currentRow(), 0);
    hide();
}

} // namespace zolt
