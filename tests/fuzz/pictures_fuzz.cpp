#include "fuzz/require.h"
#include "platform/pictures.h"

#include <QBuffer>
#include <QLoggingCategory>
#include <cstddef>
#include <cstdint>

/// Whatever is decoded has a size within the limit, and gives dots.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const zolt::LoadedPicture picture = zolt::decodePicture(buffer);
    zolt::test::require(picture.ok() == picture.reason.empty() &&
                            picture.image.sizeInBytes() <= zolt::kMostPictureBytes,
                        "a picture without a reason or beyond the limit");
    zolt::dotsOfPicture(picture.image, 132, 65);
    return 0;
}
