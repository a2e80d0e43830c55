#include "platform/screen_view.h"

#include "core/glyphs.h"
#include "platform/pictures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zolt {

namespace {

/// Between the view's edge and the text, in dots.
constexpr int kMargin = 2;
constexpr int kScreenWidth = kColumns * kCellWidth;
constexpr int kLeastDotSide = 2;
/// How much of the marked line's ground the colour of selections tints.
constexpr int kTint = 60;

int bounded(std::int64_t dots) {
    return static_cast<int>(std::min<std::int64_t>(dots, std::numeric_limits<int>::max() / 2));
}

} // namespace

ScreenView::ScreenView(QWidget *parent) : QAbstractScrollArea(parent) {
    viewport()->setCursor(Qt::PointingHandCursor);
    setMinimumWidth((kScreenWidth + 2 * kMargin) * kLeastDotSide + 2 * frameWidth() +
                    verticalScrollBar()->sizeHint().width());
    verticalScrollBar()->setSingleStep(kCellHeight);
    horizontalScrollBar()->setSingleStep(kCellWidth);
    setFocusPolicy(Qt::NoFocus);
    setScreen({});
}

QSize ScreenView::sizeHint() const {
    constexpr int kScreenHeight = 64;
    return {minimumWidth(), (kScreenHeight + 2 * kMargin) * kLeastDotSide + 2 * frameWidth()};
}

void ScreenView::setScreen(CompiledScreen screen) {
    m_screen = std::move(screen);
    m_mark = std::min(m_mark, m_screen.text.characters.size());
    m_dots = {};
    if (!m_screen.lines.empty()) {
        const ScreenLine &last = m_screen.lines.back();
        m_dots = {bounded(screenWidth(m_screen.lines)), bounded(last.top + last.height)};
    }
    fitBars();
    viewport()->update();
}

const ScreenLine *ScreenView::markedLine() const {
    return m_screen.lines.empty() ? nullptr : &lineOfCharacter(m_screen.lines, m_mark);
}

void ScreenView::mark(std::size_t character) {
    m_mark = character;
    viewport()->update();
    const ScreenLine *line = markedLine();
    if (!line)
        return;
    QScrollBar *bar = verticalScrollBar();
    const int top = bounded(line->top);
    const int bottom = bounded(line->top + line->height) + 2 * kMargin;
    if (top < bar->value())
        bar->setValue(top);
    else if (bottom > bar->value() + bar->pageStep())
        bar->setValue(std::min(top, bottom - bar->pageStep()));
}

qreal ScreenView::dotSide() const {
    const qreal ratio = devicePixelRatioF();
    const int pixels = static_cast<int>(viewport()->width() * ratio) / (kScreenWidth + 2 * kMargin);
    return std::max(pixels, kLeastDotSide) / ratio;
}

void ScreenView::fitBars() {
    const auto fit = [](QScrollBar *bar, int whole, qreal shown) {
        const int page = static_cast<int>(shown);
        bar->setRange(0, std::max(whole + 2 * kMargin - page, 0));
        bar->setPageStep(page);
    };
    fit(verticalScrollBar(), m_dots.height(), viewport()->height() / dotSide());
    fit(horizontalScrollBar(), m_dots.width(), viewport()->width() / dotSide());
}

QRect ScreenView::shownDots() const {
    const QPoint start(horizontalScrollBar()->value() - kMargin, verticalScrollBar()->value() - kMargin);
    const QSize size(static_cast<int>(std::ceil(viewport()->width() / dotSide())),
                     static_cast<int>(std::ceil(viewport()->height() / dotSide())));
    return QRect(start, size) & QRect(QPoint(0, 0), m_dots);
}

QPoint ScreenView::pointOfDot(QPoint dot) const {
    const QPoint start(horizontalScrollBar()->value() - kMargin, verticalScrollBar()->value() - kMargin);
    return (QPointF(dot - start) * dotSide()).toPoint();
}

void ScreenView::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), Qt::white);
    const QRect shown = shownDots();
    if (shown.isEmpty())
        return;
    const auto lines = linesBetween(m_screen.lines, shown.top(), shown.top() + shown.height());
    // From the left edge on: lines are cut at it, not moved.
    DotSurface surface(std::min(shown.right() + 1, kLargestSide), shown.height());
    drawLines(surface, m_screen.text, lines, glyph, shown.top());
    QImage dots = imageOfSurface(surface, 1);
    dots.setColorTable({qRgba(0, 0, 0, 0), qRgb(0, 0, 0)});

    painter.scale(dotSide(), dotSide());
    painter.translate(kMargin - horizontalScrollBar()->value(), kMargin - verticalScrollBar()->value());
    if (const ScreenLine *marked = markedLine()) {
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlpha(kTint);
        painter.fillRect(QRectF(-kMargin, static_cast<qreal>(marked->top), m_dots.width() + 2 * kMargin,
                                static_cast<qreal>(marked->height)),
                         tint);
    }
    painter.drawImage(QRectF(0, shown.top(), dots.width(), dots.height()), dots);
}

void ScreenView::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    fitBars();
}

bool ScreenView::event(QEvent *event) {
    // Moved to a screen of another scale.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ScreenChangeInternal)
        fitBars();
    return QAbstractScrollArea::event(event);
}

void ScreenView::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton || m_screen.lines.empty())
        return;
    const QPointF dot = event->position() / dotSide() +
                        QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value()) -
                        QPointF(kMargin, kMargin);
    const auto y = static_cast<std::int64_t>(std::clamp(dot.y(), 0.0, m_dots.height() - 1.0));
    const auto line = linesBetween(m_screen.lines, y, y + 1);
    if (!line.empty())
        emit pressed(static_cast<qsizetype>(
            characterAt(m_screen.text, line.front(), static_cast<std::int64_t>(std::floor(dot.x())))));
}

} // namespace zolt
