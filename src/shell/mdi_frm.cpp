#include "shell/mdi_frm.h"

#include "core/settings.h"
#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/about_frm.h"
#include "shell/caracter_table_frm.h"
#include "shell/caracter_toolbar_frm.h"
#include "shell/date_time_frm.h"
#include "shell/edit_text_conv_img_frm.h"
#include "shell/edit_text_export_pdf_frm.h"
#include "shell/edit_text_find_frm.h"
#include "shell/edit_text_frm.h"
#include "shell/edit_text_frm_tables.h"
#include "shell/edit_text_guardar_hp_frm.h"
#include "shell/edit_text_insert_grob_frm.h"
#include "shell/edit_text_insert_image_frm.h"
#include "shell/edit_text_insert_velda_frm.h"
#include "shell/edit_text_preview_frm.h"
#include "shell/edit_text_preview_normal_frm.h"
#include "shell/edit_text_word_count_frm.h"
#include "shell/mdi_frm_tables.h"
#include "shell/mensagem_frm.h"
#include "shell/question_frm.h"
#include "shell/shared_values.h"
#include "shell/symbol_frm.h"
#include "shell/wait_frm.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QIcon>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace zolt {

MDIFrm::MDIFrm(QWidget *owner) : QMainWindow(owner), m_area(new QMdiArea(this)) {
    setWindowTitle(QStringLiteral("ZOLT"));
    connect(this, &QWidget::windowTitleChanged, this, &MDIFrm::showTitle, Qt::QueuedConnection);
    setWindowIcon(QIcon(QStringLiteral(":/icons/zolt.svg")));
    m_area->setObjectName(QStringLiteral("MdiArea"));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    buildQuickBar();
    buildToolbars();
    m_ownMenus = buildMenus(
        frameMenuTable(), [this] { return this; }, this);
    showMenus({});
    resize(1000, 700);
}

void MDIFrm::buildToolbars() {
    for (int number = 1; number <= 3; ++number) {
        auto *bar = addToolBar(QString());
        bar->setObjectName(QStringLiteral("Toolbar%1").arg(number));
        bar->setIconSize(QSize(20, 20));
        bar->setMovable(false);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        m_toolbars << bar;
    }
    insertToolBarBreak(toolbar(3));
    const Receiver textWindow = [] { return loaded<EditTextFrm>(); };
    buildToolBar(toolbar(1), frameToolbarTable(), [this] { return this; });
    buildToolBar(toolbar(2), textStandardToolbarTable(), textWindow);
    buildCombos();
    buildToolBar(toolbar(3), textFormatToolbarTable(), textWindow);
    showTextToolbars(false, false);
}

void MDIFrm::buildCombos() {
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setToolTip(QStringLiteral("Font name"));
    Combo1->addItems(QFontDatabase::families());
    Combo1->setMaximumWidth(200);
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setToolTip(QStringLiteral("Font size"));
    for (const int size : kFontSizes)
        Combo2->addItem(QString::number(size));
    for (QComboBox *combo : {Combo1, Combo2}) {
        combo->setEditable(false);
        combo->setFocusPolicy(Qt::ClickFocus);
        toolbar(3)->addWidget(combo);
    }
    toolbar(3)->addSeparator();
    connect(Combo1, &QComboBox::textActivated, this, [](const QString &name) {
        shared::settings.TFntName = name.toStdString();
        if (auto *window = loaded<EditTextFrm>())
            window->applyPaneFont();
    });
    connect(Combo2, &QComboBox::textActivated, this, [](const QString &size) {
        shared::settings.TFntSize = static_cast<std::int16_t>(size.toInt());
        if (auto *window = loaded<EditTextFrm>())
            window->applyPaneFont();
    });
}

void MDIFrm::adopt(QWidget *documentWindow) {
    auto *child = qobject_cast<QMdiSubWindow *>(documentWindow);
    m_area->addSubWindow(child);
    connect(child, &QWidget::windowTitleChanged, this, &MDIFrm::showTitle, Qt::QueuedConnection);
}

