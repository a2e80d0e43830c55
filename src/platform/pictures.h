#pragma once

#include "images/dot_surface.h"

#include <QImage>
#include <QRectF>
#include <cstdint>
#include <string>
#include <string_view>

class QIODevice;

namespace zolt {

/// The message for a file that isn't one of the pictures that can be read.
inline constexpr std::string_view kPictureNotRecognised = "Image format not recognized.";

/// Why a picture is refused that would take more memory or time than any needs.
inline constexpr std::string_view kPictureTooLarge = "the picture is too large";

/// The most memory that one decoded picture may take.
inline constexpr std::int64_t kMostPictureBytes = std::int64_t{200} << 20;

/// What decoding gave. `image` is null if it failed, and `reason` then says why, in words
/// that follow a file's name and a colon.
struct LoadedPicture {
    QImage image;
    std::string reason;

    bool ok() const { return !image.isNull(); }
};

/// Decodes a BMP, GIF, JPEG, ICO or CUR picture, told by its contents; of an icon or
/// cursor the largest image, of an animation the first. Photographs are turned
/// upright. Sizes are checked before memory is taken: a photograph whose decoding would
/// take more than `mostBytes` is decoded at a half, a quarter or an eighth of its size,
/// any other picture is refused. So is a photograph of more scans than a few seconds are
/// enough for. Needs no application object.
LoadedPicture decodePicture(QIODevice &device, std::int64_t mostBytes = kMostPictureBytes);
/// The same for the PNG, JPEG or BMP file that stands in a rich text: turned as it is
/// stored, and as far as its bytes go.
LoadedPicture decodeEmbedded(std::string_view bytes, std::int64_t mostBytes = kMostPictureBytes);
/// The same from a file. `path` holds the bytes that the file system uses.
LoadedPicture loadPicture(const std::string &path);

/// Where a picture is drawn on a work surface of `width` by `height` dots, in dots:
/// half a dot to the left of and above the surface, and nearly as large as it.
QRectF pictureTarget(int width, int height);

/// Stretches the whole of a picture into pictureTarget() and reads the dots: a dot is on
/// if its source is exactly black. Enlarging takes the source's pixel under the sample of
/// dot (x, y), half a dot right of and below its corner. Reducing shares the source's
/// rows and columns out among the dots inside the target, each to one dot, and takes
/// the darkest pixel of a dot's share: so the thinnest line survives wherever it
/// stands. Transparent parts are white. Linear in the picture and the surface.
DotSurface dotsOfPicture(const QImage &picture, int width, int height);

/// Whether a picture has an exactly black pixel. Every pixel belongs to some dot at any
/// size, so without one dotsOfPicture() gives no dot that is on, and with one it does.
bool hasBlack(const QImage &picture);

/// A surface of `width` by `height` dots with the whole of a picture stretched into
/// `target` (in dots) and white around it, for windows: in colour, `scale` pixels to
/// the dot. Each pixel shows the target at its own top left corner.
QImage stretchedPicture(const QImage &picture, int width, int height, const QRectF &target, int scale);

/// A surface in black and white, each dot a square of `scale` pixels.
QImage imageOfSurface(const DotSurface &surface, int scale);

} // namespace zolt
