#include "shell/size_boxes.h"

#include "platform/up_down.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <cmath>
#include <cstdlib>

namespace zolt {

namespace {

/// 30 twips a dot, held in 16 bits.
constexpr int kMostDotsOfASide = 32767 / 30;

int numberAtStart(const QString &text) {
    const double number = std::nearbyint(std::strtod(text.toLatin1().constData(), nullptr));
    return number >= 1 && number <= kMostDotsOfASide ? static_cast<int>(number) : 0;
}

} // namespace

SizeBoxes::SizeBoxes(QWidget *parent) : QWidget(parent) {
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    Text2 = addBox(0, "Text2", "UpDown1", QStringLiteral("&Width:"), 132, 132, 132);
    Text3 = addBox(1, "Text3", "UpDown2", QStringLiteral("&Height:"), 65, 1089, 1090);
}

QLineEdit *SizeBoxes::addBox(int row, const char *name, const char *spinner, const QString &caption,
                             int start, int mostTyped, int mostSpun) {
    auto *box = new QLineEdit(QString::number(start));
    box->setObjectName(QString::fromUtf8(name));
    box->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 16);
    auto *upDown = new UpDown(1, mostSpun, start, box);
    upDown->setObjectName(QString::fromUtf8(spinner));
    auto *label = new QLabel(caption);
    label->setBuddy(box);
    auto *grid = static_cast<QGridLayout *>(layout());
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(upDown, row, 2);

    connect(box, &QLineEdit::textEdited, upDown, [upDown, mostTyped](const QString &text) {
        const int number = numberAtStart(text);
        if (number > 0 && number <= mostTyped)
            upDown->setValue(number);
    });
    connect(upDown, &UpDown::valueChanged, this, [this, box](int value) {
        if (numberAtStart(box->text()) != value)
            box->setText(QString::number(value));
        emit sizeChosen();
    });
    return box;
}

int SizeBoxes::widthInDots() const {
    return numberAtStart(Text2->text());
}
int SizeBoxes::heightInDots() const {
    return numberAtStart(Text3->text());
}

} // namespace zolt
