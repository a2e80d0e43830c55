#include "shell/document/fullscreen_frm.h"

#include "platform/pane.h"
#include "shell/base/document_in_use.h"
#include "shell/base/frame.h"
#include "shell/base/shared_values.h"
#include "shell/document/fullscreen_leave_frm.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QMdiSubWindow>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <functional>
#include <utility>

namespace zolt {

FullscreenFrm::FullscreenFrm(Pane *(*newPane)(bool wraps, QWidget *parent), QWidget *owner)
    : ToolFrm({}, DisablesTheFrame, owner) {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (int number = 1; number <= 2; ++number) {
        Pane *made = newPane(number == 1, this);
        made->control().setObjectName(QStringLiteral("Text%1").arg(number));
        made->control().setFrameShape(QFrame::NoFrame);
        m_panes[static_cast<std::size_t>(number - 1)] = made;
        column->addWidget(&made->control());
    }
    for (Pane *each : m_panes) {
        each->control().setEnabled(each == &pane());
        each->control().setVisible(each == &pane());
    }
    connect(&pane().events(), &PaneEvents::Change, this, [this] { m_touched = true; });
    connect(&pane().events(), &PaneEvents::selectionMoved, this, &FullscreenFrm::keepCaretInSight);
    const auto onKey = [this](const QKeySequence &key, const std::function<void()> &act) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, act);
    };
    onKey(Qt::Key_F11, [this] { close(); });
    onKey(Qt::Key_F6, [this] { switchToLeaveWindow(); });
    // As in the document's Edit menu; the pane has the other keys of that menu itself.
    onKey(Qt::CTRL | Qt::SHIFT | Qt::Key_A, [this] {
        pane().setSelStart(0);
        pane().setSelLength(pane().length());
    });
}

Pane &FullscreenFrm::pane() const {
    return *m_panes[shared::settings.TxtWWrap == 2 ? 1 : 0];
}

void FullscreenFrm::enter() {
    DocumentInUse *document = documentInUse();
    if (!document || isVisible())
        return;
    m_document = &document->window();
    setWindowTitle(frameWindow()->windowTitle()); // for the desktop's list of windows
    const Pane &from = document->activePane();
    take(from, pane());
    coverScreen();
    copyCaret(from, pane());
    m_touched = false;
    m_leaveWindow = &loadLeaveWindow();
    m_leaveWindow->showBeside(caret(), room());
    takeFocus(pane());
    disableTools();
    for (QObject *watched : {static_cast<QObject *>(m_document), static_cast<QObject *>(frameWindow())})
        watched->installEventFilter(this);
    if (DocumentKeeper *keeper = documentKeeper()) {
        keeper->follow([this, document] { return document->snapshotOf(pane()); });
        connect(&pane().events(), &PaneEvents::Change, keeper, &DocumentKeeper::noteChange,
                Qt::UniqueConnection);
    }
}

void FullscreenFrm::coverScreen() {
    setGeometry(
        frameWindow()->screen()->geometry()); // a desktop without a window manager knows no full screen
    showFullScreen();
    raise();
}

void FullscreenFrm::disableTools() {
    for (QWidget *window : QApplication::topLevelWidgets()) {
        const bool isTool = window != this && window != m_leaveWindow && window != frameWindow();
        if (isTool && window->isVisible() && window->isEnabled()) {
            window->setEnabled(false);
            m_disabledTools << window;
        }
    }
}

void FullscreenFrm::giveDocumentBack() {
    DocumentInUse *document = documentInUse();
    if (!document || &document->window() != m_document)
        return;
    Pane &to = document->activePane();
    if (m_touched)
        giveBack(pane(), to);
    copyCaret(pane(), to);
    shared::PosiçãoCursor = static_cast<std::int32_t>(to.SelStart());
    emit left();
}

void FullscreenFrm::copyCaret(const Pane &from, Pane &to) {
    to.setSelStart(from.SelStart());
    to.setSelLength(from.SelLength());
    if (!from.hasSelection())
        copyTypedLook(from, to);
}

void FullscreenFrm::closing() {
    frameWindow()->removeEventFilter(this);
    if (DocumentInUse *document = documentInUse())
        document->keepAgain();
    giveDocumentBack();
    if (m_leaveWindow)
        m_leaveWindow->close();
    for (const QPointer<QWidget> &tool : std::exchange(m_disabledTools, {}))
        if (tool)
            tool->setEnabled(true);
}

bool FullscreenFrm::eventFilter(QObject *watched, QEvent *event) {
    const bool isDocument = watched == m_document;
    switch (event->type()) {
    case QEvent::Close: // its question, if there is one, is about the text as it stands here
        close();
        break;
    case QEvent::Hide: // minimising the frame hides the document too, but is no going
        if (isDocument && !event->spontaneous())
            close();
        break;
    case QEvent::WindowActivate: // by a list of windows; it would stand before this one
        if (!isDocument && isVisible())
            takeFocus(pane());
        break;
    default:
        break;
    }
    return ToolFrm::eventFilter(watched, event);
}

void FullscreenFrm::switchToLeaveWindow() {
    if (m_leaveWindow->isActiveWindow())
        takeFocus(pane());
    else
        m_leaveWindow->activateWindow();
}

void FullscreenFrm::keepCaretInSight() {
    if (m_leaveWindow && m_leaveWindow->isVisible())
        m_leaveWindow->avoid(caret(), room());
}

QRect FullscreenFrm::caret() const {
    const QAbstractScrollArea &control = pane().control();
    const QRect place = control.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    return {control.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QRect FullscreenFrm::room() const {
    const QWidget &viewport = *pane().control().viewport();
    return {viewport.mapToGlobal(QPoint(0, 0)), viewport.size()};
}

} // namespace zolt
