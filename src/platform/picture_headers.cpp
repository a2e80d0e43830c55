#include "platform/picture_headers.h"

#include <QIODevice>
#include <QtEndian>
#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zolt {

quint16 little16(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}
quint32 little32(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

QByteArray bytesAt(QIODevice &device, qint64 position, qint64 count) {
    return device.seek(position) ? device.read(count) : QByteArray();
}

namespace {

quint16 big16(const QByteArray &bytes, qsizetype at) {
    return qFromBigEndian<quint16>(bytes.constData() + at);
}
quint32 big32(const QByteArray &bytes, qsizetype at) {
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

QByteArray formatOf(const QByteArray &start) {
    if (start.startsWith("BM"))
        return "bmp";
    if (start.startsWith("GIF87a") || start.startsWith("GIF89a"))
        return "gif";
    if (start.startsWith("\xFF\xD8\xFF"))
        return "jpeg";
    if (start.startsWith("\x89PNG"))
        return "png";
    if (start.startsWith(QByteArray("\0\0\1\0", 4)))
        return "ico";
    if (start.startsWith(QByteArray("\0\0\2\0", 4)))
        return "cur";
    return {};
}

/// The size of a bitmap file's picture. A height below zero says that the rows stand from
/// the top down. None for the headers of the oldest form, which the decoder reads.
QSize sizeOfBitmap(QIODevice &device, qint64 start) {
    constexpr quint32 kShortestHeader = 40;
    const QByteArray bytes = bytesAt(device, start, 26);
    if (bytes.size() < 26 || little32(bytes, 14) < kShortestHeader)
        return {};
    const auto height = static_cast<qint32>(little32(bytes, 22));
    const auto width = static_cast<qint32>(little32(bytes, 18));
    return height == std::numeric_limits<qint32>::min() ? QSize() : QSize(width, std::abs(height));
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

/// What a PNG's texts and colour profile may take once they are unpacked. Deflate packs
/// 1032 bytes into one at best, and the decoder unpacks no more than 8 MB of each.
std::int64_t bytesOfPngTexts(QIODevice &device, qint64 start) {
    constexpr int kMostChunks = 1 << 16;
    constexpr std::int64_t kMostOfAByte = 1032;
    constexpr std::int64_t kMostOfAText = 8'000'000;
    std::int64_t bytes = 0;
    qint64 position = start + 8;
    for (int i = 0; i < kMostChunks; ++i) {
        const QByteArray chunk = bytesAt(device, position, 8);
        if (chunk.size() < 8)
            return bytes;
        const std::int64_t length = big32(chunk, 0);
        if (chunk.endsWith("zTXt") || chunk.endsWith("iTXt") || chunk.endsWith("iCCP"))
            bytes += std::min(length * kMostOfAByte, kMostOfAText);
        position += 8 + length + 4;
    }
    return std::numeric_limits<qint32>::max();
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
        header.imagePosition = start + little32(entries, at + 12);
        header.image = static_cast<int>(at / kEntry);
    }
    if (largestArea > 0)
        header.size = sizeOfIconImage(device, header.imagePosition);
    if (formatOf(bytesAt(device, header.imagePosition, 6)) == "png")
        header.keptBytes = bytesOfPngTexts(device, header.imagePosition);
    if (!header.size.isValid())
        header.format.clear();
}

/// The bits to the pixel of a JPEG's coefficients, 16 bits each, told by its frame
/// header: colours can be stored at a lower resolution than the brightness.
int coefficientBits(QIODevice &device, qint64 frame) {
    constexpr qsizetype kCountAt = 9;
    constexpr int kBits = 16;
    constexpr int kMostColours = 4;
    const QByteArray bytes = bytesAt(device, frame, kCountAt + 1 + 3 * kMostColours);
    const int colours = bytes.size() > kCountAt ? static_cast<uchar>(bytes[kCountAt]) : 0;
    int samples = 0;
    int widest = 0;
    int highest = 0;
    for (qsizetype at = kCountAt + 2; at < kCountAt + 2 + 3 * colours && at < bytes.size(); at += 3) {
        const int across = static_cast<uchar>(bytes[at]) >> 4;
        const int down = bytes[at] & 0x0F;
        samples += across * down;
        widest = std::max(widest, across);
        highest = std::max(highest, down);
    }
    if (samples == 0)
        return kMostColours * kBits;
    return (samples * kBits + widest * highest - 1) / (widest * highest);
}

/// How many scans begin behind a position. Within a scan every byte 255 has a zero or a
/// mark of its own behind it, so that its beginning can't stand there.
std::int64_t scansBehind(QIODevice &device, qint64 position) {
    constexpr qint64 kStretch = 1 << 16;
    constexpr char kScan[] = "\xFF\xDA";
    std::int64_t scans = 0;
    // The last byte of a stretch is looked at again: a scan may begin with it.
    for (QByteArray bytes; (bytes = bytesAt(device, position, kStretch)).size() > 1;
         position += bytes.size() - 1)
        scans += bytes.count(kScan);
    return scans;
}

/// Walks a JPEG's segments up to its first scan. Its frame header tells how it is stored.
void readJpegHeader(QIODevice &device, qint64 start, PictureHeader &header) {
    constexpr int kMostSegments = 4096;
    constexpr qint64 kColoursOfFrame = 9;
    constexpr qint64 kColoursOfScan = 4;
    qint64 position = start + 2;
    qint64 frame = 0;
    bool inPasses = false;
    for (int i = 0; i < kMostSegments; ++i) {
        const QByteArray segment = bytesAt(device, position, 4);
        if (segment.size() < 4 || segment[0] != '\xFF')
            break;
        const auto marker = static_cast<uchar>(segment[1]);
        if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC) {
            frame = position;
            inPasses = marker == 0xC2 || marker == 0xCA;
        } else if (marker == 0xDA) {
            inPasses |=
                bytesAt(device, position + kColoursOfScan, 1) < bytesAt(device, frame + kColoursOfFrame, 1);
            header.scans = scansBehind(device, position);
            break;
        }
        position += marker == 0xFF ? 1 : 2 + big16(segment, 2);
    }
    header.keptBits = inPasses ? coefficientBits(device, frame) : 0;
}

} // namespace

PictureHeader readPictureHeader(QIODevice &device) {
    const qint64 start = device.pos();
    PictureHeader header;
    header.format = formatOf(device.peek(6));
    if (header.format == "ico" || header.format == "cur")
        chooseIconImage(device, start, header);
    else if (header.format == "jpeg")
        readJpegHeader(device, start, header);
    else if (header.format == "png")
        header.keptBytes = bytesOfPngTexts(device, start);
    else if (header.format == "bmp") {
        header.size = sizeOfBitmap(device, start);
        header.isWhole = holdsAllRows(device, start);
    }
    device.seek(start);
    return header;
}

} // namespace zolt
