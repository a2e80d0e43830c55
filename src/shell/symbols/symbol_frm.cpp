#include "shell/symbols/symbol_frm.h"

#include "platform/byte_line.h"
#include "platform/fonts.h"
#include "platform/svg_icon.h"
#include "shell/base/command_table.h"
#include "shell/base/shared_values.h"
#include "shell/widgets/cell_views.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace zolt {

/// A button; one without a caption shows its picture alone.
struct SymbolFrm::ButtonRow {
    const char *name;
    const char *caption;
    const char *toolTip;
    const char *icon;
    void (SymbolFrm::*command)();
};

namespace {

constexpr double kListPoints = 10;

const QList<MenuRow> &popUpTable() {
    static const QList<MenuRow> table{
        {0, "MnuPopUpSymbol", "PopUp"},
        {1, "MnuPopUpSymbolEditar", "&Editar", "editSymbol", nullptr, "edit"},
        {1, "MnuPopUpSymbolRemover", "&Remover", "removeSymbol", nullptr, "remove"},
        {1, "MnuPopUpSymbolDuplicar", "&Duplicar", "duplicateSymbol", nullptr, "double"},
        {1, "MnuPopUpSymbolSeparador1", "-"},
        {1, "MnuPopUpSymbolMoverparacima", "Mover para &cima", "moveUp", nullptr, "move-up"},
        {1, "MnuPopUpSymbolMoverparabaixo", "Mover para &baixo", "moveDown", nullptr, "move-down"},
    };
    return table;
}

template <class Control> Control *named(const char *name, Control *control) {
    control->setObjectName(QString::fromUtf8(name));
    return control;
}

QGroupBox *newFrame(const char *name, const char *caption, QWidget *content, Qt::Alignment alignment = {}) {
    auto *frame = named(name, new QGroupBox(QString::fromUtf8(caption)));
    auto *layout = new QVBoxLayout(frame);
    layout->addWidget(content, 0, alignment);
    return frame;
}

/// A sunken frame around a preview.
QFrame *newPreviewFrame(const char *name, CellPreview *preview) {
    auto *frame = named(name, new QFrame);
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    frame->setBackgroundRole(QPalette::Mid);
    frame->setAutoFillBackground(true);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->addWidget(preview, 0, Qt::AlignCenter);
    return frame;
}

} // namespace

