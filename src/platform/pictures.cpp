#include "platform/pictures.h"

#include "platform/picture_headers.h"

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

/// The memory that decoding takes, in bytes.
std::int64_t memoryOf(const QImageReader &reader, QSize size, bool progressive) {
    const QImage::Format format = reader.imageFormat();
    const int bits = format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    // The decoder keeps 16-bit coefficients of three colours until the last pass.
    constexpr int kProgressiveBits = 3 * 16;
    const bool turned = reader.transformation() != QImageIOHandler::TransformationNone;
    const std::int64_t bitsPerPixel =
        std::int64_t{bits} * (turned ? 2 : 1) + (progressive ? kProgressiveBits : 0);
    return std::int64_t{size.width()} * size.height() * bitsPerPixel / 8;
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
/// to `target` dots: the pixel under the sample, and all whose middle lies within a
/// quarter of a dot of it. A dot whose sample lies beyond the target has none.
std::vector<Span> spansOfDots(int dots, double target, int length) {
    constexpr double kReach = 0.25;
    const double pixelsPerDot = length / target;
    const auto firstPixelBehind = [&](double position) {
        return std::min(static_cast<int>(std::ceil(position * pixelsPerDot - 0.5)), length);
    };
    std::vector<Span> spans(static_cast<std::size_t>(dots));
    for (int dot = 0; dot < dots; ++dot) {
        const double middle = dot + 0.5;
        if (middle >= target)
            break;
        const int under = std::min(static_cast<int>(middle * pixelsPerDot), length - 1);
        spans[static_cast<std::size_t>(dot)] = {std::min(under, firstPixelBehind(middle - kReach)),
                                                std::max(under + 1, firstPixelBehind(middle + kReach))};
    }
    return spans;
}

bool anyBlack(const QImage &picture, Span columns, Span rows) {
    for (int y = rows.first; y < rows.end; ++y)
        for (int x = columns.first; x < columns.end; ++x)
            if (picture.pixel(x, y) == kBlack)
                return true;
    return false;
}

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

} // namespace

LoadedPicture decodePicture(QIODevice &device) {
    const PictureHeader header = readPictureHeader(device);
    if (header.format.isEmpty())
        return refused(std::string(kPictureNotRecognised));
    QImageReader::setAllocationLimit(static_cast<int>(kMostPictureBytes >> 20) + 1);
    QImageReader reader(&device, header.format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    if (header.image > 0 && !reader.jumpToImage(header.image))
        return refused(std::string(kPictureNotRecognised));
    const QSize size = header.size.isValid() ? header.size : reader.size();
    if (!size.isValid() || size.isEmpty())
        return refused(std::string(kPictureNotRecognised));
    if (memoryOf(reader, size, header.progressive) > kMostPictureBytes)
        return refused("the picture is too large");
    QImage image = reader.read();
    if (image.isNull())
        return refused(std::string(kPictureNotRecognised));
    completeColourTable(image);
    return {std::move(image), {}};
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
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (anyBlack(picture, columns[static_cast<std::size_t>(x)], rows[static_cast<std::size_t>(y)]))
                surface.setDot(x, y);
    return surface;
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
