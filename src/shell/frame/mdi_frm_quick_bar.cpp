// The docked quick bar's panels in the main frame, and where the bar shows.

#include "shell/base/document_in_use.h"
#include "shell/base/shared_values.h"
#include "shell/frame/mdi_frm.h"
#include "shell/tools/caracter_toolbar_frm.h"
#include "shell/widgets/quick_bar_panel.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFrame>
#include <QMdiArea>
#include <QShortcut>
#include <QToolButton>

namespace zolt {

namespace {

struct DockedBar {
    const char *name;
    const char *bar;
    const char *closeButton;
    const char *line;
    QuickBarPanel::Layout layout;
};

constexpr DockedBar kTopBar{"Picture3", "Picture1", "Command2", "Line1", QuickBarPanel::Wide};
constexpr DockedBar kRightBar{"Picture4", "Picture2", "Command3", "Line2", QuickBarPanel::Tall};

QToolButton *closeButton(const char *name) {
    auto *button = new QToolButton;
    button->setObjectName(QString::fromUtf8(name));
    button->setText(QStringLiteral("x"));
    button->setToolTip(QStringLiteral("Close"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setFixedSize(18, 18);
    return button;
}

/// A panel with its bar, the close button at the far end, and a line between it
/// and the documents.
QWidget *dockedPanel(const DockedBar &docked) {
    auto *panel = new QWidget;
    panel->setObjectName(QString::fromUtf8(docked.name));
    auto *bar = new QuickBarPanel(docked.layout, QuickBarHost::Frame);
    bar->setObjectName(QString::fromUtf8(docked.bar));
    const bool top = docked.layout == QuickBarPanel::Wide;
    auto *line = new QFrame;
    line->setObjectName(QString::fromUtf8(docked.line));
    line->setFrameStyle((top ? QFrame::HLine : QFrame::VLine) | int{QFrame::Sunken});

    auto *outer = new QBoxLayout(top ? QBoxLayout::TopToBottom : QBoxLayout::RightToLeft, panel);
    auto *inner = new QBoxLayout(top ? QBoxLayout::RightToLeft : QBoxLayout::TopToBottom);
    inner->setContentsMargins(4, 4, 4, 4);
    inner->addWidget(closeButton(docked.closeButton), 0, Qt::AlignRight | Qt::AlignTop);
    if (top)
        inner->addStretch();
    inner->addWidget(bar);
    if (!top)
        inner->addStretch();
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addLayout(inner);
    outer->addWidget(line);
    panel->hide();
    return panel;
}

} // namespace

void MDIFrm::buildQuickBar() {
    Picture3 = dockedPanel(kTopBar);
    Picture4 = dockedPanel(kRightBar);
    for (QWidget *panel : {Picture3, Picture4})
        connect(panel->findChild<QuickBarPanel *>(), &QuickBarPanel::clicked, this,
                &MDIFrm::pressDockedButton);
    connect(Picture3->findChild<QToolButton *>(QStringLiteral("Command2")), &QToolButton::clicked, this,
            &MDIFrm::closeDockedBar);
    connect(Picture4->findChild<QToolButton *>(QStringLiteral("Command3")), &QToolButton::clicked, this,
            &MDIFrm::closeDockedBar);

    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    auto *row = new QHBoxLayout;
    row->addWidget(m_area, 1);
    row->addWidget(Picture4);
    column->addWidget(Picture3);
    column->addLayout(row, 1);
    for (QLayout *layout : std::initializer_list<QLayout *>{column, row}) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
    }
    setCentralWidget(content);
    auto *key = new QShortcut(Qt::Key_F6, this);
    key->setContext(Qt::ApplicationShortcut);
    connect(key, &QShortcut::activated, this, &MDIFrm::switchToQuickBar);
}

void MDIFrm::applyCharTool() {
    const int state = shared::settings.CharTool;
    Picture3->setVisible(state == 3);
    Picture4->setVisible(state == 4);
    if (state == 1 || state == 2) {
        load<CaracterToolbarFrm>(this).showLayout(state == 1 ? QuickBarPanel::Tall : QuickBarPanel::Wide);
        MostrarCaracterToolbar();
    } else if (auto *floating = loaded<CaracterToolbarFrm>()) {
        floating->hide();
    }
}

void MDIFrm::pressDockedButton(int index) {
    pressQuickBarButton(QuickBarHost::Frame, index);
}

void MDIFrm::closeDockedBar() {
    shared::settings.CharTool = 0;
    applyCharTool();
}

void MDIFrm::switchToQuickBar() {
    Pane *pane = activePane();
    if (!pane)
        return;
    QWidget *focus = QApplication::focusWidget();
    if (focus && qobject_cast<QuickBarPanel *>(focus->parentWidget()))
        return takeFocus(*pane);
    QWidget *floating = loaded<CaracterToolbarFrm>();
    for (QWidget *host : {floating, Picture3, Picture4}) {
        if (!host || !host->isVisible())
            continue;
        for (QuickBarPanel *bar : host->findChildren<QuickBarPanel *>()) {
            if (bar->isVisible()) {
                bar->activateWindow();
                bar->focusFirst();
            }
        }
    }
}

} // namespace zolt
