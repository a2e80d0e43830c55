#include "shell/tools/caracter_table_frm.h"

#include "platform/fonts.h"
#include "platform/held_text.h"
#include "shell/base/document_in_use.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

namespace zolt {

namespace {

constexpr int kTableColumns = 14;
constexpr int kTableRows = 16;
constexpr int kFirstCode = 32;
/// 237 twips.
constexpr int kColumnWidth = 16;

int codeOfCell(int row, int column) {
    return kFirstCode + kTableColumns * row + column;
}

/// Draws a cell's character in its middle, never shortened however narrow the cell.
class CharacterCell : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        const bool selected = option.state & QStyle::State_Selected;
        if (selected)
            painter->fillRect(option.rect, option.palette.highlight());
        painter->setFont(option.font);
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect, Qt::AlignCenter, index.data().toString());
    }
};

} // namespace

CaracterTableFrm::CaracterTableFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Character table"), BesideTheFrame, owner),
      Picture1(new QFrame),
      Grid1(new QTableWidget(kTableRows, kTableColumns)),
      Combo1(new QComboBox) {
    shared::settings.ChrTbExi = 1;
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->addItems(QFontDatabase::families());
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto *panel = new QVBoxLayout(Picture1);
    panel->setContentsMargins(0, 0, 0, 0);
    panel->addWidget(Grid1);
    fillGrid();

    auto *column = new QVBoxLayout(this);
    column->addWidget(Picture1);
    column->addWidget(Combo1);
    column->setSizeConstraint(QLayout::SetFixedSize);

    const int chosen = Combo1->findText(QString::fromStdString(shared::settings.ChrTbFnt));
    Combo1->setCurrentIndex(qMax(chosen, 0));
    showFont(Combo1->currentText());
    connect(Combo1, &QComboBox::activated, this, &CaracterTableFrm::takeFont);
    move(pixels(shared::settings.ChrTbPoX), pixels(shared::settings.ChrTbPoY));
}

void CaracterTableFrm::fillGrid() {
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->horizontalHeader()->hide();
    Grid1->verticalHeader()->hide();
    for (QHeaderView *header : {Grid1->horizontalHeader(), Grid1->verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setMinimumSectionSize(1);
    }
    Grid1->horizontalHeader()->setDefaultSectionSize(kColumnWidth);
    Grid1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->setTabKeyNavigation(false);
    Grid1->setItemDelegate(new CharacterCell(Grid1));
    Grid1->setMouseTracking(true);
    Grid1->installEventFilter(this);
    Grid1->viewport()->installEventFilter(this);
    for (int row = 0; row < kTableRows; ++row) {
        for (int column = 0; column < kTableColumns; ++column) {
            const char character = static_cast<char>(codeOfCell(row, column));
            Grid1->setItem(row, column, new QTableWidgetItem(heldText({&character, 1})));
        }
    }
    Grid1->setCurrentCell(0, 0);
    connect(Grid1, &QTableWidget::cellEntered, this, [this](int row, int column) {
        Grid1->setToolTip(QStringLiteral("Alt+%1").arg(codeOfCell(row, column)));
    });
}

void CaracterTableFrm::showFont(const QString &name) {
    const QFont font = zoltFont(name, 9.75);
    Grid1->setFont(font);
    Grid1->verticalHeader()->setDefaultSectionSize(QFontMetrics(font).height() + 2);
    const int border = 2 * Grid1->frameWidth();
    Grid1->setFixedSize(Grid1->horizontalHeader()->length() + border,
                        Grid1->verticalHeader()->length() + border);
}

void CaracterTableFrm::showBesideDocument() {
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void CaracterTableFrm::takeFont() {
    showFont(Combo1->currentText());
    shared::settings.ChrTbFnt = Combo1->currentText().toStdString();
}

void CaracterTableFrm::insertCharacter() {
    const char character = static_cast<char>(codeOfCell(Grid1->currentRow(), Grid1->currentColumn()));
    insertIntoActivePane({&character, 1});
}

bool CaracterTableFrm::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Grid1->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto *release = static_cast<QMouseEvent *>(event);
        if (release->button() == Qt::LeftButton &&
            Grid1->viewport()->rect().contains(release->position().toPoint()))
            insertCharacter();
    }
    if (watched == Grid1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            insertCharacter();
            return true;
        }
    }
    return ToolFrm::eventFilter(watched, event);
}

} // namespace zolt
