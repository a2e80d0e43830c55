#include "shell/document/text/edit_text_frm.h"

#include "platform/colours.h"
#include "platform/desktop.h"
#include "platform/fonts.h"
#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/document/text/edit_text_frm_tables.h"
#include "shell/exports/edit_text_guardar_hp_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/tools/caracter_table_frm.h"

#include <QAction>
#include <QApplication>
#include <QDate>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace zolt {

namespace {

/// How long the keys rest before the document is compared with the saved text, in
/// milliseconds.
constexpr int kComparisonDelay = 300;

} // namespace

EditTextFrm::EditTextFrm(QWidget *frame)
    : QMdiSubWindow(frame), m_frame(qobject_cast<MDIFrm *>(frame)), m_panes{}, m_panels{} {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(QIcon(QStringLiteral(":/icons/edition-text.svg")));
    setCaption(QStringLiteral("Document1"));
    m_frame->showFont(QString::fromStdString(shared::settings.TFntName), shared::settings.TFntSize);
    shared::EdiçãoActiva = 1;

    m_comparison = new QTimer(this);
    m_comparison->setSingleShot(true);
    m_comparison->setInterval(kComparisonDelay);
    connect(m_comparison, &QTimer::timeout, this, [this] { showWouldAsk(documentChanged()); });

    buildPanes();
    buildStatusBar();
    const Receiver self = [this] { return this; };
    m_menus = buildMenus(textMenuTable(), self, this);
    MnuPopUp = buildMenus(textPopUpTable(), self, this).first();
    m_frame->toolbar(1)->hide();
    m_frame->showTextToolbars(true, true);
    m_frame->showMenus(m_menus);
    for (QMenu *menu : m_menus)
        if (menu->objectName() == QStringLiteral("MnuJanela"))
            m_frame->listChildWindows(menu);
    m_frame->applyCharTool();
    if (shared::settings.ChrTbExi == 1)
        load<CaracterTableFrm>(m_frame).showBesideDocument();
    gatherEditActions();

    applyPaneFont();
    applyPaneColours();
    showActivePane();
    shared::TextoGuardado.clear();
    documentBegins();
    updateStatus();
    updateClock();
    updateEditActions();
    followLockKeys(nullptr);
    qApp->installEventFilter(this);
}

void EditTextFrm::buildPanes() {
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (int number = 1; number <= 2; ++number) {
        auto *pane = new TextPane(number == 1, content);
        pane->setObjectName(QStringLiteral("Text%1").arg(number));
        pane->setFrameShape(QFrame::NoFrame);
        followPane(pane);
        column->addWidget(pane);
        m_panes[static_cast<std::size_t>(number - 1)] = pane;
    }
    StatusBar1 = new QStatusBar(content);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(false);
    column->addWidget(StatusBar1);
    setWidget(content);
    setWindowIcon(QIcon(QStringLiteral(":/icons/edition-text.svg")));
}

void EditTextFrm::followPane(TextPane *pane) {
    connect(pane, &TextPane::Change, this, &EditTextFrm::updateStatus);
    connect(pane, &TextPane::Change, this, &EditTextFrm::followChange);
    connect(pane, &TextPane::Change, this, &EditTextFrm::updateEditActions);
    connect(pane, &TextPane::selectionChanged, this, &EditTextFrm::updateEditActions);
    connect(pane, &TextPane::keyDown, this, &EditTextFrm::updateStatus);
    connect(pane, &TextPane::keyDown, this, [this] { say({}); });
    connect(pane, &TextPane::keyUp, this, &EditTextFrm::updateStatus);
    for (const auto key : {&TextPane::keyDown, &TextPane::keyUp})
        connect(pane, key, this, &EditTextFrm::followKeyCaret);
    connect(pane, &TextPane::mouseUp, this, &EditTextFrm::updateStatus);
    connect(pane, &TextPane::click, this,
            [pane] { shared::PosiçãoCursor = static_cast<std::int32_t>(pane->SelStart()); });
    connect(pane, &TextPane::mouseDown, this, [this](Qt::MouseButton button) {
        updateStatus();
        if (button == Qt::RightButton && MnuPopUp->isEnabled())
            MnuPopUp->popup(QCursor::pos());
    });
}

