#include "shell/widgets/quick_bar_panel.h"

#include "core/quick_bar.h"
#include "platform/fonts.h"
#include "platform/held_text.h"
#include "platform/svg_icon.h"
#include "shell/base/document_in_use.h"
#include "shell/base/frame.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"

#include <QKeyEvent>
#include <QToolButton>
#include <algorithm>

namespace zolt {

namespace {

constexpr int kPitch = pixels(360);
constexpr int kButton = pixels(375);
constexpr int kDockPitch = pixels(480);
/// From the grid's start to the dock buttons beyond its long side's end.
constexpr int kDockStart = pixels(6600);
constexpr int kRun = 18;
constexpr int kRuns = 4;
constexpr int kTallCharacters = 78;

struct BarState {
    const char *icon;
    const char *toolTip;
};

/// What a dock button that leads to CharTool 1 to 4 shows.
constexpr std::array<BarState, 4> kBarStates{{{"float-tall", "Float, tall"},
                                              {"float-wide", "Float, wide"},
                                              {"dock-top", "Dock at the top"},
                                              {"dock-right", "Dock on the right"}}};

/// The CharTool that each dock button leads to, for the two hosts.
constexpr std::array<std::array<std::int16_t, 6>, 2> kDockTargets{{{1, 4, 3, 3, 4, 2}, {1, 2, 4, 3, 2, 1}}};

std::int16_t dockTarget(QuickBarHost host, int index) {
    return kDockTargets[static_cast<std::size_t>(host)][static_cast<std::size_t>(index - kFirstDockButton)];
}

std::size_t placeOfIndex(int index) {
    return static_cast<std::size_t>(index < kFirstDockButton ? index : index - kTallCharacters);
}

} // namespace

QuickBarPanel::QuickBarPanel(Layout layout, QuickBarHost host, QWidget *parent)
    : QWidget(parent), m_layout(layout) {
    addCharacters();
    addDockButtons(host);
    const QSize wide(kDockStart + kButton, (kRuns - 1) * kPitch + kButton);
    setFixedSize(layout == Wide ? wide : wide.transposed());
}

QToolButton *QuickBarPanel::addButton(int index, QPoint place) {
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("Command1_%1").arg(index));
    button->setGeometry(QRect(place, QSize(kButton, kButton)));
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, index] { emit clicked(index); });
    return button;
}

void QuickBarPanel::addCharacters() {
    const QFont font = zoltFont(QStringLiteral("ZOLT"), 9.75);
    for (int i = 0; i < kRun * kRuns; ++i) {
        const QPoint wide(i % kRun * kPitch, i / kRun * kPitch);
        QToolButton *button =
            m_layout == Wide ? addButton(i, wide) : addButton(kTallCharacters + i, {wide.y(), wide.x()});
        const auto place = static_cast<std::size_t>(i);
        const char character = static_cast<char>(kQuickBarCodes[place]);
        button->setFont(font);
        button->setText(heldText({&character, 1}));
        button->setToolTip(QString::fromStdString(quickBarToolTip(place)));
        button->installEventFilter(this);
        m_characters[place] = button;
    }
}

void QuickBarPanel::addDockButtons(QuickBarHost host) {
    for (int i = 0; i < 3; ++i) {
        // The tall layout's stand in reverse order, the last one at the left.
        const int index = m_layout == Wide ? kFirstDockButton + i : kEndOfDockButtons - 1 - i;
        QToolButton *button = addButton(index, m_layout == Wide ? QPoint(kDockStart, i * kDockPitch)
                                                                : QPoint(i * kDockPitch, kDockStart));
        const BarState &state = kBarStates[static_cast<std::size_t>(dockTarget(host, index) - 1)];
        button->setIcon(svgIcon(QString::fromUtf8(state.icon)));
        button->setIconSize(QSize(16, 16));
        button->setToolTip(QString::fromUtf8(state.toolTip));
    }
}

void QuickBarPanel::focusFirst() {
    m_characters.front()->setFocus(Qt::ShortcutFocusReason);
}

bool QuickBarPanel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const int along = 1;
    const int across = kRun;
    int step = 0;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Left:
        step = m_layout == Wide ? -along : -across;
        break;
    case Qt::Key_Right:
        step = m_layout == Wide ? along : across;
        break;
    case Qt::Key_Up:
        step = m_layout == Wide ? -across : -along;
        break;
    case Qt::Key_Down:
        step = m_layout == Wide ? across : along;
        break;
    default:
        return false;
    }
    const auto here = std::find(m_characters.begin(), m_characters.end(), watched) - m_characters.begin();
    const auto there = here + step;
    if (there >= 0 && there < static_cast<std::ptrdiff_t>(m_characters.size()))
        m_characters[static_cast<std::size_t>(there)]->setFocus(Qt::TabFocusReason);
    return true;
}

void pressQuickBarButton(QuickBarHost host, int index) {
    if (index >= kFirstDockButton && index < kEndOfDockButtons) {
        shared::settings.CharTool = dockTarget(host, index);
        mainFrame()->applyCharTool();
        return;
    }
    const char character = static_cast<char>(kQuickBarCodes[placeOfIndex(index)]);
    insertIntoActivePane({&character, 1});
}

} // namespace zolt
