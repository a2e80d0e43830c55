#include "shell/tools/splash_frm.h"

#include "platform/svg_icon.h"

#include <QLabel>
#include <QVBoxLayout>

namespace zolt {

SplashFrm::SplashFrm(QWidget *owner) : QWidget(owner, Qt::SplashScreen) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto *picture = new QLabel;
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setPixmap(svgIcon(QStringLiteral("splash")).pixmap(480, 300));
    column->addWidget(picture);
}

} // namespace zolt