SymbolFrm::SymbolFrm(QWidget *owner)
    : ToolFrm(QStringLiteral("Symbol"), BesideTheFrame, owner), SSTab1(named("SSTab1", new QTabWidget)) {
    SSTab1->addTab(buildListPage(), QStringLiteral("Symbol &list"));
    SSTab1->addTab(buildEditionPage(), QStringLiteral("Symbol &edition"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(SSTab1);
    column->addLayout(buildClosingButtons());
    buildPopUp();
    connect(SSTab1, &QTabWidget::currentChanged, this, &SymbolFrm::followPage);

    loadList(shared::settings.DefltSmb);
    ActualizarLista();
    selectSymbol(1);
    showFileName();
    Text2->setText(m_symbols.defaultTitle());
    draw({});
    followPage();
}

QPushButton *SymbolFrm::newButton(const ButtonRow &row) {
    auto *button = named(row.name, new QPushButton(QString::fromUtf8(row.caption)));
    button->setToolTip(QString::fromUtf8(row.toolTip));
    if (row.icon)
        button->setIcon(svgIcon(QString::fromUtf8(row.icon)));
    if (!*row.caption)
        button->setAccessibleName(button->toolTip());
    connect(button, &QPushButton::clicked, this, row.command);
    return button;
}

QGroupBox *SymbolFrm::newButtonGroup(const char *name, const char *caption,
                                     std::initializer_list<ButtonRow> rows, Qt::Orientation orientation) {
    auto *frame = named(name, new QGroupBox(QString::fromUtf8(caption)));
    auto *layout = new QBoxLayout(
        orientation == Qt::Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, frame);
    for (const ButtonRow &row : rows)
        layout->addWidget(newButton(row));
    return frame;
}

QWidget *SymbolFrm::buildListPage() {
    Label1 = named("Label1", new QLabel(QStringLiteral("Symbol file")));
    Label1->setTextFormat(Qt::PlainText);
    Label2 = named("Label2", new QLabel);
    List1 = named("List1", new QListWidget);
    List1->setFont(zoltFont(QStringLiteral("ZOLT"), kListPoints));
    List1->setSpacing(1);
    List1->setUniformItemSizes(true);
    List1->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(List1, &QListWidget::itemSelectionChanged, this, &SymbolFrm::followSelection);
    connect(List1, &QListWidget::itemDoubleClicked, this, &SymbolFrm::insert);
    Picture29 = named("Picture29", new CellPreview);

    auto *page = new QWidget;
    Text1 = named("Text1", new ByteLine(page));
    Text1->hide();
    auto *list = new QVBoxLayout;
    list->addWidget(Label1);
    list->addWidget(List1);
    list->addWidget(Label2);
    auto *tools = new QVBoxLayout;
    tools->addWidget(newFrame("Frame4", "Preview", newPreviewFrame("Picture28", Picture29), Qt::AlignCenter));
    tools->addWidget(
        newButtonGroup("Frame5", "&File",
                       {{"Command12", "", "Open symbol list", "open", &SymbolFrm::openList},
                        {"Command13", "", "Save symbol list", "save", &SymbolFrm::saveList},
                        {"Command17", "", "Import symbol list", "import", &SymbolFrm::importList}},
                       Qt::Horizontal));
    tools->addWidget(newButtonGroup("Frame6", "&Move",
                                    {{"Command10", "", "Move up", "move-up", &SymbolFrm::moveUp},
                                     {"Command15", "", "Move down", "move-down", &SymbolFrm::moveDown}},
                                    Qt::Horizontal));
    tools->addWidget(
        newButtonGroup("Frame7", "",
                       {{"Command8", "Edit", "Edit symbol", "edit", &SymbolFrm::editSymbol},
                        {"Command9", "Remove", "Remove symbol", "remove", &SymbolFrm::removeSymbol},
                        {"Command16", "Double", "Double symbol", "double", &SymbolFrm::duplicateSymbol},
                        {"Command14", "Clean", "Clean symbol", "clean", &SymbolFrm::cleanList}},
                       Qt::Vertical));
    tools->addStretch();
    auto *row = new QHBoxLayout(page);
    row->addLayout(list, 1);
    row->addLayout(tools);
    return page;
}

QWidget *SymbolFrm::buildEditionPage() {
    Picture25 = named("Picture25", new CellGrid);
    connect(Picture25, &CellGrid::drawn, this, &SymbolFrm::Expressao);
    Picture26 = named("Picture26", new CellPreview);
    Text2 = named("Text2", new ByteLine);
    Text3 = named("Text3", new ByteLine);

    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    auto *tools = new QVBoxLayout;
    tools->addWidget(newFrame("Frame1", "Preview", newPreviewFrame("Picture27", Picture26), Qt::AlignCenter));
    for (const ButtonRow &row :
         {ButtonRow{"Command6", "Fill", "Fill drawing area", "fill", &SymbolFrm::fillDrawing},
          ButtonRow{"Command7", "Invert", "Invert drawing area", "invert", &SymbolFrm::invertDrawing},
          ButtonRow{"Command5", "Clean", "Clean drawing area", "clean", &SymbolFrm::cleanDrawing}})
        tools->addWidget(newButton(row));
    tools->addStretch();
    auto *list = new QHBoxLayout;
    for (const ButtonRow &row :
         {ButtonRow{"Command1", "&Add", "Add symbol to the list", "add", &SymbolFrm::addSymbol},
          ButtonRow{"Command2", "&Replace", "Replace symbol in the list", "replace",
                    &SymbolFrm::replaceSymbol},
          ButtonRow{"Command11", "&New", "New symbol", "new-symbol", &SymbolFrm::newSymbol}})
        list->addWidget(newButton(row));

    grid->addWidget(Picture25, 0, 0, Qt::AlignCenter);
    grid->addLayout(tools, 0, 1);
    grid->addWidget(newFrame("Frame3", "Title", Text2), 1, 0, 1, 2);
    grid->addWidget(newFrame("Frame2", "ASCII String", Text3), 2, 0, 1, 2);
    grid->addLayout(list, 3, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(0, 1);
    return page;
}

QLayout *SymbolFrm::buildClosingButtons() {
    auto *row = new QHBoxLayout;
    row->addWidget(newButton({"Command4", "&Insert", "", "insert", &SymbolFrm::insert}));
    row->addStretch();
    row->addWidget(newButton({"Command18", "OK", "", nullptr, &SymbolFrm::saveAndClose}));
    row->addWidget(newButton({"Command3", "Cancel", "", nullptr, &SymbolFrm::cancel}));
    return row;
}

void SymbolFrm::buildPopUp() {
    MnuPopUpSymbol = buildMenus(
                         popUpTable(), [this] { return QList<QObject *>{this}; }, this)
                         .first();
    connect(List1, &QWidget::customContextMenuRequested, this,
            [this](QPoint place) { MnuPopUpSymbol->popup(List1->viewport()->mapToGlobal(place)); });
    const auto onList = [this](Qt::Key key, void (SymbolFrm::*command)()) {
        auto *action = new QAction(List1);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, command);
        List1->addAction(action);
    };
    onList(Qt::Key_Delete, &SymbolFrm::removeSymbol);
}

void SymbolFrm::showPage(Page page) {
    SSTab1->setCurrentIndex(page);
    if (page == ListPage)
        List1->setFocus();
    else
        Picture25->setFocus();
}

void SymbolFrm::followPage() {
    SimboloSeleccionado = selectedSymbol();
    const bool listed = SSTab1->currentIndex() == ListPage;
    findChild<QPushButton *>(listed ? QStringLiteral("Command4") : QStringLiteral("Command1"))
        ->setDefault(true);
}

} // namespace zolt
