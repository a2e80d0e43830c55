// The frame's live preview, which docks beside or below the documents.

#include "shell/base/more_settings.h"
#include "shell/frame/mdi_frm.h"
#include "shell/preview/live_preview.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>

namespace zolt {

void MDIFrm::buildLivePreview() {
    m_livePreview = new QDockWidget(QStringLiteral("Live preview"), this);
    m_livePreview->setObjectName(QStringLiteral("LivePreviewDock"));
    m_livePreview->setAllowedAreas(Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
    m_livePreview->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    auto *preview = new LivePreview(m_livePreview);
    m_livePreview->setWidget(preview);
    connect(m_livePreview, &QDockWidget::dockLocationChanged, preview, [preview](Qt::DockWidgetArea area) {
        preview->setDirection(area == Qt::BottomDockWidgetArea ? QBoxLayout::LeftToRight
                                                               : QBoxLayout::TopToBottom);
    });
    const ExtraSettings &settings = extraSettings();
    addDockWidget(settings.livePreviewIsBelow ? Qt::BottomDockWidgetArea : Qt::RightDockWidgetArea,
                  m_livePreview);
    m_livePreview->setVisible(settings.showsLivePreview);
    if (settings.livePreviewSize > 0)
        resizeDocks({m_livePreview}, {settings.livePreviewSize},
                    settings.livePreviewIsBelow ? Qt::Vertical : Qt::Horizontal);
    // Its own close button puts it away too.
    connect(m_livePreview->toggleViewAction(), &QAction::toggled, this, [this] { checkLivePreview(); });
}

void MDIFrm::MnuVerLivePreview() {
    const bool shows = m_livePreview->isHidden();
    m_livePreview->setVisible(shows);
    checkLivePreview();
    changeExtraSettings([shows](ExtraSettings &settings) { settings.showsLivePreview = shows; });
}

void MDIFrm::checkLivePreview() {
    for (QAction *menu : menuBar()->actions())
        for (QAction *action : menu->menu()->actions())
            if (action->objectName() == QStringLiteral("MnuVerLivePreview"))
                action->setChecked(!m_livePreview->isHidden());
}

void MDIFrm::keepLivePreviewsPlace() {
    const bool below = dockWidgetArea(m_livePreview) == Qt::BottomDockWidgetArea;
    changeExtraSettings([&](ExtraSettings &settings) {
        settings.showsLivePreview = !m_livePreview->isHidden();
        settings.livePreviewIsBelow = below;
        if (m_livePreview->isVisible())
            settings.livePreviewSize = below ? m_livePreview->height() : m_livePreview->width();
    });
}

} // namespace zolt
