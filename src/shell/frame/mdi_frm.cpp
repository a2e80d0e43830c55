#include "shell/frame/mdi_frm.h"

#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/pane.h"
#include "platform/svg_icon.h"
#include "shell/base/document_in_use.h"
#include "shell/base/document_keeper.h"
#include "shell/base/shared_values.h"
#include "shell/exports/edit_text_export_pdf_frm.h"
#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "shell/frame/mdi_frm_tables.h"
#include "shell/pictures/edit_graph_insert_grob_frm.h"
#include "shell/pictures/edit_graph_insert_image_frm.h"
#include "shell/pictures/edit_graph_insert_velda_frm.h"
#include "shell/pictures/edit_text_conv_img_frm.h"
#include "shell/pictures/edit_text_insert_grob_frm.h"
#include "shell/pictures/edit_text_insert_image_frm.h"
#include "shell/pictures/edit_text_insert_velda_frm.h"
#include "shell/preview/edit_graph_preview_frm.h"
#include "shell/preview/edit_text_preview_frm.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "shell/preview/wait_frm.h"
#include "shell/symbols/symbol_frm.h"
#include "shell/tools/about_frm.h"
#include "shell/tools/caracter_table_frm.h"
#include "shell/tools/caracter_toolbar_frm.h"
#include "shell/tools/date_time_frm.h"
#include "shell/tools/edit_page_setup_frm.h"
#include "shell/tools/edit_text_find_frm.h"
#include "shell/tools/edit_text_options_frm.h"
#include "shell/tools/edit_text_word_count_frm.h"
#include "shell/tools/file_ass_frm.h"
#include "shell/tools/mensagem_frm.h"
#include "shell/tools/question_frm.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>

namespace zolt {

namespace {

/// A list of the toolbar, which gives the keyboard back to the document once it was
/// used or left.
class ToolbarList : public QComboBox {
public:
    using QComboBox::QComboBox;

