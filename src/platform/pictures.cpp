#include "platform/pictures.h"

#include "platform/icon_masks.h"
#include "platform/picture_headers.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <vector>

namespace zolt {

namespace {

constexpr QRgb kBlack = 0xFF000000;
constexpr QRgb kWhite = 0xFFFFFFFF;

LoadedPicture refused(std::string reason) {
    return {{}, std::move(reason)};
}

/// The memory that decoding takes, in bytes, with the sides divided by `scale`. What
/// the decoder keeps until its last pass, it keeps at full size.
std::int64_t memoryOf(const QImageReader &reader, const PictureHeader &header, QSize size, int scale) {
    const QImage::Format format = reader.imageFormat();
    const int bits = format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    const bool turned = reader.transformation() != QImageIOHandler::TransformationNone;
    const std::int64_t pixels = std::int64_t{size.width() / scale} * (size.height() / scale);
    const std::int64_t full = std::int64_t{size.width()} * size.height();
    return (pixels * bits * (turned ? 2 : 1) + full * header.keptBits) / 8 + header.keptBytes;
}

/// By how much the sides of a picture have to be divided while it is decoded; 0 if it
/// is too large all the same.
int scaleThatFits(const QImageReader &reader, const PictureHeader &header, QSize size,
                  std::int64_t mostBytes) {
    // Above what any camera makes a file would keep the program busy without a sense.
    constexpr std::int64_t kMostPixelsOfAPhotograph = std::int64_t{1} << 28;
    // Each scan goes over all pixels; a photograph in colours has ten at the most.
    constexpr std::int64_t kMostPixelsOfAllScans = std::int64_t{1} << 32;
    const std::int64_t pixels = std::int64_t{size.width()} * size.height();
    if (header.scans > kMostPixelsOfAllScans / pixels)
        return 0;
    // Not even at one bit to the pixel and an eighth of the sides; reckoning with its
    // bits might pass 64 bits.
    if (pixels > mostBytes * 8 * (8 * 8))
        return 0;
    for (const int scale : {1, 2, 4, 8}) {
        if (memoryOf(reader, header, size, scale) <= mostBytes)
            return scale;
        if (header.format != "jpeg" || pixels > kMostPixelsOfAPhotograph)
            break;
    }
    return 0;
}

/// Has a photograph decoded at a part of its size. The decoder does so only for sides
/// that are whole multiples: up to seven pixels at the right and the bottom are lost.
void decodeScaled(QImageReader &reader, QSize size, int scale) {
    const QSize part(size.width() / scale, size.height() / scale);
    reader.setClipRect(QRect(QPoint(), part * scale));
    reader.setScaledSize(part);
}

/// A damaged file can have pixels whose colour its table lacks: they get none, and
/// show white.
void completeColourTable(QImage &image) {
    if (image.pixelFormat().colorModel() == QPixelFormat::Indexed)
        image.setColorCount(1 << image.depth());
}

/// The source's pixels, from `first` up to but not including `end`, that one sample
/// of the stretched picture looks at along one side.
struct Span {
    int first = 0;
    int end = 0;
};

/// The spans of `dots` dots along a side of `length` source pixels that is stretched
/// to `target` dots. A dot whose sample lies beyond the target has none.
std::vector<Span> spansOfDots(int dots, double target, int length) {
    std::vector<Span> spans(static_cast<std::size_t>(dots));
    const int inside = std::min(static_cast<int>(std::ceil(target - 0.5)), dots);
    // The first pixel whose middle lies in a dot's share or behind it.
    const auto shareStart = [&](int dot) {
        return static_cast<int>((std::int64_t{2} * dot * length + inside - 1) / (std::int64_t{2} * inside));
    };
    for (int dot = 0; dot < inside; ++dot) {
        Span &span = spans[static_cast<std::size_t>(dot)];
        if (length > inside) {
            span = {shareStart(dot), shareStart(dot + 1)};
        } else {
            span.first = std::min(static_cast<int>((dot + 0.5) * length / target), length - 1);
            span.end = span.first + 1;
        }
    }
    return spans;
}

/// Reads a picture's rows as colours, whatever its format.
class PixelRows {
public:
    explicit PixelRows(const QImage &picture)
        : m_picture(picture),
          m_direct(picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32) {}

