#include "shell/pictures/edit_text_conv_img_frm.h"

#include "platform/surface_view.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/pictures/picture_sources.h"
#include "shell/widgets/size_boxes.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zolt {

namespace {

/// The six kinds, by value from 1: caption, and the pictures of source and target.
struct Kind {
    const char *caption;
    const char *source;
    const char *target;
};

constexpr std::array<Kind, 6> kKinds{{
    {"BMP GIF JPG ... ->ZOLT", "pc-picture", "zolt-image"},
    {"ZOLT -> BMP GIF JPG ...", "zolt-image", "pc-picture"},
    {"BMP GIF JPG ... -> HP Grob", "pc-picture", "grob"},
    {"HP Grob -> BMP GIF JPG ...", "grob", "pc-picture"},
    {"HP Grob -> ZOLT", "grob", "zolt-image"},
    {"ZOLT -> HP Grob", "zolt-image", "grob"},
}};

QLabel *picture(const char *name) {
    auto *label = new QLabel;
    label->setPixmap(QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(name))).pixmap(20));
    return label;
}

QGroupBox *frameAround(const char *name, const QString &caption, QWidget *content) {
    auto *frame = new QGroupBox(caption);
    frame->setObjectName(QString::fromUtf8(name));
    (new QVBoxLayout(frame))->addWidget(content);
    return frame;
}

} // namespace

EditTextConvImgFrm::EditTextConvImgFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Image format conversion"), DisablesTheFrame, owner),
      Text4(new QLineEdit),
      Text1(new TextPane(true, this)),
      Picture1(new SurfaceView(QStringLiteral("Picture1"), QStringLiteral("VScroll1"))),
      Picture5(new SurfaceView(QStringLiteral("Picture5"), QStringLiteral("VScroll2"))),
      Picture6(new SizeBoxes),
      m_nothingShows(newNothingShows()),
      ProgressBar1(new QProgressBar) {
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->hide();
    Text4->setObjectName(QStringLiteral("Text4"));
    Text4->setReadOnly(true);
    Picture6->setObjectName(QStringLiteral("Picture6"));
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setMaximumHeight(10);

    auto *source = new QHBoxLayout;
    auto *sourceLabel = new QLabel(QStringLiteral("Source:"));
    auto *choose = new QPushButton(QStringLiteral("..."));
    choose->setObjectName(QStringLiteral("Command2"));
    choose->setToolTip(QStringLiteral("Choose the source"));
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &EditTextConvImgFrm::Command2_Click);
    source->addWidget(sourceLabel);
    source->addWidget(Text4, 1);
    source->addWidget(choose);

    auto *column = new QVBoxLayout(this);
    auto *top = new QHBoxLayout;
    top->addWidget(buildKinds());
    top->addWidget(buildButtons());
    column->addLayout(top);
    column->addLayout(source);
    column->addWidget(buildPictures());
    column->addWidget(ProgressBar1);
    column->setSizeConstraint(QLayout::SetFixedSize);

    connect(Picture6, &SizeBoxes::sizeChosen, this, &EditTextConvImgFrm::RefreshPicture);
    VerificarSeleccionado();
    shared::PararLeitura = 0;
}

QWidget *EditTextConvImgFrm::buildKinds() {
    auto *frame = new QGroupBox(QStringLiteral("Conversion"));
    frame->setObjectName(QStringLiteral("Frame4"));
    auto *grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        m_options[i] = new QRadioButton(QString::fromUtf8(kKinds[i].caption));
        m_options[i]->setObjectName(QStringLiteral("Option%1").arg(i + 1));
        const int row = static_cast<int>(i) % 3;
        const int column = static_cast<int>(i) / 3 * 4;
        grid->addWidget(m_options[i], row, column);
        grid->addWidget(picture(kKinds[i].source), row, column + 1);
        grid->addWidget(picture(kKinds[i].target), row, column + 2);
        grid->setColumnMinimumWidth(column + 3, 12);
    }
    m_options[0]->setChecked(true);
    return frame;
}

QWidget *EditTextConvImgFrm::buildPictures() {
    Frame2 = frameAround("Frame2", QStringLiteral("Original image"), Picture1);
    Frame3 = frameAround("Frame3", QStringLiteral("Preview"), Picture5);
    auto *pictures = new QWidget;
    auto *grid = new QGridLayout(pictures);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(Frame2, 0, 0);
    grid->addWidget(Frame3, 0, 1);
    QSizePolicy policy = Picture6->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    Picture6->setSizePolicy(policy);
    grid->addWidget(Picture6, 1, 0, Qt::AlignLeft);
    grid->addWidget(m_nothingShows, 1, 1, Qt::AlignTop);
    return pictures;
}

QWidget *EditTextConvImgFrm::buildButtons() {
    auto *buttons = new QWidget;
    auto *column = new QVBoxLayout(buttons);
    column->setContentsMargins(0, 0, 0, 0);
    const auto addButton = [&](const char *name, const QString &caption, auto command) {
        auto *button = new QPushButton(caption);
        button->setObjectName(QString::fromUtf8(name));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, command);
        column->addWidget(button);
        return button;
    };
    addButton("Command6", QStringLiteral("&Convert"), &EditTextConvImgFrm::Command6_Click)->setDefault(true);
    addButton("Command7", QStringLiteral("&Preview"), &EditTextConvImgFrm::Command7_Click);
    addButton("Command1", QStringLiteral("Close"), &EditTextConvImgFrm::Command1_Click);
    column->addStretch();
    return buttons;
}

} // namespace zolt
