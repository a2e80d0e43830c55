#include "platform/embedded_picture.h"

#include "hp48/source_compiler.h"
#include "platform/pictures.h"

#include <QImage>
#include <cstdint>

namespace zolt {

namespace {

constexpr std::int64_t kTwipsADot = 30;
constexpr std::int64_t kTwipsAPixel = 15;

/// The pixel of a side of `pixels`, shown in `twips`, at the corner of a dot; beyond the
/// side it's none of the picture's.
int pixelAtDot(int dot, int pixels, std::int64_t twips) {
    const std::int64_t shown = twips > 0 ? twips : pixels * kTwipsAPixel;
    const std::int64_t pixel = dot * kTwipsADot * pixels / shown;
    return pixel < pixels ? static_cast<int>(pixel) : -1;
}

} // namespace

DotSurface dotsOfEmbeddedPicture(const RichPicture &picture, int width, int height) {
    const QImage image = decodeEmbedded(picture.bytes).image;
    if (image.isNull())
        return {};
    DotSurface surface(width, height);
    for (int y = 0; y < height; ++y) {
        const int row = pixelAtDot(y, image.height(), picture.height);
        for (int x = 0; x < width; ++x) {
            const int column = pixelAtDot(x, image.width(), picture.width);
            // Black and nothing shining through.
            surface.setDot(x, y, row >= 0 && column >= 0 && image.pixel(column, row) == qRgb(0, 0, 0));
        }
    }
    return surface;
}

DotSurface dotsForSource(const RichPicture &picture) {
    return dotsOfEmbeddedPicture(picture, kSourcePictureWidth, kSourcePictureHeight);
}

} // namespace zolt
