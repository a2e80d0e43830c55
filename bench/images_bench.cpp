// Times of every conversion of a full-height picture (132 by 1090 dots), the best
// of several runs, and of a photograph if a file is named: images_bench [PICTURE]

#include "core/document.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/pictures.h"

#include <QBuffer>
#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

template <class Work> void measure(const char *name, const Work &work) {
    using Clock = std::chrono::steady_clock;
    constexpr int kRuns = 7;
    double best = 1e9;
    std::size_t size = 0;
    for (int i = 0; i < kRuns; ++i) {
        const auto start = Clock::now();
        size = work();
        best = std::min(best, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    std::printf("%-32s %8.2f ms  (%zu)\n", name, best, size);
}

zolt::DotSurface noise(int width, int height) {
    zolt::DotSurface surface(width, height);
    unsigned state = 1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            state = state * 1664525 + 1013904223;
            surface.setDot(x, y, state >> 31);
        }
    return surface;
}

std::size_t decodeAndRead(const std::string &bytes, int width, int height) {
    QByteArray data = QByteArray::fromStdString(bytes);
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    const zolt::LoadedPicture picture = zolt::decodePicture(buffer);
    return zolt::LerFigura(zolt::dotsOfPicture(picture.image, width, height)).size();
}

} // namespace

int main(int argc, char **argv) {
    using namespace zolt;
    const DotSurface surface = noise(132, 1090);
    const std::string text = LerFigura(surface);
    const GrobSize size = grobSizeOfSurface(surface);
    const std::string grob = FiguraParaGrob(surface, size);
    const std::string bitmap = bitmapFile(surface, 24);
    const std::string gif = gifFile(surface);

    measure(".zli to bitmap, 1 bit", [&] { return bitmapFile(VerVelda(text).surface, 1).size(); });
    measure(".zli to bitmap, 4 bits", [&] { return bitmapFile(VerVelda(text).surface, 4).size(); });
    measure(".zli to bitmap, 8 bits", [&] { return bitmapFile(VerVelda(text).surface, 8).size(); });
    measure(".zli to bitmap, 24 bits", [&] { return bitmapFile(VerVelda(text).surface, 24).size(); });
    measure(".zli to GIF", [&] { return gifFile(VerVelda(text).surface).size(); });
    measure(".zli to GROB", [&] { return FiguraParaGrob(VerVelda(text).surface, size).size(); });
    measure("GROB to bitmap, 8 bits", [&] { return bitmapFile(VerGrob(grob).surface, 8).size(); });
    measure("GROB to GIF", [&] { return gifFile(VerGrob(grob).surface).size(); });
    measure("GROB to .zli", [&] { return LerFigura(VerGrob(grob).surface).size(); });
    measure("bitmap to .zli", [&] { return decodeAndRead(bitmap, 132, 1090); });
    measure("GIF to .zli", [&] { return decodeAndRead(gif, 132, 1090); });
    if (argc > 1)
        measure("named picture to .zli", [&] {
            const LoadedPicture picture = loadPicture(argv[1]);
            return LerFigura(dotsOfPicture(picture.image, 132, 65)).size();
        });
}