    void hidePopup() override {
        const bool wasOpen = view()->isVisible();
        QComboBox::hidePopup();
        if (wasOpen)
            leave();
    }

protected:
    void keyPressEvent(QKeyEvent *event) override {
        if (event->key() == Qt::Key_Escape)
            leave();
        else
            QComboBox::keyPressEvent(event);
    }

private:
    static void leave() {
        if (Pane *pane = activePane())
            pane->takeFocus();
    }
};

} // namespace

MDIFrm::MDIFrm(QWidget *owner) : QMainWindow(owner), m_area(new QMdiArea(this)) {
    setMainFrame(this);
    setWindowTitle(QStringLiteral("ZOLT"));
    connect(this, &QWidget::windowTitleChanged, this, &MDIFrm::showTitle, Qt::QueuedConnection);
    setWindowIcon(svgIcon(QStringLiteral("zolt")));
    m_area->setObjectName(QStringLiteral("MdiArea"));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    buildQuickBar();
    buildLivePreview();
    buildToolbars();
    m_ownMenus = buildMenus(
        frameMenuTable(), [this] { return QList<QObject *>{this}; }, this);
    listRecentFiles(m_ownMenus);
    showMenus({});
    setAcceptDrops(true);
    auto *next = new QShortcut(Qt::Key_F3, this);
    next->setContext(Qt::ApplicationShortcut);
    connect(next, &QShortcut::activated, this, &MDIFrm::findNext);
    placeAtStart();
}

MDIFrm::~MDIFrm() {
    setMainFrame(nullptr);
}

void MDIFrm::buildToolbars() {
    for (int number = 1; number <= 5; ++number) {
        auto *bar = addToolBar(QString());
        bar->setObjectName(QStringLiteral("Toolbar%1").arg(number));
        bar->setIconSize(QSize(20, 20));
        bar->setMovable(false);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        m_toolbars << bar;
    }
    for (const int format : {3, 5})
        insertToolBarBreak(toolbar(format));
    buildToolBar(toolbar(1), frameToolbarTable(), [this] { return QList<QObject *>{this}; });
    buildCombos();
    for (const int standard : {2, 4})
        showDocumentToolbars(standard, false, false);
}

void MDIFrm::fillToolbar(int number, const QList<ToolRow> &rows) {
    buildToolBar(toolbar(number), rows, [this] {
        DocumentInUse *document = documentInUse();
        return document ? QList<QObject *>{&document->window(), this} : QList<QObject *>{this};
    });
}

void MDIFrm::buildCombos() {
    Combo1 = addCombo(3, "Combo1", "Font name");
    Combo1->addItems(QFontDatabase::families());
    Combo1->setMaximumWidth(200);
    Combo2 = addCombo(3, "Combo2", "Font size");
    Combo3 = addCombo(5, "Combo3", "Font size");
    for (const int number : {3, 5})
        toolbar(number)->addSeparator();
    const auto tellDocument = [] {
        if (DocumentInUse *document = documentInUse())
            document->fontChosen();
    };
    connect(Combo1, &QComboBox::textActivated, this, [tellDocument](const QString &name) {
        shared::settings.TFntName = name.toStdString();
        tellDocument();
    });
    for (QComboBox *sizes : {Combo2, Combo3}) {
        for (const int size : kFontSizes)
            sizes->addItem(QString::number(size));
        connect(sizes, &QComboBox::textActivated, this, [tellDocument](const QString &size) {
            shared::settings.TFntSize = static_cast<std::int16_t>(size.toInt());
            tellDocument();
        });
    }
}

QComboBox *MDIFrm::addCombo(int toolbarNumber, const char *name, const char *toolTip) {
    auto *combo = new ToolbarList(this);
    combo->setObjectName(QString::fromUtf8(name));
    combo->setToolTip(QString::fromUtf8(toolTip));
    combo->setFocusPolicy(Qt::ClickFocus);
    toolbar(toolbarNumber)->addWidget(combo);
    return combo;
}

void MDIFrm::takeFocusBack() {
    activateWindow();
    if (Pane *pane = activePane())
        pane->takeFocus();
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
    checkLivePreview();
}

QToolBar *MDIFrm::toolbar(int number) const {
    return m_toolbars[number - 1];
}

void MDIFrm::showDocumentToolbars(int standardNumber, bool standard, bool format) {
    toolbar(standardNumber)->setVisible(standard);
    toolbar(standardNumber + 1)->setVisible(format);
}

void MDIFrm::showFont(const QString &name, int points) {
    Combo1->setCurrentIndex(Combo1->findText(name));
    for (QComboBox *sizes : {Combo2, Combo3})
        sizes->setCurrentIndex(sizes->findText(QString::number(points)));
}

void MDIFrm::MostrarQuestionFrm() {
    connect(&showWindow<QuestionFrm>(), &QuestionFrm::chosen, this, &MDIFrm::editionChosen,
            Qt::UniqueConnection);
}
void MDIFrm::MostrarMensagemFrm() {
    connect(&showWindow<MensagemFrm>(), &MensagemFrm::chosen, this, &MDIFrm::editionOfFileChosen,
            Qt::UniqueConnection);
}
void MDIFrm::MostrarSymbolFrm() {
    showWindow<SymbolFrm>();
}
void MDIFrm::MostrarEditTextExportPDFFrm() {
    showWindow<EditTextExportPDFFrm>();
}
void MDIFrm::MostrarEditTextGuardarHPFrm() {
    showWindow<EditTextGuardarHPFrm>();
}
template <class Window> void MDIFrm::showPreview() {
    unload<Window>();
    if (load<Window>(this).compile()) {
        showWindow<Window>();
        return;
    }
    shared::CancelarOperação = 0;
    unload<Window>();
}

void MDIFrm::MostrarWaitFrm() {
    showWindow<WaitFrm>();
}
void MDIFrm::MostrarEditTextPreviewFrm() {
    showPreview<EditTextPreviewFrm>();
}
void MDIFrm::MostrarEditTextPreviewNormalFrm() {
    showPreview<EditTextPreviewNormalFrm>();
}
void MDIFrm::MostrarEditGraphPreviewFrm() {
    unload<EditGraphPreviewFrm>();
    showWindow<EditGraphPreviewFrm>();
}
void MDIFrm::showKept(RecoverFrm::What what, std::vector<KeptDocuments::Entry> entries) {
    RecoverFrm &window = showWindow<RecoverFrm>();
    window.list(what, std::move(entries));
    connect(&window, &RecoverFrm::chosen, this, &MDIFrm::keptDocumentChosen, Qt::UniqueConnection);
}
void MDIFrm::MostrarRecoverFrm() {
    showKept(RecoverFrm::ThrownAway, documentKeeper()->thrownAway());
}
void MDIFrm::MostrarAboutFrm() {
    showWindow<AboutFrm>();
}
void MDIFrm::MostrarEditTextConvImgFrm() {
    showWindow<EditTextConvImgFrm>();
}
void MDIFrm::MostrarEditTextInsertImageFrm() {
    showInsertFrm<EditTextInsertImageFrm>();
}
void MDIFrm::MostrarEditTextInsertGrobFrm() {
    showInsertFrm<EditTextInsertGrobFrm>();
}
void MDIFrm::MostrarEditTextInsertVeldaFrm() {
    showInsertFrm<EditTextInsertVeldaFrm>();
}
void MDIFrm::MostrarEditGraphInsertImageFrm() {
    showInsertFrm<EditGraphInsertImageFrm>();
}
void MDIFrm::MostrarEditGraphInsertGrobFrm() {
    showInsertFrm<EditGraphInsertGrobFrm>();
}
void MDIFrm::MostrarEditGraphInsertVeldaFrm() {
    showInsertFrm<EditGraphInsertVeldaFrm>();
}

void MDIFrm::MostrarCaracterTableFrm() {
    showWindow<CaracterTableFrm>();
}
void MDIFrm::MostrarDateTimeFrm() {
    showWindow<DateTimeFrm>();
}
void MDIFrm::MostrarEditPageSetupFrm() {
    showWindow<EditPageSetupFrm>();
}
void MDIFrm::MostrarEditTextFindFrm() {
    showWindow<EditTextFindFrm>();
}
void MDIFrm::MostrarEditTextOptionsFrm() {
    showWindow<EditTextOptionsFrm>();
}
void MDIFrm::MostrarFileAssFrm() {
    showWindow<FileAssFrm>();
}

void MDIFrm::findNext() {
    if (!documentInUse())
        return;
    if (!loaded<EditTextFindFrm>() && !shared::lastSearch.empty())
        showBeside<EditTextFindFrm>();
    if (auto *window = loaded<EditTextFindFrm>(); window && window->isVisible() && window->hasText())
        return window->findNext();
    MostrarEditTextFindFrm();
    loaded<EditTextFindFrm>()->focusFindBox();
}

void MDIFrm::MostrarEditTextWordCountFrm() {
    showWindow<EditTextWordCountFrm>().countDocument();
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

// The item is one of the document windows' menus, and follows the frame when a new one
// comes.
void MDIFrm::MnuVerSemprenotopo() {
    setWindowFlag(Qt::WindowStaysOnTopHint, !windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    show();
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

} // namespace zolt
