#pragma once

#include "images/dot_surface.h"

#include <QImage>
#include <QScrollArea>
#include <functional>

namespace zolt {

/// A frame with a white surface in it, two pixels to the dot, and a vertical
/// scroll bar where the surface is higher than the frame, which then is so much wider.
/// The bar goes from 0 to the surface's height less the frame's, in steps of 10 pixels.
/// The frame has room for 132 by 65 dots. Dots and pictures stand on whole pixels of any screen.
class SurfaceView : public QScrollArea {
    Q_OBJECT

public:
    /// The surface and the bar bear these object names.
    SurfaceView(const QString &surfaceName, const QString &barName, QWidget *parent = nullptr);
    ~SurfaceView() override;

    /// Makes a picture in colour at so many pixels to the dot.
    using PictureAtScale = std::function<QImage(int pixelsPerDot)>;

    /// Shows dots, black on white; an empty surface clears the view.
    void showDots(DotSurface surface);
    /// The same on a surface of a size of its own, in dots; what lies beyond is cut off.
    void showDots(DotSurface surface, QSize size);
    /// Shows a picture in colour on a surface of `width` by `height` dots.
    void showPicture(int width, int height, PictureAtScale picture);
    /// An empty surface of the size that windows start with, seen from its top.
    void clear();

    /// What stands on the surface, as a picture at its size on the screen.
    QImage picture() const;

    /// The size of the surface, in dots.
    QSize sizeInDots() const;

private:
    void fit();

    class Surface;
    Surface *m_surface;
};

} // namespace zolt
