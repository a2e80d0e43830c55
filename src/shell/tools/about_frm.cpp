#include "shell/tools/about_frm.h"

#include "platform/svg_icon.h"
#include "shell/widgets/command_button.h"

#include <QLabel>
#include <QVBoxLayout>

namespace zolt {

AboutFrm::AboutFrm(QWidget *owner) : ToolFrm(QStringLiteral("About ZOLT"), BesideTheFrame, owner) {
    auto *column = new QVBoxLayout(this);
    auto *picture = new QLabel;
    picture->setPixmap(svgIcon(QStringLiteral("zolt")).pixmap(96));
    picture->setAlignment(Qt::AlignCenter);
    auto *name = new QLabel(QStringLiteral("<h2>ZOLT</h2>Version " ZOLT_VERSION));
    name->setAlignment(Qt::AlignCenter);
    auto *purpose = new QLabel(QStringLiteral("Documents for the HP48 calculator"));
    purpose->setAlignment(Qt::AlignCenter);
    auto *link = new QLabel(QStringLiteral("<a href=\"https://zolt.example/\">zolt.example</a>"));
    link->setObjectName(QStringLiteral("Label1"));
    link->setAlignment(Qt::AlignCenter);
    link->setOpenExternalLinks(true);
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("OK"), &QWidget::close);
    ok->setDefault(true);
    for (QWidget *part : std::initializer_list<QWidget *>{picture, name, purpose, link})
        column->addWidget(part);
    column->addWidget(ok, 0, Qt::AlignCenter);
    column->setContentsMargins(40, 24, 40, 24);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace zolt