    int width() const { return m_picture.width(); }
    /// The row holds until the next call. The alpha of pictures that have none is not set.
    const QRgb *row(int y) {
        if (m_direct)
            return reinterpret_cast<const QRgb *>(m_picture.constScanLine(y));
        m_row = m_picture.copy(0, y, m_picture.width(), 1).convertToFormat(QImage::Format_ARGB32);
        return reinterpret_cast<const QRgb *>(m_row.constScanLine(0));
    }
    bool isBlack(QRgb colour) const { return (colour | m_noAlpha) == kBlack; }

private:
    const QImage &m_picture;
    bool m_direct;
    QRgb m_noAlpha = m_picture.format() == QImage::Format_RGB32 ? kBlack : 0;
    QImage m_row;
};

/// For each pixel of a side, the source pixel that it shows, or -1 outside the target.
std::vector<int> sourcesOfPixels(int pixels, int scale, double start, double target, int length) {
    std::vector<int> sources(static_cast<std::size_t>(std::max(pixels, 0)), -1);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const double position = static_cast<double>(i) / scale - start;
        if (position >= 0 && position < target)
            sources[i] = std::min(static_cast<int>(position * length / target), length - 1);
    }
    return sources;
}

QRgb overWhite(QRgb colour) {
    const int alpha = qAlpha(colour);
    const auto mixed = [&](int channel) { return (channel * alpha + 255 * (255 - alpha) + 127) / 255; };
    return qRgb(mixed(qRed(colour)), mixed(qGreen(colour)), mixed(qBlue(colour)));
}

/// While one stands, the decoders refuse a picture that turns out larger than its header
/// says. Their limit is in megabytes, and takes fewer than 32 bits to the pixel for as many.
class NoLargerThan {
public:
    explicit NoLargerThan(QSize size) {
        constexpr std::int64_t kMostBytesOfAPixel = 8;
        const std::int64_t bytes = std::int64_t{size.width()} * size.height() * kMostBytesOfAPixel;
        QImageReader::setAllocationLimit(static_cast<int>(bytes >> 20) + 1);
    }
    ~NoLargerThan() { QImageReader::setAllocationLimit(m_before); }
    NoLargerThan(const NoLargerThan &) = delete;
    NoLargerThan &operator=(const NoLargerThan &) = delete;

private:
    int m_before = QImageReader::allocationLimit();
};

/// Decodes a picture whose header has been read, within the limits.
LoadedPicture decodeWithin(QImageReader &reader, const PictureHeader &header, std::int64_t mostBytes) {
    reader.setAutoDetectImageFormat(false);
    // Asked for its size, a decoder unpacks the texts.
    if (header.keptBytes > mostBytes)
        return refused(std::string(kPictureTooLarge));
    if (header.image > 0 && !reader.jumpToImage(header.image))
        return refused(std::string(kPictureNotRecognised));
    const QSize size = header.size.isValid() ? header.size : reader.size();
    if (!size.isValid() || size.isEmpty())
        return refused(std::string(kPictureNotRecognised));
    const int scale = scaleThatFits(reader, header, size, mostBytes);
    if (scale == 0)
        return refused(std::string(kPictureTooLarge));
    if (scale > 1)
        decodeScaled(reader, size, scale);
    const NoLargerThan limit(size / scale);
    QImage image = reader.read();
    if (image.isNull())
        return refused(std::string(kPictureNotRecognised));
    completeColourTable(image);
    return {std::move(image), {}};
}

} // namespace