void MDIFrm::showTitle() {
    // Qt joins a maximised child's title to the frame's, but keeps the child's first
    // one when that changes.
    const QMdiSubWindow *child = m_area->currentSubWindow();
    const QString own = QStringLiteral("ZOLT");
    const QString title = child && child->isMaximized() && child->isVisible()
                              ? QStringLiteral("%1 - [%2]").arg(own, child->windowTitle())
                              : own;
    if (windowTitle() != title)
        setWindowTitle(title);
}

void MDIFrm::listChildWindows(QMenu *menu) {
    auto *children = new QActionGroup(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, children] {
        qDeleteAll(children->actions());
        for (QMdiSubWindow *child : m_area->subWindowList()) {
            QAction *action = menu->addAction(child->windowTitle(), child, [child] { child->setFocus(); });
            action->setCheckable(true);
            action->setChecked(child == m_area->activeSubWindow());
            children->addAction(action);
        }
    });
}

void MDIFrm::takeFocusBack() {
    activateWindow();
    if (const auto *document = loaded<EditTextFrm>())
        document->activePane().setFocus();
    else
        setFocus();
}

void MDIFrm::showMenus(const QList<QMenu *> &menus) {
    menuBar()->clear();
    for (QMenu *menu : menus.isEmpty() ? m_ownMenus : menus)
        menuBar()->addMenu(menu);
    // Only the menus that show may answer to their keys.
    for (QMenu *menu : m_ownMenus)
        for (QAction *action : menu->actions())
            action->setShortcutContext(menus.isEmpty() ? Qt::WindowShortcut : Qt::WidgetShortcut);
}

QToolBar *MDIFrm::toolbar(int number) const {
    return m_toolbars[number - 1];
}

void MDIFrm::showTextToolbars(bool standard, bool format) {
    toolbar(2)->setVisible(standard);
    toolbar(3)->setVisible(format);
}

void MDIFrm::showFont(const QString &name, int points) {
    Combo1->setCurrentIndex(Combo1->findText(name));
    Combo2->setCurrentIndex(Combo2->findText(QString::number(points)));
}

void MDIFrm::MostrarQuestionFrm() {
    mostrar<QuestionFrm>();
}
void MDIFrm::MostrarMensagemFrm() {
    mostrar<MensagemFrm>();
}
void MDIFrm::MostrarSymbolFrm() {
    mostrar<SymbolFrm>();
}
void MDIFrm::MostrarEditTextExportPDFFrm() {
    mostrar<EditTextExportPDFFrm>();
}
void MDIFrm::MostrarEditTextGuardarHPFrm() {
    mostrar<EditTextGuardarHPFrm>();
}
template <class Window> void MDIFrm::mostrarPreview() {
    unload<Window>();
    if (load<Window>(this).compile()) {
        mostrar<Window>();
        return;
    }
    shared::CancelarOperação = 0;
    unload<Window>();
}

void MDIFrm::MostrarWaitFrm() {
    mostrar<WaitFrm>();
}
void MDIFrm::MostrarEditTextPreviewFrm() {
    mostrarPreview<EditTextPreviewFrm>();
}
void MDIFrm::MostrarEditTextPreviewNormalFrm() {
    mostrarPreview<EditTextPreviewNormalFrm>();
}
void MDIFrm::MostrarAboutFrm() {
    mostrar<AboutFrm>();
}
void MDIFrm::MostrarEditTextConvImgFrm() {
    mostrar<EditTextConvImgFrm>();
}
void MDIFrm::MostrarEditTextInsertImageFrm() {
    mostrarInsertFrm<EditTextInsertImageFrm>();
}
void MDIFrm::MostrarEditTextInsertGrobFrm() {
    mostrarInsertFrm<EditTextInsertGrobFrm>();
}
void MDIFrm::MostrarEditTextInsertVeldaFrm() {
    mostrarInsertFrm<EditTextInsertVeldaFrm>();
}

