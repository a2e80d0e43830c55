#include "support/contrast.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <set>

namespace {

const QString kResources = QStringLiteral(":/icons");

QStringList drawings() {
    return QDir(kResources).entryList({"*.svg"}, QDir::Files, QDir::Name);
}

QImage render(QSvgRenderer &drawing, QSize size, const QColor &background) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    drawing.render(&painter);
    return image;
}

// How many pixels of the drawing a user can tell from the window behind it.
int readablePixels(QSvgRenderer &drawing, QSize size, const QColor &background) {
    const QImage image = render(drawing, size, background);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += zolt::test::contrast(image.pixel(x, y), background) >= 2.5;
    return count;
}

TEST(Icons, EveryDrawingOfTheFolderIsAResource) {
    EXPECT_EQ(drawings(), QDir(ZOLT_ICONS).entryList({"*.svg"}, QDir::Files, QDir::Name));
    EXPECT_FALSE(drawings().isEmpty());
}

TEST(Icons, DrawingsAreClearOnLightAndDarkWindows) {
    for (const QString &name : drawings()) {
        QSvgRenderer drawing(kResources + '/' + name);
        ASSERT_TRUE(drawing.isValid()) << name.toStdString();
        const QSize size = drawing.defaultSize();
        const int enough = size.width() * size.height() / 20;
        EXPECT_GT(readablePixels(drawing, size, QColor(0xff, 0xff, 0xff)), enough) << name.toStdString();
        EXPECT_GT(readablePixels(drawing, size, QColor(0x2b, 0x2b, 0x2b)), enough) << name.toStdString();
    }
}

TEST(Icons, NoTwoDrawingsLookAlike) {
    std::set<std::string> seen;
    for (const QString &name : drawings()) {
        QSvgRenderer drawing(kResources + '/' + name);
        const QImage image = render(drawing, QSize(24, 24), Qt::white);
        const std::string pixels(reinterpret_cast<const char *>(image.constBits()),
                                 static_cast<std::size_t>(image.sizeInBytes()));
        EXPECT_TRUE(seen.insert(pixels).second) << name.toStdString();
    }
}

// The preview lays the document and the line counter over these places.
TEST(Icons, CalculatorShowsCleanGlassWhereTheDocumentStands) {
    QSvgRenderer drawing(kResources + "/calculator.svg");
    ASSERT_EQ(drawing.defaultSize(), QSize(381, 322));
    const QImage image = render(drawing, drawing.defaultSize(), Qt::white);
    const QRgb glass = image.pixel(190, 160);
    for (const QRect &place : {QRect(56, 88, 269, 143), QRect(66, 236, 257, 17)})
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                ASSERT_EQ(image.pixel(x, y), glass) << x << ", " << y;
}

TEST(Icons, DocumentIconFilesHoldEverySize) {
    if (!QImageReader::supportedImageFormats().contains("ico"))
        GTEST_SKIP() << "no reader of icon files here";
    for (const char *name : {"ZOLTText.ico", "ZOLTGraphic.ico"}) {
        QImageReader reader(QString(ZOLT_ICO_DIR) + '/' + name);
        std::vector<int> widths;
        for (int i = 0; i < reader.imageCount(); ++i) {
            reader.jumpToImage(i);
            const QImage image = reader.read();
            ASSERT_FALSE(image.isNull()) << name << " image " << i;
            EXPECT_EQ(image.width(), image.height());
            EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << name << " has no transparent corner";
            EXPECT_GT(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 0) << name << " is empty";
            widths.push_back(image.width());
        }
        EXPECT_EQ(widths, (std::vector<int>{16, 20, 24, 32, 40, 48, 64, 128, 256})) << name;
    }
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
