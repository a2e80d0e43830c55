#pragma once

#include <QByteArray>
#include <QSize>

class QIODevice;

namespace zolt {

/// What a picture's own header says before it is decoded.
struct PictureHeader {
    /// "bmp", "gif", "jpeg", "ico" or "cur"; empty if it is none of these
    /// or can't be decoded.
    QByteArray format;
    /// The size in pixels, told for icons and cursors only.
    QSize size;
    /// Which image of an icon or cursor is the largest, from 0.
    int image = 0;
    /// Whether a JPEG is stored in passes, each over the whole picture.
    bool progressive = false;
};

/// Looks at a picture's header and leaves the device where it stood.
/// Formats: https://www.w3.org/Graphics/GIF/spec-gif89a.txt,
/// https://www.w3.org/Graphics/JPEG/itu-t81.pdf,
/// https://learn.microsoft.com/previous-versions/ms997538(v=msdn.10) (icons)
PictureHeader readPictureHeader(QIODevice &device);

} // namespace zolt
