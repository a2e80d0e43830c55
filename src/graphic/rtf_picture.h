#pragma once

#include "graphic/rich_text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// The size of a picture in its own pixels; 0 by 0 when it can't be told.
struct PictureSize {
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const PictureSize &) const = default;
};

/// The size that the header of a PNG, JPEG or BMP file gives.
PictureSize pictureSize(std::string_view file);

/// A BMP file without its file header, the form of pictures on Windows' clipboard
/// and in RTF: header, colours, dots. Empty when the bytes are no BMP file.
std::string dibFromBmp(std::string_view file);

/// The BMP file of such a picture; empty when its header doesn't hold together or
/// the dots aren't all there.
std::string bmpFromDib(std::string_view dib);

/// The size in twips that the header of a metafile gives; 0 by 0 when it gives none.
/// Sources: Microsoft's [MS-WMF] for placeable ones, and [MS-EMF].
PictureSize metafileSize(std::string_view metafile);

/// The picture that a Windows metafile draws, where that is all it does: the DIB in
/// its first record that stretches or sets one. Empty without one.
/// Source: Microsoft's [MS-WMF].
std::string_view dibInMetafile(std::string_view metafile);

/// What a \pict group of RTF says.
struct RtfPicture {
    enum class Kind { Unknown, Png, Jpeg, Dib, Wmf, Emf, MacPict };
    Kind kind = Kind::Unknown;
    std::string bytes;
    /// \picw and \pich: pixels, for a metafile hundredths of a millimetre.
    int width = 0;
    int height = 0;
    /// \picwgoal and \pichgoal: twips.
    int goalWidth = 0;
    int goalHeight = 0;
    /// \picscalex and \picscaley: per cent.
    int scaleX = 100;
    int scaleY = 100;
};

/// The picture of a \pict group; none when its bytes aren't what the group says. Any
/// bytes may be a metafile: it has a frame's size, if it tells none a square inch.
std::optional<RichPicture> richPicture(RtfPicture picture);

} // namespace zolt
