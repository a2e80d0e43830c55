#include "shell/preview/edit_text_preview_frm.h"

#include "platform/fonts.h"
#include "platform/held_text.h"
#include "platform/rich_text_box.h"
#include "platform/svg_icon.h"
#include "shell/base/command_table.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/preview/preview_compilation.h"
#include "shell/widgets/entry_line.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QTableWidget>

namespace zolt {

namespace {

constexpr QSize kWindow(pixels(5300), pixels(4650));
constexpr QRect kPicture(pixels(-240), pixels(-240), pixels(5715), pixels(4830));
constexpr QRect kText(pixels(600), pixels(1080), pixels(4035), pixels(2145));
constexpr QRect kLine(pixels(750), pixels(3300), pixels(3855), pixels(255));
constexpr int kRowsInSight = 10;
/// The glass of the drawn display.
constexpr QColor kGlass(0xB4, 0xC6, 0xA5);
/// The drawn body, which goes on below the picture's foot.
constexpr QColor kBody(0x34, 0x3D, 0x48);

const QList<MenuRow> kPopUpRows{
    {0, "MnuPopUp", "PopUp"},
    {1, "MnuPopUpMenu", "&Menu", "MnuPopUpMenu"},
};

void paintGlass(QWidget *widget) {
    QPalette palette = widget->palette();
    for (const auto role : {QPalette::Base, QPalette::Window})
        palette.setColor(role, kGlass);
    for (const auto role : {QPalette::Text, QPalette::WindowText})
        palette.setColor(role, Qt::black);
    widget->setPalette(palette);
}

} // namespace

EditTextPreviewFrm::EditTextPreviewFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("HP48"), DisablesTheFrame, owner),
      Text4(new RichTextBox(false, this)),
      Grid1(new QTableWidget(0, 1, this)),
      Label1(new QLabel(QStringLiteral("1"), this)) {
    setFixedSize(kWindow);
    QPalette body = palette();
    body.setColor(QPalette::Window, kBody);
    setPalette(body);
    auto *Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(svgIcon(QStringLiteral("calculator")).pixmap(kPicture.size()));
    Image1->setGeometry(kPicture);
    Image1->lower();

    buildText();
    buildList();
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setGeometry(kLine);
    Label1->setFont(zoltFont(QStringLiteral("ZOLT"), 9.75));
    Label1->setAutoFillBackground(true);
    paintGlass(Label1);
    MnuPopUp = buildMenus(
                   kPopUpRows, [this] { return QList<QObject *>{this}; }, this)
                   .first();
}

void EditTextPreviewFrm::buildText() {
    Text4->setObjectName(QStringLiteral("Text4"));
    Text4->setGeometry(kText);
    Text4->setFrameShape(QFrame::NoFrame);
    // A bar would cover the last columns; keys and wheel scroll.
    Text4->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text4->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text4->setBackColour(kGlass);
    Text4->setWhiteIsClear(true);
    Text4->installEventFilter(this);
    connect(&Text4->events(), &PaneEvents::click, this, &EditTextPreviewFrm::MostrarLinhaActual);
    connect(&Text4->events(), &PaneEvents::keyDown, this, &EditTextPreviewFrm::MostrarLinhaActual);
    connect(&Text4->events(), &PaneEvents::keyUp, this, &EditTextPreviewFrm::MostrarLinhaActual);
    connect(&Text4->events(), &PaneEvents::mouseUp, this, &EditTextPreviewFrm::MostrarLinhaActual);
    connect(&Text4->events(), &PaneEvents::mouseDown, this, [this](Qt::MouseButton button) {
        MostrarLinhaActual();
        if (button == Qt::RightButton)
            MnuPopUp->popup(QCursor::pos());
    });
}

void EditTextPreviewFrm::buildList() {
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setGeometry(kText);
    Grid1->setFrameShape(QFrame::NoFrame);
    Grid1->setFont(zoltFont(QStringLiteral("ZOLT"), 10));
    Grid1->setItemDelegate(new EntryLine(Grid1));
    Grid1->horizontalHeader()->hide();
    Grid1->verticalHeader()->hide();
    Grid1->verticalHeader()->setMinimumSectionSize(1);
    Grid1->verticalHeader()->setDefaultSectionSize(kText.height() / kRowsInSight);
    Grid1->setColumnWidth(0, kText.width());
    Grid1->setShowGrid(false);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // As in the text, a bar would cover the last columns.
    Grid1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setTabKeyNavigation(false);
    paintGlass(Grid1);
    Grid1->hide();
    Grid1->installEventFilter(this);
    connect(Grid1, &QTableWidget::itemSelectionChanged, this, &EditTextPreviewFrm::showEntryLine);
    connect(Grid1, &QTableWidget::cellClicked, this, &EditTextPreviewFrm::showEntryLine);
    connect(Grid1, &QTableWidget::cellDoubleClicked, this, &EditTextPreviewFrm::leaveList);
    // An empty list closes by a double click too.
    Grid1->viewport()->installEventFilter(this);
}

bool EditTextPreviewFrm::compile() {
    if (!compileInto(*Text4, PreviewFlavour::Hp48) || loaded<EditTextPreviewFrm>() != this)
        return false;
    fillList();
    Text4->setFocus();
    return true;
}

void EditTextPreviewFrm::fillList() {
    Grid1->setRowCount(shared::NúmeroDeEntradas);
    for (int row = 0; row < shared::NúmeroDeEntradas; ++row)
        Grid1->setItem(
            row, 0, new QTableWidgetItem(heldText(shared::TextosDasEntradas[static_cast<std::size_t>(row)])));
}

void EditTextPreviewFrm::MostrarLinhaActual() {
    Label1->setText(QString::number(Text4->lineOfOffset(Text4->selEnd()) + 1));
}

void EditTextPreviewFrm::MnuPopUpMenu() {
    if (shared::NúmeroDeEntradas > 0 && Grid1->currentRow() < 0)
        Grid1->setCurrentCell(0, 0);
    Grid1->show();
    Grid1->raise();
    Grid1->setFocus();
}

void EditTextPreviewFrm::showEntryLine() {
    const int row = Grid1->currentRow();
    if (Grid1->isVisible() && row >= 0 && row < shared::NúmeroDeEntradas)
        Label1->setText(QString::number(shared::LinhasDasEntradas[static_cast<std::size_t>(row)]));
}

void EditTextPreviewFrm::leaveList() {
    Grid1->hide();
    Text4->setFocus();
    const int row = Grid1->currentRow();
    if (row >= 0 && row < shared::NúmeroDeEntradas)
        goToEntry(*Text4, row, 1);
}

bool EditTextPreviewFrm::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Text4 && asksForEntries(*event)) {
        MnuPopUpMenu();
        return true;
    }
    if (event->type() == QEvent::MouseButtonDblClick && shared::NúmeroDeEntradas == 0) {
        leaveList();
        return true;
    }
    if (watched == Grid1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            leaveList();
            return true;
        }
        if (key == Qt::Key_Escape) {
            Grid1->hide();
            Text4->setFocus();
            return true;
        }
    }
    return ToolFrm::eventFilter(watched, event);
}

} // namespace zolt
