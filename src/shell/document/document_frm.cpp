#include "shell/document/document_frm.h"

#include "core/styles.h"
#include "platform/colours.h"
#include "platform/desktop.h"
#include "platform/pane.h"
#include "platform/svg_icon.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/shared_values.h"
#include "shell/frame/mdi_frm.h"
#include "shell/tools/caracter_table_frm.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace zolt {

namespace {

/// How long the keys rest before the document is compared with the saved one, in
/// milliseconds.
constexpr int kComparisonDelay = 300;

} // namespace

DocumentFrm::DocumentFrm(const Edition &edition, QWidget *frame)
    : QMdiSubWindow(frame), m_edition(edition), m_frame(qobject_cast<MDIFrm *>(frame)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(svgIcon(QString::fromUtf8(edition.icon)));
    setCaption(QStringLiteral("Document1"));
    m_frame->showFont(QString::fromStdString(shared::settings.TFntName), shared::settings.TFntSize);
    shared::EdiçãoActiva = edition.number;
    setDocumentInUse(this);
    keepAgain();

    m_comparison = new QTimer(this);
    m_comparison->setSingleShot(true);
    m_comparison->setInterval(kComparisonDelay);
    connect(m_comparison, &QTimer::timeout, this, [this] { showWouldAsk(documentChanged()); });
    buildPanes();
    buildStatusBar();
    const Receivers receivers = [this] { return QList<QObject *>{this, m_frame}; };
    m_menus = buildMenus(edition.menus(), receivers, this);
    MnuPopUp = buildMenus(edition.popUp(), receivers, this).first();
}

DocumentFrm::~DocumentFrm() {
    if (documentInUse() == this)
        setDocumentInUse(nullptr);
}

void DocumentFrm::keepAgain() {
    if (DocumentKeeper *keeper = documentKeeper())
        keeper->follow([this] { return snapshotOf(activePane()); });
}

