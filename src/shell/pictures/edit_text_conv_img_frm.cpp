#include "shell/pictures/edit_text_conv_img_frm.h"

#include "platform/surface_view.h"
#include "platform/svg_icon.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/widgets/command_button.h"
#include "shell/widgets/size_boxes.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
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
    label->setPixmap(svgIcon(QString::fromUtf8(name)).pixmap(20));
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
      m_source(new QLineEdit),
      m_text(new TextPane(true, this)),
      m_surface(new SurfaceView(QStringLiteral("Picture1"), QStringLiteral("VScroll1"))),
      m_view(new SurfaceView(QStringLiteral("Picture5"), QStringLiteral("VScroll2"))),
      m_size(new SizeBoxes),
      m_nothingShows(newNothingShows()),
      m_bar(new QProgressBar) {
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->hide();
    m_source->setObjectName(QStringLiteral("Text4"));
    m_source->setReadOnly(true);
    m_size->setObjectName(QStringLiteral("Picture6"));
    m_bar->setObjectName(QStringLiteral("ProgressBar1"));
    m_bar->setTextVisible(false);
    m_bar->setMaximumHeight(10);

    auto *source = new QHBoxLayout;
    auto *sourceLabel = new QLabel(QStringLiteral("Source:"));
    auto *choose = newButton(this, "Command2", QStringLiteral("..."), &EditTextConvImgFrm::chooseSource);
    choose->setToolTip(QStringLiteral("Choose the source"));
    choose->setAutoDefault(false);
    source->addWidget(sourceLabel);
    source->addWidget(m_source, 1);
    source->addWidget(choose);

    auto *column = new QVBoxLayout(this);
    auto *top = new QHBoxLayout;
    top->addWidget(buildKinds());
    top->addWidget(buildButtons());
    column->addLayout(top);
    column->addLayout(source);
    column->addWidget(buildPictures());
    column->addWidget(m_bar);
    column->setSizeConstraint(QLayout::SetFixedSize);

    connect(m_size, &SizeBoxes::sizeChosen, this, &EditTextConvImgFrm::RefreshPicture);
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
    m_viewFrame = frameAround("Frame3", QStringLiteral("Preview"), m_view);
    auto *pictures = new QWidget;
    auto *grid = new QGridLayout(pictures);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(frameAround("Frame2", QStringLiteral("Original image"), m_surface), 0, 0);
    grid->addWidget(m_viewFrame, 0, 1);
    QSizePolicy policy = m_size->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_size->setSizePolicy(policy);
    grid->addWidget(m_size, 1, 0, Qt::AlignLeft);
    grid->addWidget(m_nothingShows, 1, 1, Qt::AlignTop);
    return pictures;
}

QWidget *EditTextConvImgFrm::buildButtons() {
    auto *buttons = new QWidget;
    auto *column = new QVBoxLayout(buttons);
    column->setContentsMargins(0, 0, 0, 0);
    QPushButton *convert =
        newButton(this, "Command6", QStringLiteral("&Convert"), &EditTextConvImgFrm::convert);
    for (QPushButton *button :
         {convert, newButton(this, "Command7", QStringLiteral("&Preview"), &EditTextConvImgFrm::preview),
          newButton(this, "Command1", QStringLiteral("Close"), &QWidget::close)}) {
        button->setAutoDefault(false);
        column->addWidget(button);
    }
    convert->setDefault(true);
    column->addStretch();
    return buttons;
}

} // namespace zolt
