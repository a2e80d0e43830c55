#include "fuzz/require.h"
#include "platform/pictures.h"

#include <QBuffer>
#include <QLoggingCategory>
#include <cstddef>
#include <cstdint>

namespace {

/// Larger pictures only take longer.
constexpr std::int64_t kMostBytes = std::int64_t{4} << 20;

void checkPicture(const zolt::LoadedPicture &picture) {
    zolt::test::require(picture.ok() == picture.reason.empty() && picture.image.sizeInBytes() <= kMostBytes,
                        "a picture without a reason or beyond the limit");
    zolt::dotsOfPicture(picture.image, 132, 65);
}

} // namespace

/// Whatever is decoded, from a file or out of a rich text, has a size within the limit, and
/// gives dots.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    checkPicture(zolt::decodePicture(buffer, kMostBytes));
    checkPicture(zolt::decodeEmbedded({bytes.constData(), size}, kMostBytes));
    return 0;
}
