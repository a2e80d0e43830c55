#include "platform/surface_view.h"

#include "platform/pictures.h"

#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace zolt {

namespace {

constexpr int kStartWidth = 132;
constexpr int kStartHeight = 65;

} // namespace

/// The widget that draws. It keeps the picture at the screen's own resolution.
class SurfaceView::Surface : public QWidget {
public:
    void show(QSize dots, PictureAtScale picture) {
        m_dots = dots;
        m_source = std::move(picture);
        m_picture = {};
        resize(dots * kPixelsPerDot);
        update();
    }
    QSize dots() const { return m_dots; }
    QImage picture() const { return m_source ? m_source(kPixelsPerDot) : QImage(); }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        if (!m_source)
            return;
        const int scale = std::max(1, qRound(devicePixelRatioF()));
        if (m_picture.isNull() || m_scale != scale) {
            m_scale = scale;
            m_picture = m_source(kPixelsPerDot * scale);
            m_picture.setDevicePixelRatio(scale);
        }
        painter.drawImage(0, 0, m_picture);
    }

private:
    QSize m_dots;
    PictureAtScale m_source;
    QImage m_picture;
    int m_scale = 0;
};

SurfaceView::SurfaceView(const QString &surfaceName, const QString &barName, QWidget *parent)
    : QScrollArea(parent), m_surface(new Surface) {
    m_surface->setObjectName(surfaceName);
    verticalScrollBar()->setObjectName(barName);
    setWidget(m_surface);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setBackgroundRole(QPalette::Mid);
    verticalScrollBar()->setSingleStep(10);
    clear();
}

SurfaceView::~SurfaceView() = default;

void SurfaceView::fit() {
    const int frame = 2 * frameWidth();
    const bool scrolls = m_surface->dots().height() > kStartHeight;
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setFixedSize(kStartWidth * kPixelsPerDot + frame +
                     (scrolls ? verticalScrollBar()->sizeHint().width() : 0),
                 kStartHeight * kPixelsPerDot + frame);
}

void SurfaceView::showDots(DotSurface surface) {
    const QSize size(surface.width(), surface.height());
    showDots(std::move(surface), size);
}

void SurfaceView::showDots(DotSurface surface, QSize size) {
    if (surface.isEmpty())
        return clear();
    m_surface->show(size,
                    [surface = std::move(surface)](int scale) { return imageOfSurface(surface, scale); });
    fit();
}

void SurfaceView::showPicture(int width, int height, PictureAtScale picture) {
    m_surface->show(QSize(width, height), std::move(picture));
    fit();
}

void SurfaceView::clear() {
    m_surface->show(QSize(kStartWidth, kStartHeight), {});
    fit();
    verticalScrollBar()->setValue(0);
}

QImage SurfaceView::picture() const {
    return m_surface->picture();
}
QSize SurfaceView::sizeInDots() const {
    return m_surface->dots();
}

} // namespace zolt
