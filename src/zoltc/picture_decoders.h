#pragma once

#include "graphic/rich_picture.h"
#include "images/dot_surface.h"

#include <string>

namespace zolt::cli {

/// What decoding a PC picture gave. The surface is empty if it failed, and `reason` then
/// says why, in words that follow a file's name and a colon.
struct DecodedPicture {
    DotSurface dots;
    std::string reason;
    /// Whether the picture is beyond the limits.
    bool isTooLarge = false;
};

/// The decoders of PC pictures. They stand on Qt, whose loading takes longer than most
/// commands, so they are a module of their own that is loaded when the first picture is
/// met. As the module has this table alone and runs in the same process, nothing has to be
/// told to another program and back.
struct PictureDecoders {
    /// A file's picture on a surface of `width` by `height` dots.
    DecodedPicture (*ofFile)(const std::string &file, int width, int height);
    /// A rich text's picture, on the surface that the source-code compiler reads.
    DotSurface (*forSource)(const RichPicture &picture);
};

/// The module's one symbol, a PictureDecoders.
inline constexpr char kPictureDecodersSymbol[] = "zoltPictureDecoders";

/// The decoders, loaded with the first call; null, and `reason` says why, if the module is
/// missing. It stands at a fixed place beside the program's folder.
const PictureDecoders *pictureDecoders(std::string &reason);

} // namespace zolt::cli
