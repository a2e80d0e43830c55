#include "platform/icon_masks.h"

#include "platform/picture_headers.h"

#include <QIODevice>

namespace zolt {

namespace {

constexpr qsizetype kHeader = 40;

/// Rows are whole words of 32 bits.
qsizetype rowBytes(qsizetype bits) {
    return (bits + 31) / 32 * 4;
}

/// The bits to the pixel if colours stand there as they are, without a table; else 0.
int plainColourBits(const QByteArray &header) {
    if (header.size() < kHeader || little32(header, 0) != kHeader || little32(header, 16) != 0)
        return 0;
    const int bits = little16(header, 14);
    return bits == 24 || bits == 32 ? bits : 0;
}

bool anyAlpha(const QByteArray &bytes, qsizetype end) {
    for (qsizetype at = 3; at < end; at += 4)
        if (bytes[at] != 0)
            return true;
    return false;
}

} // namespace

QImage maskedIconImage(QIODevice &device, const PictureHeader &header) {
    if (header.format != "ico" && header.format != "cur")
        return {};
    const qint64 before = device.pos();
    const int bits = plainColourBits(bytesAt(device, header.imagePosition, kHeader));
    const int width = header.size.width();
    const int height = header.size.height();
    const qsizetype colourRow = rowBytes(qsizetype{width} * bits);
    const qsizetype maskRow = rowBytes(width);
    const qsizetype mask = colourRow * height;
    const QByteArray bytes =
        bits ? bytesAt(device, header.imagePosition + kHeader, mask + maskRow * height) : QByteArray();
    device.seek(before);
    if (bits == 0 || bytes.size() < mask + maskRow * height || (bits == 32 && anyAlpha(bytes, mask)))
        return {};

    QImage image(header.size, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        const qsizetype row = height - 1 - y;
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const bool hidden = bytes[mask + row * maskRow + x / 8] & 0x80 >> x % 8;
            const auto *colour = reinterpret_cast<const uchar *>(bytes.constData()) + row * colourRow +
                                 qsizetype{x} * (bits / 8);
            line[x] = hidden ? 0 : qRgb(colour[2], colour[1], colour[0]);
        }
    }
    return image;
}

} // namespace zolt
