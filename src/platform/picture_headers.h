#pragma once

#include <QByteArray>
#include <QSize>
#include <cstdint>

class QIODevice;

namespace zolt {

/// What a picture's own header says before it is decoded.
struct PictureHeader {
    /// "bmp", "gif", "jpeg", "png", "ico" or "cur"; empty if it is none of these
    /// or can't be decoded.
    QByteArray format;
    /// The size in pixels, told for bitmaps, icons and cursors only.
    QSize size;
    /// Whether a bitmap's rows are all there; true for the other formats.
    bool isWhole = true;
    /// Which image of an icon or cursor is the largest, from 0.
    int image = 0;
    /// Where the image of an icon or cursor begins, in bytes from the device's start.
    qint64 imagePosition = 0;
    /// For a JPEG stored in passes or colour by colour, the bits to the pixel that its
    /// decoder keeps until the last of its scans.
    int keptBits = 0;
    /// What the decoder may take for the texts and the colour profile of a PNG, in bytes.
    std::int64_t keptBytes = 0;
    /// The scans of a JPEG. Each goes over the whole picture, however few bytes it has.
    std::int64_t scans = 1;
};

/// The number at a position, the lowest byte first.
quint16 little16(const QByteArray &bytes, qsizetype at);
quint32 little32(const QByteArray &bytes, qsizetype at);
/// The bytes at a position of the device; fewer, or none, at its end.
QByteArray bytesAt(QIODevice &device, qint64 position, qint64 count);

/// Looks at a picture's header and leaves the device where it stood.
/// Formats: https://www.w3.org/Graphics/GIF/spec-gif89a.txt,
/// https://www.w3.org/Graphics/JPEG/itu-t81.pdf, https://www.w3.org/TR/png/,
/// https://learn.microsoft.com/previous-versions/ms997538(v=msdn.10) (icons)
PictureHeader readPictureHeader(QIODevice &device);

} // namespace zolt
