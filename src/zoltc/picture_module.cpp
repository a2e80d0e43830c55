#include "platform/embedded_picture.h"
#include "platform/pictures.h"
#include "zoltc/picture_decoders.h"

#include <QLoggingCategory>

namespace zolt::cli {

namespace {

/// Qt's own words about a damaged picture would only confuse.
void beSilent() {
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
}

DecodedPicture decodeFile(const std::string &file, int width, int height) {
    beSilent();
    const LoadedPicture picture = loadPicture(file);
    if (!picture.ok())
        return {{}, picture.reason, picture.reason == kPictureTooLarge};
    return {dotsOfPicture(picture.image, width, height), {}, false};
}

DotSurface decodeForSource(const RichPicture &picture) {
    beSilent();
    return dotsForSource(picture);
}

} // namespace

} // namespace zolt::cli

/// The name is kPictureDecodersSymbol.
extern "C" __attribute__((visibility("default")))
const zolt::cli::PictureDecoders zoltPictureDecoders{zolt::cli::decodeFile, zolt::cli::decodeForSource};