TextPane &EditTextFrm::activePane() const {
    return pane(shared::settings.TxtWWrap == 2 ? 2 : 1);
}

void EditTextFrm::setCaption(const QString &caption) {
    m_caption = caption;
    // "[*]" in a window title is Qt's mark of change; doubled, it stands for itself.
    setWindowTitle(QString(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void EditTextFrm::setCaption(const std::string &fileTitle) {
    setCaption(fromFileName(fileTitle));
}

QFont EditTextFrm::fontOfSettings() {
    const Settings &settings = shared::settings;
    QFont font = zoltFont(QString::fromStdString(settings.TFntName), settings.TFntSize);
    font.setBold(isTrue(settings.TFntBold));
    font.setItalic(isTrue(settings.TFntItal));
    font.setUnderline(isTrue(settings.TFntUndl));
    font.setStrikeOut(isTrue(settings.TFntStrT));
    return font;
}

void EditTextFrm::applyPaneFont() {
    for (TextPane *pane : m_panes)
        pane->setPaneFont(fontOfSettings());
    updateStatus();
}

void EditTextFrm::applyPaneColours() {
    const Colour background = colourFromSetting(shared::settings.TFntBckC);
    const QColor text = textColourOn(colourFromSetting(shared::settings.TFntColr), background);
    for (TextPane *pane : m_panes)
        pane->setColours(text, qtColour(background, QPalette::Base));
}

void EditTextFrm::showActivePane() {
    const bool wraps = &activePane() == &pane(1);
    pane(1).setVisible(wraps);
    pane(2).setVisible(!wraps);
    widget()->setFocusProxy(&activePane());
    activePane().setFocus();
    menuItem("MnuEditarTranslinearpalavras")->setChecked(wraps);
    m_frame->toolbar(2)->findChild<QAction *>(QStringLiteral("Translinear palavras"))->setChecked(wraps);
}

QAction *EditTextFrm::menuItem(const char *name) const {
    return zolt::menuItem(m_menus, name);
}

void EditTextFrm::MnuVerBarradeestado() {
    StatusBar1->setVisible(menuItem("MnuVerBarradeestado")->isChecked());
}

void EditTextFrm::toggleTextToolbars() {
    m_frame->showTextToolbars(menuItem("MnuVerBarrasdeferramentasPadrão")->isChecked(),
                              menuItem("MnuVerBarrasdeferramentasFormatação")->isChecked());
}

void EditTextFrm::MnuVerBarrasdeferramentasPadrão() {
    toggleTextToolbars();
}
void EditTextFrm::MnuVerBarrasdeferramentasFormatação() {
    toggleTextToolbars();
}

void EditTextFrm::MnuVerSemprenotopo() {
    m_frame->setWindowFlag(Qt::WindowStaysOnTopHint, menuItem("MnuVerSemprenotopo")->isChecked());
    m_frame->show();
}

void EditTextFrm::TesteDeIntegridade() {
    load<EditTextGuardarHPFrm>(m_frame).testDocument();
}

void EditTextFrm::TileVertically() {
    m_frame->TileVertically();
}
void EditTextFrm::TileHorizontally() {
    m_frame->TileHorizontally();
}
void EditTextFrm::Cascade() {
    m_frame->Cascade();
}
void EditTextFrm::MinimizeAll() {
    m_frame->MinimizeAll();
}
void EditTextFrm::RestoreAll() {
    m_frame->RestoreAll();
}
void EditTextFrm::CloseAll() {
    m_frame->CloseAll();
}
void EditTextFrm::MnuAjudadozolt() {
    m_frame->MnuAjudadozolt();
}
void EditTextFrm::MnuAcercadozolt() {
    m_frame->MnuAjudaAcercadoZOLT();
}

} // namespace zolt