void MDIFrm::MostrarCaracterTableFrm() {
    mostrar<CaracterTableFrm>();
}
void MDIFrm::MostrarDateTimeFrm() {
    mostrar<DateTimeFrm>();
}
void MDIFrm::MostrarEditTextFindFrm() {
    mostrar<EditTextFindFrm>();
}
void MDIFrm::MostrarEditTextWordCountFrm() {
    mostrar<EditTextWordCountFrm>().countDocument();
}

// Alone among the windows it leaves the focus where it is.
void MDIFrm::MostrarCaracterToolbar() {
    load<CaracterToolbarFrm>(this).show();
}

void MDIFrm::MnuFicheiroNovo() {
    MostrarQuestionFrm();
}
void MDIFrm::MnuFicheiroSair() {
    close();
}
void MDIFrm::MnuAjudaAcercadoZOLT() {
    MostrarAboutFrm();
}

void MDIFrm::MnuVerBarradeferramentas() {
    toolbar(1)->setVisible(menuItem(m_ownMenus, "MnuVerBarradeferramentas")->isChecked());
}

void MDIFrm::checkOwnToolbar() {
    menuItem(m_ownMenus, "MnuVerBarradeferramentas")->setChecked(true);
}

void MDIFrm::MnuAjudadozolt() {
    for (const char *name : {"/ZOLT.chm", "/ZOLT.html"}) {
        const std::string help = shared::programFolder + name;
        if (QFile::exists(fromFileName(help)) && openInDesktop(help))
            return;
    }
    showMessage(this, QStringLiteral("The help can't be opened: no program on this desktop shows it, or "
                                     "its file is missing from\r\n%1.")
                          .arg(fromFileName(shared::programFolder)));
}

void MDIFrm::tile(Qt::Orientation orientation) {
    QList<QMdiSubWindow *> children;
    for (QMdiSubWindow *child : m_area->subWindowList())
        if (child->isVisible() && !child->isMinimized())
            children << child;
    const QRect whole = m_area->viewport()->rect();
    for (qsizetype i = 0; i < children.size(); ++i) {
        const auto part = [&](int length) { return static_cast<int>(length * i / children.size()); };
        const auto size = [&](int length) { return length / static_cast<int>(children.size()); };
        children[i]->showNormal();
        children[i]->setGeometry(orientation == Qt::Horizontal
                                     ? QRect(part(whole.width()), 0, size(whole.width()), whole.height())
                                     : QRect(0, part(whole.height()), whole.width(), size(whole.height())));
    }
}

void MDIFrm::TileVertically() {
    tile(Qt::Horizontal);
}
void MDIFrm::TileHorizontally() {
    tile(Qt::Vertical);
}
void MDIFrm::Cascade() {
    m_area->cascadeSubWindows();
}

void MDIFrm::MinimizeAll() {
    for (QMdiSubWindow *child : m_area->subWindowList())
        child->showMinimized();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this && window->isVisible() && window->isWindow() && !qobject_cast<QMenu *>(window))
            window->showMinimized();
}

void MDIFrm::RestoreAll() {
    for (QMdiSubWindow *child : m_area->subWindowList())
        child->showNormal();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this && window->isMinimized())
            window->showNormal();
}

void MDIFrm::CloseAll() {
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this && window->isVisible() && !qobject_cast<QMenu *>(window))
            window->close();
    m_area->closeAllSubWindows();
}

void MDIFrm::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::EnabledChange || isEnabled())
        return;
    // A disabled frame means the frame alone, not the windows that stand before it.
    for (QObject *child : children())
        if (auto *window = qobject_cast<QWidget *>(child); window && window->isWindow())
            window->setEnabled(true);
}

void MDIFrm::closeEvent(QCloseEvent *event) {
    for (QMdiSubWindow *child : m_area->subWindowList())
        if (!child->close()) {
            event->ignore();
            return;
        }
    // A failure is silent: the settings of the last run then stand.
    writeSettings(shared::programFolder + "/ZOLT.ini", shared::settings);
    event->accept();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this)
            window->hide();
    emit ended();
}

} // namespace zolt
