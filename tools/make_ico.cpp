// make_ico OUTPUT.ico PICTURE.svg
// Renders a drawing at the sizes that a desktop asks for and packs them as PNG
// images into one ICO file: a 6-byte header, a 16-byte entry for each image,
// then the images. All numbers are little-endian.
#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>
#include <QtEndian>

namespace {

constexpr int kSizes[] = {16, 20, 24, 32, 40, 48, 64, 128, 256};
constexpr quint32 kHeaderBytes = 6;
constexpr quint32 kEntryBytes = 16;

template <typename Number> void append(QByteArray &bytes, Number value) {
    const Number stored = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
}

QByteArray renderPng(QSvgRenderer &drawing, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    image.save(&buffer, "PNG");
    return png;
}

QByteArray packIco(QSvgRenderer &drawing) {
    constexpr quint16 kCount = std::size(kSizes);
    QByteArray directory;
    QByteArray images;
    append<quint16>(directory, 0);
    append<quint16>(directory, 1); // 1 = icon, 2 would be a cursor
    append<quint16>(directory, kCount);
    for (const int size : kSizes) {
        const QByteArray png = renderPng(drawing, size);
        append<quint8>(directory, static_cast<quint8>(size)); // width; 256 is stored as 0
        append<quint8>(directory, static_cast<quint8>(size)); // height
        append<quint16>(directory, 0);                        // no palette
        append<quint16>(directory, 1);                        // planes
        append<quint16>(directory, 32);                       // bits a pixel
        append<quint32>(directory, static_cast<quint32>(png.size()));
        append<quint32>(directory, kHeaderBytes + kCount * kEntryBytes + static_cast<quint32>(images.size()));
        images += png;
    }
    return directory + images;
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // runs in builds without a display
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        qCritical("Usage: make_ico OUTPUT.ico PICTURE.svg");
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[2]));
    if (!drawing.isValid()) {
        qCritical("%s is not a drawing that can be read", argv[2]);
        return 1;
    }
    const QByteArray ico = packIco(drawing);
    QSaveFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::WriteOnly) || file.write(ico) != ico.size() || !file.commit()) {
        qCritical("%s: %s", argv[1], qPrintable(file.errorString()));
        return 1;
    }
    return 0;
}
