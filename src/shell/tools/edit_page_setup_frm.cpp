#include "shell/tools/edit_page_setup_frm.h"

#include "platform/message_box.h"
#include "platform/numbers.h"
#include "shell/base/shared_values.h"
#include "shell/widgets/command_button.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <cmath>
#include <limits>
#include <optional>

namespace zolt {

namespace {

constexpr double kTwipsACentimetre = 576;
constexpr std::int16_t kPortrait = 1;
constexpr std::int16_t kLandscape = 2;

struct Margin {
    std::int16_t Settings::*setting;
    const char *box;
    const char *label;
    const char *caption;
    const char *standard;
};

/// In the order of their storing.
constexpr std::array<Margin, 4> kMargins{{
    {&Settings::PgStpTop, "Text1", "Label2", "&Top:", "2,5"},
    {&Settings::PgStpBot, "Text3", "Label4", "&Bottom:", "2,5"},
    {&Settings::PgStpLft, "Text2", "Label3", "&Left:", "3"},
    {&Settings::PgStpRgt, "Text4", "Label5", "&Right:", "3"},
}};

/// std::nearbyint rounds ties to the even neighbour.
QString shownMargin(std::int16_t twips) {
    return textFromNumber(std::nearbyint(twips / kTwipsACentimetre * 10) / 10);
}

std::optional<std::int16_t> marginFrom(const QString &text) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double twips = std::nearbyint(numberFromText(text).value_or(HUGE_VAL) * kTwipsACentimetre);
    if (twips < Limits::min() || twips > Limits::max())
        return std::nullopt;
    return static_cast<std::int16_t>(twips);
}

/// A page drawn with lines; the chosen one of two stands in a frame.
class PagePicture : public QAbstractButton {
public:
    explicit PagePicture(QSize page) : m_page(page) {
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::StrongFocus);
        setFixedSize(kSide, kSide);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        const QPalette &colours = palette();
        if (isChecked()) {
            painter.setPen(QPen(colours.color(QPalette::Highlight), kFrame));
            const int half = kFrame / 2;
            painter.drawRect(rect().adjusted(half, half, -half - 1, -half - 1));
        }
        if (hasFocus()) {
            painter.setPen(QPen(colours.color(QPalette::WindowText), 1, Qt::DotLine));
            painter.drawRect(rect().adjusted(kFrame + 1, kFrame + 1, -kFrame - 2, -kFrame - 2));
        }
        QRect page(QPoint(), m_page);
        page.moveCenter(rect().center());
        painter.setPen(Qt::darkGray);
        painter.setBrush(Qt::white);
        painter.drawRect(page);
        const QRect text = page.adjusted(kPageMargin, kPageMargin, -kPageMargin, -kPageMargin);
        for (int y = text.top(); y <= text.bottom(); y += kLineStep)
            painter.drawLine(text.left(), y, text.right(), y);
    }

private:
    static constexpr int kSide = 92;
    static constexpr int kFrame = 3;
    static constexpr int kPageMargin = 9;
    static constexpr int kLineStep = 5;

    QSize m_page;
};

QLabel *newLabel(const char *name, const char *caption, QWidget *buddy) {
    auto *label = new QLabel(QString::fromUtf8(caption));
    label->setObjectName(QString::fromUtf8(name));
    label->setBuddy(buddy);
    return label;
}

PagePicture *newPicture(const char *name, const QString &accessibleName, QSize page) {
    auto *picture = new PagePicture(page);
    picture->setObjectName(QString::fromUtf8(name));
    picture->setAccessibleName(accessibleName);
    return picture;
}

} // namespace

EditPageSetupFrm::EditPageSetupFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Page Setup"), DisablesTheFrame, owner) {
    auto *buttons = new QHBoxLayout;
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("OK"), &EditPageSetupFrm::accept);
    ok->setDefault(true);
    buttons->addWidget(
        newButton(this, "Command3", QStringLiteral("&Default"), &EditPageSetupFrm::setDefaults));
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(newButton(this, "Command2", QStringLiteral("Cancel"), &QWidget::close));

    auto *column = new QVBoxLayout(this);
    column->addWidget(buildMargins());
    column->addWidget(buildOrientation());
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(Picture2, ok);
    setTabOrder(ok, findChild<QWidget *>(QStringLiteral("Command2")));
    setTabOrder(findChild<QWidget *>(QStringLiteral("Command2")),
                findChild<QWidget *>(QStringLiteral("Command3")));
    m_margins.front()->setFocus();
}

QWidget *EditPageSetupFrm::buildMargins() {
    auto *group = new QGroupBox(QStringLiteral("Margins (cm)"));
    group->setObjectName(QStringLiteral("Frame1"));
    auto *grid = new QGridLayout(group);
    for (std::size_t i = 0; i < kMargins.size(); ++i) {
        const Margin &margin = kMargins[i];
        auto *box = new QLineEdit(shownMargin(shared::settings.*margin.setting));
        box->setObjectName(QString::fromUtf8(margin.box));
        box->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
        const int row = static_cast<int>(i) / 2;
        const int place = static_cast<int>(i) % 2 * 2;
        grid->addWidget(newLabel(margin.label, margin.caption, box), row, place, Qt::AlignRight);
        grid->addWidget(box, row, place + 1);
        m_margins[i] = box;
    }
    return group;
}

QWidget *EditPageSetupFrm::buildOrientation() {
    auto *group = new QGroupBox(QStringLiteral("Orientation"));
    group->setObjectName(QStringLiteral("Frame2"));
    Picture1 = newPicture("Picture1", QStringLiteral("Portrait"), {48, 68});
    Picture2 = newPicture("Picture2", QStringLiteral("Landscape"), {68, 48});
    auto *grid = new QGridLayout(group);
    grid->addWidget(Picture1, 0, 0, Qt::AlignCenter);
    grid->addWidget(Picture2, 0, 1, Qt::AlignCenter);
    grid->addWidget(newLabel("Label7", "&Portrait", Picture1), 1, 0, Qt::AlignCenter);
    grid->addWidget(newLabel("Label8", "L&andscape", Picture2), 1, 1, Qt::AlignCenter);

    (shared::settings.PgStpOrn == kLandscape ? Picture2 : Picture1)->setChecked(true);
    connect(Picture2, &QAbstractButton::toggled, this,
            [](bool landscape) { shared::settings.PgStpOrn = landscape ? kLandscape : kPortrait; });
    return group;
}

void EditPageSetupFrm::setDefaults() {
    for (std::size_t i = 0; i < kMargins.size(); ++i)
        m_margins[i]->setText(QString::fromUtf8(kMargins[i].standard));
    Picture1->setChecked(true);
    shared::settings.PgStpOrn = kPortrait;
}

void EditPageSetupFrm::accept() {
    for (std::size_t i = 0; i < kMargins.size(); ++i) {
        const auto margin = marginFrom(m_margins[i]->text());
        if (!margin) {
            showMessage(this, QStringLiteral("Incorrect format"));
            m_margins[i]->setFocus();
            m_margins[i]->selectAll();
            return;
        }
        shared::settings.*kMargins[i].setting = *margin;
    }
    close();
}

} // namespace zolt
