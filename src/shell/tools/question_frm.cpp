#include "shell/tools/question_frm.h"

#include "platform/picture_label.h"
#include "platform/svg_icon.h"
#include "shell/base/document_in_use.h"
#include "shell/base/shared_values.h"
#include "shell/widgets/command_button.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace zolt {

namespace {

constexpr int kTextual = 1;
constexpr int kGraphical = 2;
constexpr int kPictureSize = 96;

/// A picture that shows when it has the keyboard.
class ChoicePicture : public PictureLabel {
public:
    using PictureLabel::PictureLabel;

protected:
    void paintEvent(QPaintEvent *event) override {
        PictureLabel::paintEvent(event);
        if (!hasFocus())
            return;
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

} // namespace

QuestionFrm::QuestionFrm(QWidget *owner) : ToolFrm(QStringLiteral("Start"), HidesTheFrame, owner) {
    auto *edition = new QGroupBox(QStringLiteral("Edition type"));
    edition->setObjectName(QStringLiteral("Frame1"));
    auto *choices = new QHBoxLayout(edition);
    choices->addWidget(buildChoice(1, QStringLiteral("Textual Edition"), QStringLiteral("edition-text")));
    choices->addWidget(
        buildChoice(2, QStringLiteral("Graphical Edition"), QStringLiteral("edition-graphic")));

    auto *tip = new QGroupBox(QStringLiteral("Tip"));
    tip->setObjectName(QStringLiteral("Frame2"));
    auto *tips = new QVBoxLayout(tip);
    const QString texts[] = {
        QStringLiteral("Textual Edition uses only characters, but allows a much bigger personalization."),
        QStringLiteral(
            "Graphical Edition allows the direct insertion and visualization of graphical objects in "
            "the edition area. ")};
    for (const QString &text : texts) {
        auto *label = new QLabel(text);
        label->setWordWrap(true);
        tips->addWidget(label);
    }

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *ok = newButton(this, "Command1", QStringLiteral("OK"), &QuestionFrm::openChosenEdition);
    ok->setDefault(true);
    buttons->addWidget(ok);
    QPushButton *cancel = newButton(this, "Command2", QStringLiteral("Cancel"), &QWidget::close);
    buttons->addWidget(cancel);

    auto *column = new QVBoxLayout(this);
    column->addWidget(edition);
    column->addWidget(tip);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    // Left to themselves, buttons take arrow keys as ways to each other.
    ok->installEventFilter(this);
    cancel->installEventFilter(this);

    const int chosen = shared::settings.Question == kGraphical ? kGraphical : kTextual;
    markChoice(chosen);
    picture(chosen)->setFocus();
}

QWidget *QuestionFrm::picture(int edition) const {
    return findChild<QWidget *>(QStringLiteral("Picture%1").arg(edition));
}

QWidget *QuestionFrm::buildChoice(int number, const QString &caption, const QString &icon) {
    auto *picture = new ChoicePicture;
    picture->setFocusPolicy(Qt::StrongFocus);
    picture->setObjectName(QStringLiteral("Picture%1").arg(number));
    picture->setPixmap(svgIcon(icon).pixmap(kPictureSize));
    picture->setAccessibleName(caption);
    connect(picture, &PictureLabel::click, this, [this, number] { choose(number); });
    connect(picture, &PictureLabel::doubleClick, this, [this, number] {
        choose(number);
        openChosenEdition();
    });

    // Line1 to Line4, or Line5 to Line8: above, below, left and right of the picture.
    auto *choice = new QWidget;
    auto *grid = new QGridLayout(choice);
    grid->setSpacing(0);
    picture->setMargin(4);
    const struct { int row, column, columns; } places[] = {{0, 0, 3}, {2, 0, 3}, {1, 0, 1}, {1, 2, 1}};
    for (int i = 0; i < 4; ++i) {
        const int index = 4 * (number - 1) + i;
        auto *line = new QFrame;
        line->setObjectName(QStringLiteral("Line%1").arg(index + 1));
        line->setAutoFillBackground(true);
        line->setBackgroundRole(QPalette::Highlight);
        QSizePolicy policy = i < 2 ? QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed)
                                   : QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        policy.setRetainSizeWhenHidden(true);
        line->setSizePolicy(policy);
        i < 2 ? line->setFixedHeight(3) : line->setFixedWidth(3);
        grid->addWidget(line, places[i].row, places[i].column, 1, places[i].columns);
        m_lines[static_cast<std::size_t>(index)] = line;
    }
    grid->addWidget(picture, 1, 1, Qt::AlignCenter);
    auto *label = new QLabel(caption);
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(4);
    grid->addWidget(label, 3, 0, 1, 3);
    return choice;
}

void QuestionFrm::markChoice(int chosen) {
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        m_lines[i]->setVisible((i < 4) == (chosen == kTextual));
}

void QuestionFrm::SeleccionarEdiçãoTextual() {
    markChoice(kTextual);
}
void QuestionFrm::SeleccionarEdiçãoGráfica() {
    markChoice(kGraphical);
}

void QuestionFrm::choose(int edition) {
    edition == kGraphical ? SeleccionarEdiçãoGráfica() : SeleccionarEdiçãoTextual();
    shared::settings.Question = static_cast<std::int16_t>(edition);
}

bool QuestionFrm::chooseByKey(int key) {
    int edition = key == Qt::Key_Left || key == Qt::Key_Up      ? kTextual
                  : key == Qt::Key_Right || key == Qt::Key_Down ? kGraphical
                                                                : 0;
    if (edition != 0) {
        picture(edition)->setFocus();
    } else if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
        for (const int number : {kTextual, kGraphical})
            if (picture(number)->hasFocus())
                edition = number;
    }
    if (edition == 0)
        return false;
    choose(edition);
    return true;
}

void QuestionFrm::keyPressEvent(QKeyEvent *event) {
    // Enter on a picture chooses it, and then is OK's.
    if (!chooseByKey(event->key()) || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        QDialog::keyPressEvent(event);
}

bool QuestionFrm::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key >= Qt::Key_Left && key <= Qt::Key_Down)
            return chooseByKey(key);
    }
    return ToolFrm::eventFilter(watched, event);
}

void QuestionFrm::openChosenEdition() {
    emit chosen(shared::settings.Question == kGraphical ? kGraphical : kTextual);
    if (documentInUse())
        close();
}

} // namespace zolt
