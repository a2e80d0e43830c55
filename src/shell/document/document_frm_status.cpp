// A document window's status bar, and what its window knows of the document's state.

#include "core/codes.h"
#include "platform/pane.h"
#include "shell/base/shared_values.h"
#include "shell/document/document_frm.h"
#include "shell/frame/mdi_frm.h"

#include <QAbstractScrollArea>
#include <QDateTime>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QStatusBar>
#include <QTimer>

namespace zolt {

void DocumentFrm::buildStatusBar() {
    for (int i = 0; i < PanelCount; ++i) {
        QLabel *panel = newPanel(QStringLiteral("Panel%1").arg(i + 1));
        StatusBar1->addWidget(panel, i == Message ? 1 : 0);
        m_panels[static_cast<std::size_t>(i)] = panel;
    }
    const auto widthFor = [this](const QString &text) { return fontMetrics().horizontalAdvance(text) + 16; };
    m_panels[Caret]->setMinimumWidth(widthFor(QStringLiteral("(000000, 0000)")));
    m_panels[Length]->setMinimumWidth(widthFor(QStringLiteral("00000000")));
    for (const Panel lock : {NumLock, CapsLock}) {
        m_panels[lock]->setText(lock == NumLock ? QStringLiteral("NUM") : QStringLiteral("CAPS"));
        m_panels[lock]->setEnabled(false);
    }
    m_panels[Message]->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // A long message is cut off, and doesn't widen the window.
    m_panels[Message]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, &DocumentFrm::updateClock);
    clock->start(1000);
}

QLabel *DocumentFrm::newPanel(const QString &name) {
    auto *panel = new QLabel(StatusBar1);
    panel->setObjectName(name);
    panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    panel->setTextFormat(Qt::PlainText);
    panel->setMargin(2);
    panel->setAlignment(Qt::AlignCenter);
    return panel;
}

QLabel *DocumentFrm::addPanelBehindCaret(const char *name) {
    QLabel *panel = newPanel(QString::fromUtf8(name));
    panel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00/00")) + 8);
    StatusBar1->insertWidget(Caret + 1, panel);
    return panel;
}

void DocumentFrm::updateStatus() {
    if (!m_panels[Caret])
        return;
    const Pane &pane = activePane();
    const qsizetype end = pane.selEnd();
    const qsizetype column = end - pane.lineStartOfCaret();
    QLabel *caret = m_panels[Caret];
    caret->setText(QStringLiteral("(%1, %2)").arg(pane.lineOfOffset(end) + 1).arg(column));
    const bool beyond = column > kColumns;
    caret->setFrameShadow(beyond ? QFrame::Raised : QFrame::Sunken);
    caret->setLineWidth(beyond ? 2 : 1);
    m_panels[Length]->setText(QString::number(pane.length()));
}

void DocumentFrm::say(const QString &message) {
    // In a panel too narrow the reason, at the end, counts more than a long name. A file's
    // name may look like HTML.
    QLabel *panel = m_panels[Message];
    const int room = panel->contentsRect().width() - 2 * panel->margin();
    panel->setText(panel->isVisible() ? panel->fontMetrics().elidedText(message, Qt::ElideLeft, room)
                                      : message);
    panel->setToolTip(message.isEmpty() ? QString()
                                        : QStringLiteral("<p>%1</p>").arg(message.toHtmlEscaped()));
}

void DocumentFrm::sayReplaced(const QString &caption) {
    say(QStringLiteral("%1 was replaced: its changes weren't saved.").arg(caption));
}

void DocumentFrm::updateClock() {
    const QDateTime now = QDateTime::currentDateTime();
    m_panels[Date]->setText(QLocale::system().toString(now.date(), QLocale::ShortFormat));
    m_panels[Time]->setText(QLocale::system().toString(now.time(), QLocale::ShortFormat));
}

void DocumentFrm::followLockKeys(const QKeyEvent *event) {
    event ? m_lockKeys.follow(*event) : m_lockKeys.ask();
    m_panels[CapsLock]->setEnabled(m_lockKeys.caps());
    m_panels[NumLock]->setEnabled(m_lockKeys.num());
}

void DocumentFrm::followKeyCaret() {
    const Pane &pane = activePane();
    if (m_selectionBeforeKey != std::pair{pane.SelStart(), pane.selEnd()})
        shared::PosiçãoCursor = static_cast<std::int32_t>(pane.SelStart());
}

bool DocumentFrm::eventFilter(QObject *watched, QEvent *event) {
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    const bool inPane = watched == &activePane().control();
    if (inPane && (key || event->type() == QEvent::InputMethod))
        m_selectionBeforeKey = {activePane().SelStart(), activePane().selEnd()};
    // Composed characters come without a key of their own.
    if (inPane && event->type() == QEvent::InputMethod)
        QMetaObject::invokeMethod(this, &DocumentFrm::followKeyCaret, Qt::QueuedConnection);
    if (key)
        followLockKeys(static_cast<QKeyEvent *>(event));
    else if (event->type() == QEvent::ApplicationActivate || event->type() == QEvent::WindowActivate)
        followLockKeys(nullptr);
    return QMdiSubWindow::eventFilter(watched, event);
}

void DocumentFrm::documentBegins() {
    m_touched = false;
    m_stamp = {};
    if (DocumentKeeper *keeper = documentKeeper())
        keeper->drop();
    shared::PosiçãoCursor = 0;
    showWouldAsk(activePane().length() > 0);
}

void DocumentFrm::documentArrives() {
    documentBegins();
    m_touched = true;
    if (DocumentKeeper *keeper = documentKeeper())
        keeper->noteChange();
}

void DocumentFrm::followChange() {
    m_touched = true;
    if (DocumentKeeper *keeper = documentKeeper())
        keeper->noteChange();
    // Reading and comparing a long document at every key would be felt.
    m_comparison->stop();
    const qsizetype length = activePane().length();
    if (length > 0 && length == m_savedLength)
        m_comparison->start();
    else
        showWouldAsk(length > 0);
}

void DocumentFrm::showWouldAsk(bool wouldAsk) {
    if (DocumentKeeper *keeper = documentKeeper(); keeper && !wouldAsk)
        keeper->drop();
    if (std::exchange(m_wouldAsk, wouldAsk) != wouldAsk)
        m_frame->showTitle();
}

} // namespace zolt
