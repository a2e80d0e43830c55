#include "shell/tools/caracter_toolbar_frm.h"

#include "shell/base/shared_values.h"
#include "shell/base/windows.h"

#include <QCloseEvent>
#include <QVBoxLayout>

namespace zolt {

CaracterToolbarFrm::CaracterToolbarFrm(QWidget *owner)
    : QWidget(owner, Qt::Tool),
      Picture1(new QuickBarPanel(QuickBarPanel::Wide, QuickBarHost::FloatingWindow)),
      Picture2(new QuickBarPanel(QuickBarPanel::Tall, QuickBarHost::FloatingWindow)) {
    setWindowTitle(QStringLiteral("Quick bar"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture2->setObjectName(QStringLiteral("Picture2"));
    for (QuickBarPanel *bar : {Picture1, Picture2}) {
        column->addWidget(bar, 0, Qt::AlignCenter);
        connect(bar, &QuickBarPanel::clicked, this, &CaracterToolbarFrm::pressButton);
    }
    move(pixels(shared::settings.ChrToolX), pixels(shared::settings.ChrToolY));
}

void CaracterToolbarFrm::showLayout(QuickBarPanel::Layout layout) {
    const bool wide = layout == QuickBarPanel::Wide;
    Picture1->setVisible(wide);
    Picture2->setVisible(!wide);
    setFixedSize(wide ? QSize(pixels(7100), pixels(1800)) : QSize(pixels(1565), pixels(7300)));
}

void CaracterToolbarFrm::pressButton(int index) {
    pressQuickBarButton(QuickBarHost::FloatingWindow, index);
}

void CaracterToolbarFrm::closeEvent(QCloseEvent *event) {
    shared::settings.ChrToolX = twipsSetting(x());
    shared::settings.ChrToolY = twipsSetting(y());
    event->accept();
}

} // namespace zolt
