#include "platform/picture_headers.h"

#include <QIODevice>
#include <QtEndian>
#include <cstdlib>

namespace zolt {

namespace {

quint16 little16(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}
quint32 little32(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}
quint16 big16(const QByteArray &bytes, qsizetype at) {
    return qFromBigEndian<quint16>(bytes.constData() + at);
}
quint32 big32(const QByteArray &bytes, qsizetype at) {
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

/// The bytes at a position of the device; fewer, or none, at its end.
QByteArray bytesAt(QIODevice &device, qint64 position, qint64 count) {
    return device.seek(position) ? device.read(count) : QByteArray();
}

QByteArray formatOf(const QByteArray &start) {
    if (start.startsWith("BM"))
        return "bmp";
    if (start.startsWith("GIF87a") || start.startsWith("GIF89a"))
        return "gif";
    if (start.startsWith("\xFF\xD8\xFF"))
        return "jpeg";
    if (start.startsWith(QByteArray("\0\0\1\0", 4)))
        return "ico";
    if (start.startsWith(QByteArray("\0\0\2\0", 4)))
        return "cur";
    return {};
}

/// Whether a bitmap file holds all the rows that its header promises. Compressed
/// rows are left to the decoder.
bool holdsAllRows(QIODevice &device, qint64 start) {
    constexpr qsizetype kHeaders = 54;
    constexpr quint32 kShortestHeader = 40;
    const QByteArray bytes = bytesAt(device, start, kHeaders);
    if (bytes.size() < kHeaders || little32(bytes, 14) < kShortestHeader)
        return true;
    constexpr quint32 kPlain = 0;
    constexpr quint32 kPlainWithMasks = 3;
    if (const quint32 compression = little32(bytes, 30);
        compression != kPlain && compression != kPlainWithMasks)
        return true;
    const qint64 rowBits = qint64{little32(bytes, 18)} * little16(bytes, 28);
    const qint64 rows = std::abs(qint64{static_cast<qint32>(little32(bytes, 22))});
    const qint64 beforeLast = rows > 0 ? (rowBits + 31) / 32 * 4 : 0;
    const qint64 pixels = device.size() - start - little32(bytes, 10) - (rowBits + 7) / 8;
    return pixels >= 0 && (beforeLast == 0 || rows - 1 <= pixels / beforeLast);
}

/// The size that an image inside an icon has by its own header: a PNG, or a bitmap
/// whose height counts its mask too.
QSize sizeOfIconImage(QIODevice &device, qint64 position) {
    constexpr qsizetype kNeeded = 24;
    constexpr quint32 kLargestSide = 4096;
    const QByteArray bytes = bytesAt(device, position, kNeeded);
    if (bytes.size() < kNeeded)
        return {};
    const bool png = bytes.startsWith("\x89PNG");
    const quint32 width = png ? big32(bytes, 16) : little32(bytes, 4);
    const quint32 height = png ? big32(bytes, 20) : little32(bytes, 8) / 2;
    if (width == 0 || height == 0 || width > kLargestSide || height > kLargestSide)
        return {};
    return {static_cast<int>(width), static_cast<int>(height)};
}

/// Finds the icon's largest image by the sizes in its directory, and of equal ones
/// that of the most bytes, which has the most colours.
void chooseIconImage(QIODevice &device, qint64 start, PictureHeader &header) {
    constexpr qsizetype kDirectory = 6;
    constexpr qsizetype kEntry = 16;
    const QByteArray front = bytesAt(device, start, kDirectory);
    if (front.size() < kDirectory)
        return;
    const QByteArray entries = bytesAt(device, start + kDirectory, kEntry * little16(front, 4));
    int largestArea = 0;
    quint32 mostBytes = 0;
    qint64 position = 0;
    for (qsizetype at = 0; at + kEntry <= entries.size(); at += kEntry) {
        const auto side = [&](qsizetype offset) {
            const auto byte = static_cast<uchar>(entries[at + offset]);
            return byte == 0 ? 256 : int{byte};
        };
        const int area = side(0) * side(1);
        const quint32 bytes = little32(entries, at + 8);
        if (area < largestArea || (area == largestArea && bytes <= mostBytes))
            continue;
        largestArea = area;
        mostBytes = bytes;
        position = little32(entries, at + 12);
        header.image = static_cast<int>(at / kEntry);
    }
    if (largestArea > 0)
        header.size = sizeOfIconImage(device, start + position);
    if (!header.size.isValid())
        header.format.clear();
}

/// Walks a JPEG's segments up to its frame header, which tells how it is stored.
bool isProgressive(QIODevice &device, qint64 start) {
    constexpr int kMostSegments = 4096;
    qint64 position = start + 2;
    for (int i = 0; i < kMostSegments; ++i) {
        const QByteArray segment = bytesAt(device, position, 4);
        if (segment.size() < 4 || segment[0] != '\xFF')
            return false;
        const auto marker = static_cast<uchar>(segment[1]);
        const bool fill = marker == 0xFF;
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame)
            return marker == 0xC2;
        position += fill ? 1 : 2 + big16(segment, 2);
    }
    return false;
}

} // namespace

PictureHeader readPictureHeader(QIODevice &device) {
    const qint64 start = device.pos();
    PictureHeader header;
    header.format = formatOf(device.peek(6));
    if (header.format == "ico" || header.format == "cur")
        chooseIconImage(device, start, header);
    else if (header.format == "jpeg")
        header.progressive = isProgressive(device, start);
    else if (header.format == "bmp" && !holdsAllRows(device, start))
        header.format.clear();
    device.seek(start);
    return header;
}

} // namespace zolt
