#include "shell/preview/live_preview.h"

#include "core/codes.h"
#include "platform/fonts.h"
#include "platform/held_text.h"
#include "platform/pane.h"
#include "platform/screen_view.h"
#include "shell/base/document_in_use.h"

#include <QListView>
#include <QStringListModel>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace zolt {

namespace {

/// How long the keys rest before the document is compiled, in milliseconds.
constexpr int kRest = 50;
/// Lines of the list of entries where it stands below the screen.
constexpr int kEntryLines = 6;

} // namespace

LivePreview::LivePreview(QWidget *parent)
    : QWidget(parent),
      Screen1(new ScreenView(this)),
      List1(new QListView(this)),
      m_entries(new QStringListModel(this)),
      m_rest(new QTimer(this)),
      m_slices(new QTimer(this)) {
    setObjectName(QStringLiteral("LivePreview"));
    Screen1->setObjectName(QStringLiteral("Screen1"));
    List1->setObjectName(QStringLiteral("List1"));
    List1->setModel(m_entries);
    List1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    List1->setFocusPolicy(Qt::NoFocus);
    List1->setUniformItemSizes(true);
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    List1->setFont(zoltFont(QString::fromUtf8(kPlainFont), 10));
    List1->hide();
    auto *box = new QBoxLayout(QBoxLayout::TopToBottom, this);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(2);
    box->addWidget(Screen1, 1);
    box->addWidget(List1);
    setDirection(QBoxLayout::TopToBottom);

    m_rest->setSingleShot(true);
    m_rest->setInterval(kRest);
    m_slices->setInterval(0);
    connect(m_rest, &QTimer::timeout, this, [this] {
        if (DocumentInUse *document = documentInUse(); document && isVisible()) {
            m_snapshot = document->sourceSnapshot();
            m_slices->start();
        }
    });
    connect(m_slices, &QTimer::timeout, this, &LivePreview::takeSlice);
    connect(Screen1, &ScreenView::pressed, this, &LivePreview::goTo);
    connect(List1, &QListView::pressed, this, [this](const QModelIndex &entry) { goToEntry(entry.row()); });
    connect(&documentInUseEvents(), &DocumentInUseEvents::paneChanged, this, &LivePreview::followPane);
    followPane();
}

LivePreview::~LivePreview() {
    ++*m_newest;
}

void LivePreview::setDirection(QBoxLayout::Direction direction) {
    static_cast<QBoxLayout *>(layout())->setDirection(direction);
    const bool below = direction == QBoxLayout::TopToBottom;
    List1->setMaximumHeight(below ? kEntryLines * List1->fontMetrics().height() : QWIDGETSIZE_MAX);
    List1->setMaximumWidth(below ? QWIDGETSIZE_MAX : Screen1->minimumWidth());
}

void LivePreview::followPane() {
    for (const QMetaObject::Connection &connection : std::exchange(m_connections, {}))
        disconnect(connection);
    if (Pane *pane = activePane())
        m_connections = {
            connect(&pane->events(), &PaneEvents::Change, this, &LivePreview::noteChange),
            connect(&pane->events(), &PaneEvents::selectionMoved, this, &LivePreview::followCaret)};
    noteChange();
    if (!documentInUse())
        show({}, {});
}

void LivePreview::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    noteChange();
}

void LivePreview::noteChange() {
    m_isUpToDate = false;
    ++*m_newest;
    m_slices->stop();
    m_snapshot.reset();
    if (isVisible())
        m_rest->start();
}

void LivePreview::takeSlice() {
    if (m_snapshot->takeMore())
        return;
    m_slices->stop();
    compile(std::exchange(m_snapshot, nullptr));
}

void LivePreview::compile(std::unique_ptr<SourceSnapshot> snapshot) {
    // A job must be copyable.
    std::shared_ptr<SourceSnapshot> document = std::move(snapshot);
    m_work.run([this, document, newest = m_newest, number = m_newest->load()] {
        const Progress goesOn = [&](std::size_t, std::size_t) { return *newest == number; };
        auto source = document->source(goesOn);
        auto screen = source ? compileScreen(source->source, goesOn) : std::nullopt;
        if (!screen)
            return;
        screen->places.insert(screen->places.begin(), source->places.begin(), source->places.end());
        QStringList entries;
        for (const MenuEntry &entry : screen->entries)
            entries << heldText(entry.text);
        const auto ready = std::make_shared<CompiledScreen>(std::move(*screen));
        QMetaObject::invokeMethod(
            this,
            [this, ready, entries, newest, number] {
                if (*newest == number)
                    show(std::move(*ready), entries);
            },
            Qt::QueuedConnection);
    });
}

void LivePreview::show(CompiledScreen screen, const QStringList &entries) {
    if (m_entries->stringList() != entries)
        m_entries->setStringList(entries);
    List1->setVisible(!entries.isEmpty());
    Screen1->setScreen(std::move(screen));
    m_isUpToDate = documentInUse() != nullptr;
    followCaret();
}

void LivePreview::followCaret() {
    const Pane *pane = activePane();
    if (!pane || !isVisible())
        return;
    const auto offset = static_cast<std::size_t>(pane->selEnd());
    Screen1->mark(placeAhead(Screen1->screen().places, offset));
}

void LivePreview::goTo(qsizetype character) {
    Pane *pane = activePane();
    if (!pane)
        return;
    const std::size_t offset = placeBack(Screen1->screen().places, static_cast<std::size_t>(character));
    pane->setSelStart(static_cast<qsizetype>(offset));
    takeFocus(*pane);
}

void LivePreview::goToEntry(int row) {
    const CompiledScreen &screen = Screen1->screen();
    if (row < 0 || static_cast<std::size_t>(row) >= screen.entries.size())
        return;
    const auto line = static_cast<std::size_t>(screen.entries[static_cast<std::size_t>(row)].line) - 1;
    if (line < screen.lines.size())
        goTo(static_cast<qsizetype>(screen.lines[line].begin));
}

} // namespace zolt
