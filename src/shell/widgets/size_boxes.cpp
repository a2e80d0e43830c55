#include "shell/widgets/size_boxes.h"

#include "platform/up_down.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace zolt {

namespace {

/// 30 twips a dot, held in 16 bits.
constexpr int kMostDotsOfASide = 32767 / 30;

/// The number at the start of a box as it stands there; 0 without one.
double numberAtStart(const QString &text) {
    const QByteArray typed = text.trimmed().toLatin1();
    double number = 0;
    std::from_chars(typed.begin(), typed.end(), number);
    return std::isfinite(number) ? number : 0;
}

int dotsAtStart(const QString &text) {
    const double dots = std::nearbyint(numberAtStart(text));
    return dots >= 1 && dots <= kMostDotsOfASide ? static_cast<int>(dots) : 0;
}

} // namespace

SizeBoxes::SizeBoxes(QWidget *parent) : QWidget(parent) {
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    m_width = addBox(0, "Text2", "UpDown1", QStringLiteral("&Width:"), 132, 133, 132);
    m_height = addBox(1, "Text3", "UpDown2", QStringLiteral("&Height:"), 65, 1090, 1090);
}

QLineEdit *SizeBoxes::addBox(int row, const char *name, const char *spinner, const QString &caption,
                             int start, int typedUnder, int mostSpun) {
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

    connect(box, &QLineEdit::textEdited, upDown, [upDown, typedUnder](const QString &text) {
        const double number = numberAtStart(text);
        if (number > 0 && number < typedUnder)
            upDown->setValue(std::clamp(static_cast<int>(std::nearbyint(number)), 1, upDown->most()));
    });
    connect(upDown, &UpDown::valueChanged, this, [this, box](int value) {
        if (dotsAtStart(box->text()) != value)
            box->setText(QString::number(value));
        emit sizeChosen();
    });
    return box;
}

int SizeBoxes::widthInDots() const {
    return dotsAtStart(m_width->text());
}
int SizeBoxes::heightInDots() const {
    return dotsAtStart(m_height->text());
}

} // namespace zolt