void DocumentFrm::begin() {
    m_frame->toolbar(1)->hide();
    m_frame->showDocumentToolbars(m_edition.standardToolbar, true, true);
    m_frame->showMenus(m_menus);
    for (QMenu *menu : m_menus)
        if (menu->objectName() == QStringLiteral("MnuJanela"))
            m_frame->listChildWindows(menu);
    m_frame->listRecentFiles(m_menus);
    menuItem("MnuVerSemprenotopo")->setChecked(m_frame->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    m_frame->applyCharTool();
    if (shared::settings.ChrTbExi == 1)
        load<CaracterTableFrm>(m_frame).showBesideDocument();
    gatherEditActions();

    applySettings();
    showActivePane();
    shared::TextoGuardado.clear();
    documentBegins();
    updateStatus();
    updateClock();
    updateEditActions();
    followLockKeys(nullptr);
    qApp->installEventFilter(this);
}

void DocumentFrm::buildPanes() {
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (int number = 1; number <= 2; ++number) {
        Pane *pane = m_edition.newPane(number == 1, content);
        pane->control().setObjectName(QStringLiteral("Text%1").arg(number));
        pane->control().setFrameShape(QFrame::NoFrame);
        followPane(*pane);
        column->addWidget(&pane->control());
        m_panes[static_cast<std::size_t>(number - 1)] = pane;
    }
    StatusBar1 = new QStatusBar(content);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(false);
    column->addWidget(StatusBar1);
    setWidget(content);
    setWindowIcon(svgIcon(QString::fromUtf8(m_edition.icon)));
}

void DocumentFrm::followPane(Pane &pane) {
    PaneEvents *events = &pane.events();
    connect(events, &PaneEvents::Change, this, &DocumentFrm::updateStatus);
    connect(events, &PaneEvents::Change, this, &DocumentFrm::followChange);
    connect(events, &PaneEvents::Change, this, &DocumentFrm::updateEditActions);
    connect(events, &PaneEvents::selectionMoved, this, &DocumentFrm::updateEditActions);
    connect(events, &PaneEvents::keyDown, this, [this] { say({}); });
    for (const auto event : {&PaneEvents::keyDown, &PaneEvents::keyUp}) {
        connect(events, event, this, &DocumentFrm::updateStatus);
        connect(events, event, this, &DocumentFrm::followKeyCaret);
    }
    connect(events, &PaneEvents::mouseUp, this, &DocumentFrm::updateStatus);
    connect(events, &PaneEvents::click, this,
            [&pane] { shared::PosiçãoCursor = static_cast<std::int32_t>(pane.SelStart()); });
    connect(events, &PaneEvents::mouseDown, this, [this](Qt::MouseButton button) {
        updateStatus();
        if (button == Qt::RightButton && MnuPopUp->isEnabled())
            MnuPopUp->popup(QCursor::pos());
    });
}

Pane &DocumentFrm::activePane() const {
    return pane(shared::settings.TxtWWrap == 2 ? 2 : 1);
}

Pane &DocumentFrm::hiddenPane() const {
    return pane(&activePane() == &pane(1) ? 2 : 1);
}

void DocumentFrm::setCaption(const QString &caption) {
    m_caption = caption;
    // "[*]" in a window title is Qt's mark of change; doubled, it stands for itself.
    setWindowTitle(QString(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void DocumentFrm::setCaption(const std::string &fileTitle) {
    setCaption(fromFileName(fileTitle));
}

void DocumentFrm::showActivePane() {
    const bool wraps = &activePane() == &pane(1);
    pane(1).control().setVisible(wraps);
    pane(2).control().setVisible(!wraps);
    widget()->setFocusProxy(&activePane().control());
    activePane().takeFocus();
    menuItem("MnuEditarTranslinearpalavras")->setChecked(wraps);
    m_frame->toolbar(m_edition.standardToolbar)
        ->findChild<QAction *>(QStringLiteral("Translinear palavras"))
        ->setChecked(wraps);
    emit documentInUseEvents().paneChanged();
}

QAction *DocumentFrm::menuItem(const char *name) const {
    return zolt::menuItem(m_menus, name);
}

void DocumentFrm::setCommandsEnabled(bool enabled) {
    for (const int number : {m_edition.standardToolbar, m_edition.formatToolbar})
        m_frame->toolbar(number)->setEnabled(enabled);
    for (QMenu *menu : m_menus)
        menu->menuAction()->setEnabled(enabled);
    MnuPopUp->setEnabled(enabled);
}

void DocumentFrm::MnuVerBarradeestado() {
    StatusBar1->setVisible(menuItem("MnuVerBarradeestado")->isChecked());
}

void DocumentFrm::toggleToolbars() {
    m_frame->showDocumentToolbars(m_edition.standardToolbar,
                                  menuItem("MnuVerBarrasdeferramentasPadrão")->isChecked(),
                                  menuItem("MnuVerBarrasdeferramentasFormatação")->isChecked());
}

void DocumentFrm::MnuVerBarrasdeferramentasPadrão() {
    toggleToolbars();
}
void DocumentFrm::MnuVerBarrasdeferramentasFormatação() {
    toggleToolbars();
}

void DocumentFrm::MnuInserirLinhahorizontal() {
    activePane().setSelText(horizontalLine());
}

void DocumentFrm::MnuFormatarMaiusculasminusculasMai() {
    changeCase(CaseCommand::Capitals);
}
void DocumentFrm::MnuFormatarMaiusculasminusculasMin() {
    changeCase(CaseCommand::SmallLetters);
}
void DocumentFrm::MnuFormatarMaiusculasminusculasInverter() {
    changeCase(CaseCommand::Invert);
}
void DocumentFrm::MnuFormatarMaiusculasminusculasRetAcent() {
    changeCase(CaseCommand::RemoveAccents);
}

bool DocumentFrm::chooseColour(std::string Settings::*setting, const QColor &shown) {
    CommonDialog &dialog = commonDialog(DialogFrm::ColourAndFont);
    dialog.Color = colourValue(shown);
    if (dialog.ShowColor(this) != kDialogDone)
        return false;
    shared::settings.*setting = settingFromColour(dialog.Color);
    return true;
}

void DocumentFrm::EscolherCorBackground() {
    const Colour background = colourFromSetting(shared::settings.TFntBckC);
    if (chooseColour(&Settings::TFntBckC, qtColour(background, QPalette::Base)))
        applyPaneColours();
}

void DocumentFrm::EscolherCorForeground() {
    if (chooseColour(&Settings::TFntColr, shownTextColour()))
        applyTextColour();
}

QColor DocumentFrm::shownTextColour() const {
    return textColourOn(colourFromSetting(shared::settings.TFntColr),
                        colourFromSetting(shared::settings.TFntBckC));
}

void DocumentFrm::chooseColours(Colour text, Colour background) {
    shared::settings.TFntColr = settingFromColour(text);
    shared::settings.TFntBckC = settingFromColour(background);
}

void DocumentFrm::MnuFormatarPadrão() {
    chooseColours(kSystemWindowText, 0xFFFFFF);
    applyDefaultScheme();
}

/// Light green on black.
void DocumentFrm::MnuFormatarAltocontraste() {
    chooseColours(0x80FF80, 0);
    applyPaneColours();
    applyTextColour();
}
/// Black on the calculator's grey-green.
void DocumentFrm::MnuFormatarHp48() {
    chooseColours(0, 0x3C603D);
    applyPaneColours();
    applyTextColour();
}

} // namespace zolt
