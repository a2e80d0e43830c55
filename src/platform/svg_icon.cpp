#include "platform/svg_icon.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

namespace zolt {

namespace {

class SvgIconEngine : public QIconEngine {
public:
    explicit SvgIconEngine(QString path) : m_path(std::move(path)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal scale = painter->device() ? painter->device()->devicePixelRatio() : 1;
        QPixmap drawn = pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state);
        drawn.setDevicePixelRatio(1);
        painter->drawPixmap(rect, drawn);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override {
        QPixmap &pixmap = m_pixmaps[{size.width(), size.height(), mode}];
        if (pixmap.isNull()) {
            pixmap = drawnAt(size);
            QStyleOption option;
            if (mode != QIcon::Normal && !pixmap.isNull())
                pixmap = QApplication::style()->generatedIconPixmap(mode, pixmap, &option);
        }
        return pixmap;
    }

    QIconEngine *clone() const override { return new SvgIconEngine(*this); }
    QString key() const override { return QStringLiteral("svg"); }
    bool isNull() override { return !QFile::exists(m_path); }

private:
    /// In its own proportions within `room`, in pixels.
    QPixmap drawnAt(const QSize &room) {
        if (!m_drawing)
            m_drawing = std::make_shared<QSvgRenderer>(m_path);
        QSize size = m_drawing->defaultSize().scaled(room, Qt::KeepAspectRatio);
        if (size.isEmpty())
            return {};
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        m_drawing->render(&painter);
        painter.end();
        return QPixmap::fromImage(image);
    }

    QString m_path;
    std::shared_ptr<QSvgRenderer> m_drawing;
    std::map<std::tuple<int, int, QIcon::Mode>, QPixmap> m_pixmaps;
};

} // namespace

QIcon svgIcon(const QString &name) {
    return QIcon(new SvgIconEngine(QStringLiteral(":/icons/%1.svg").arg(name)));
}

} // namespace zolt
