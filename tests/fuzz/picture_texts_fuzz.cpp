#include "fuzz/require.h"
#include "images/bitmap_file.h"
#include "images/gif_file.h"
#include "images/grob.h"
#include "images/image_text.h"

#include <cstddef>
#include <cstdint>

namespace {

using zolt::test::require;

/// Larger surfaces only take longer.
constexpr std::int64_t kMostDotsWritten = 1 << 16;

/// Every writer takes whatever surface a reader gives.
void checkWriters(const zolt::PictureOfText &picture) {
    const zolt::DotSurface &surface = picture.surface;
    require(surface.isEmpty() != picture.reason.empty(), "no picture and no reason");
    if (std::int64_t{surface.width()} * surface.height() > kMostDotsWritten)
        return;
    const std::string text = zolt::LerFigura(surface);
    if (!surface.isEmpty())
        require(zolt::LerFigura(zolt::VerVelda(text).surface) == text,
                "another image text after a round trip");
    for (const int depth : {1, 4, 8, 24})
        zolt::bitmapFile(surface, depth);
    zolt::gifFile(surface);
    const std::string grob = zolt::FiguraParaGrob(surface, zolt::grobSizeOfSurface(surface));
    const zolt::DotSurface back = zolt::VerGrob(grob).surface;
    require(back.isEmpty() || back.height() == surface.height() - 1, "a GROB of another height");
}

} // namespace

/// The bytes as an image text and as a GROB.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    checkWriters(zolt::VerVelda(text));
    checkWriters(zolt::VerGrob(text));
    zolt::FiguraParaGrob({}, zolt::grobSizeOfImageText(zolt::measureImageText(text)));
    return 0;
}
