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
    /// The size in pixels, told for bitmaps, icons and cursors only.
    QSize size;
    /// Which image of an icon or cursor is the largest, from 0.
    int image = 0;
    /// Where the image of an icon or cursor begins, in bytes from the device's start.
    qint64 imagePosition = 0;
    /// For a JPEG stored in passes, the bits to the pixel that its decoder keeps until
    /// the last of them.
    int keptBits = 0;
};

/// The number at a position, the lowest byte first.
quint16 little16(const QByteArray &bytes, qsizetype at);
quint32 little32(const QByteArray &bytes, qsizetype at);
/// The bytes at a position of the device; fewer, or none, at its end.
QByteArray bytesAt(QIODevice &device, qint64 position, qint64 count);

/// Looks at a picture's header and leaves the device where it stood.
/// Formats: https://www.w3.org/Graphics/GIF/spec-gif89a.txt,
/// https://www.w3.org/Graphics/JPEG/itu-t81.pdf,
/// https://learn.microsoft.com/previous-versions/ms997538(v=msdn.10) (icons)
PictureHeader readPictureHeader(QIODevice &device);

} // namespace zolt
