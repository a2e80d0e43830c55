// The frame as a window among windows: its title and place, the document windows in it,
// and its closing.

#include "core/file.h"
#include "core/settings.h"
#include "shell/base/document_in_use.h"
#include "shell/base/long_work.h"
#include "shell/base/shared_values.h"
#include "shell/frame/mdi_frm.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <algorithm>

namespace zolt {

namespace {

constexpr QSize kFirstSize(1000, 700);

/// Room for what a window manager puts around a window.
constexpr QMargins kTitleAndBorders(8, 40, 8, 8);

/// Where the frame's place is kept from run to run, as saveGeometry gives it, in Base64.
std::string placeFile() {
    return shared::programFolder + "/ZOLT.state";
}

/// The place, made smaller and moved where it would stick out of its screen.
QRect onScreen(QRect place) {
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    const QRect whole = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    if (whole.contains(place))
        return place;
    const QRect area = whole.marginsRemoved(kTitleAndBorders);
    place.setSize(place.size().boundedTo(area.size()));
    place.moveLeft(std::clamp(place.left(), area.left(), area.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), area.top(), area.bottom() + 1 - place.height()));
    return place;
}

/// A window's title as it reads: in windowTitle a doubled "[*]" stands for itself.
QString titleAsRead(const QWidget &window) {
    return window.windowTitle().replace(QStringLiteral("[*][*]"), QStringLiteral("[*]"));
}

/// Set on a child that was minimised while it was maximised, which Qt forgets.
constexpr char kWasMaximised[] = "wasMaximised";

void restoreChild(QMdiSubWindow *child) {
    if (child->isMinimized()) {
        child->showNormal();
        if (child->property(kWasMaximised).toBool())
            child->showMaximized();
    }
    child->setFocus();
}

} // namespace

void MDIFrm::adopt(QWidget *documentWindow) {
    auto *child = qobject_cast<QMdiSubWindow *>(documentWindow);
    m_area->addSubWindow(child);
    connect(child, &QWidget::windowTitleChanged, this, &MDIFrm::showTitle, Qt::QueuedConnection);
    connect(child, &QMdiSubWindow::windowStateChanged, child,
            [child](Qt::WindowStates before, Qt::WindowStates now) {
                if (now.testFlag(Qt::WindowMinimized) && !before.testFlag(Qt::WindowMinimized))
                    child->setProperty(kWasMaximised, before.testFlag(Qt::WindowMaximized));
            });
}

void MDIFrm::showTitle() {
    // Qt joins a maximised child's title to the frame's, but keeps the child's first
    // one when that changes.
    const QMdiSubWindow *child = m_area->currentSubWindow();
    const QString own = QStringLiteral("ZOLT");
    QString title = child && child->isMaximized() && child->isVisible()
                        ? QStringLiteral("%1 - [%2]").arg(own, child->windowTitle())
                        : own;
    if (const DocumentInUse *document = documentInUse(); document && document->wouldAsk())
        title.prepend(u'*');
    if (windowTitle() != title)
        setWindowTitle(title);
}

void MDIFrm::listChildWindows(QMenu *menu) {
    auto *children = new QActionGroup(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, children] {
        qDeleteAll(children->actions());
        for (QMdiSubWindow *child : m_area->subWindowList()) {
            const QString title = titleAsRead(*child).replace(u'&', QStringLiteral("&&"));
            QAction *action = menu->addAction(title, child, [child] { restoreChild(child); });
            action->setCheckable(true);
            action->setChecked(child == m_area->activeSubWindow());
            children->addAction(action);
        }
    });
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

void MDIFrm::tileVertically() {
    tile(Qt::Horizontal);
}
void MDIFrm::tileHorizontally() {
    tile(Qt::Vertical);
}
void MDIFrm::cascade() {
    m_area->cascadeSubWindows();
}

void MDIFrm::minimizeAll() {
    for (QMdiSubWindow *child : m_area->subWindowList())
        child->showMinimized();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this && window->isVisible() && window->isWindow() && !qobject_cast<QMenu *>(window))
            window->showMinimized();
}

void MDIFrm::restoreAll() {
    for (QMdiSubWindow *child : m_area->subWindowList())
        child->showNormal();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this && window->isMinimized())
            window->showNormal();
}

void MDIFrm::closeAll() {
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

void MDIFrm::placeAtStart() {
    resize(kFirstSize.boundedTo(screen()->availableSize()));
    m_place = QByteArray::fromBase64(QByteArray::fromStdString(readFile(placeFile()).bytes));
}

void MDIFrm::setVisible(bool visible) {
    if (!visible && isVisible())
        m_place = saveGeometry();
    else if (visible && isHidden() && restoreGeometry(m_place) && !isMaximized())
        setGeometry(onScreen(geometry()));
    QMainWindow::setVisible(visible);
}

void MDIFrm::closeEvent(QCloseEvent *event) {
    // Something goes on in front of a disabled frame that needs it.
    if (!isEnabled()) {
        event->ignore();
        return;
    }
    for (QMdiSubWindow *child : m_area->subWindowList())
        if (!child->close()) {
            event->ignore();
            return;
        }
    keepLivePreviewsPlace();
    // A failure is silent: the settings of the last run then stand.
    writeSettings(shared::programFolder + "/ZOLT.ini", shared::settings);
    if (isVisible())
        m_place = saveGeometry();
    if (!m_place.isEmpty())
        writeFile(placeFile(), m_place.toBase64().toStdString());
    event->accept();
    shared::PararLeitura = 1;
    outliveWork(*this);
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != this)
            window->hide();
    emit ended();
}

} // namespace zolt
