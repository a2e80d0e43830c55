#include "shell/tools/splash_frm.h"

#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace zolt {

SplashFrm::SplashFrm(QWidget *owner) : QWidget(owner, Qt::SplashScreen) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto *picture = new QLabel;
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setPixmap(QIcon(QStringLiteral(":/icons/splash.svg")).pixmap(480, 300));
    column->addWidget(picture);
}

} // namespace zolt