LoadedPicture decodePicture(QIODevice &device, std::int64_t mostBytes) {
    const PictureHeader header = readPictureHeader(device);
    if (header.format.isEmpty() || header.format == "png" || !header.isWhole)
        return refused(std::string(kPictureNotRecognised));
    if (QImage masked = maskedIconImage(device, header); !masked.isNull())
        return {std::move(masked), {}};
    QImageReader reader(&device, header.format);
    reader.setAutoTransform(true);
    return decodeWithin(reader, header, mostBytes);
}

LoadedPicture decodeEmbedded(std::string_view bytes, std::int64_t mostBytes) {
    QByteArray held = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&held);
    buffer.open(QIODevice::ReadOnly);
    const PictureHeader header = readPictureHeader(buffer);
    if (header.format != "png" && header.format != "jpeg" && header.format != "bmp")
        return refused(std::string(kPictureNotRecognised));
    QImageReader reader(&buffer, header.format);
    return decodeWithin(reader, header, mostBytes);
}

LoadedPicture loadPicture(const std::string &path) {
    const QString name = QFile::decodeName(QByteArray::fromStdString(path));
    if (!QFileInfo(name).isFile())
        return refused(QFileInfo::exists(name) ? "not a file" : "no such file");
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return refused("can't be read");
    return decodePicture(file);
}

QRectF pictureTarget(int width, int height) {
    return {-0.5, -0.5, width - width / 516.0, height - height / 248.0};
}

DotSurface dotsOfPicture(const QImage &picture, int width, int height) {
    DotSurface surface(width, height);
    if (surface.isEmpty() || picture.isNull())
        return surface;
    const QRectF target = pictureTarget(width, height);
    const std::vector<Span> columns = spansOfDots(width, target.width(), picture.width());
    const std::vector<Span> rows = spansOfDots(height, target.height(), picture.height());
    PixelRows pixels(picture);
    for (int y = 0; y < height; ++y) {
        const Span span = rows[static_cast<std::size_t>(y)];
        std::uint8_t *dots = surface.row(y);
        for (int sourceRow = span.first; sourceRow < span.end; ++sourceRow) {
            const QRgb *row = pixels.row(sourceRow);
            for (std::size_t x = 0; x < columns.size(); ++x)
                for (int column = columns[x].first; column < columns[x].end && !dots[x]; ++column)
                    dots[x] = pixels.isBlack(row[column]);
        }
    }
    return surface;
}

bool hasBlack(const QImage &picture) {
    PixelRows pixels(picture);
    for (int y = 0; y < picture.height(); ++y) {
        const QRgb *row = pixels.row(y);
        if (std::any_of(row, row + pixels.width(), [&](QRgb colour) { return pixels.isBlack(colour); }))
            return true;
    }
    return false;
}

QImage stretchedPicture(const QImage &picture, int width, int height, const QRectF &target, int scale) {
    QImage image(width * scale, height * scale, QImage::Format_RGB32);
    image.fill(kWhite);
    if (image.isNull() || picture.isNull())
        return image;
    const std::vector<int> columns =
        sourcesOfPixels(image.width(), scale, target.left(), target.width(), picture.width());
    const std::vector<int> rows =
        sourcesOfPixels(image.height(), scale, target.top(), target.height(), picture.height());
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        const int sourceRow = rows[static_cast<std::size_t>(y)];
        for (std::size_t x = 0; x < columns.size(); ++x)
            if (sourceRow >= 0 && columns[x] >= 0)
                line[x] = overWhite(picture.pixel(columns[x], sourceRow));
    }
    return image;
}

QImage imageOfSurface(const DotSurface &surface, int scale) {
    QImage image(surface.width() * scale, surface.height() * scale, QImage::Format_Mono);
    if (image.isNull())
        return image;
    image.setColorTable({kWhite, kBlack});
    image.fill(0);
    for (int y = 0; y < image.height(); ++y) {
        uchar *line = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            if (surface.dot(x / scale, y / scale))
                line[x / 8] |= static_cast<uchar>(0x80 >> x % 8);
    }
    return image;
}

} // namespace zolt
