#pragma once

#include <cstdint>
#include <string>

namespace zolt {

/// An embedded picture. It takes one character position of the text.
struct RichPicture {
    /// Wmf and Emf are Windows' metafiles, MacPict the Macintosh's. Their drawings are
    /// kept, but nobody here draws them: an empty frame shows where they stand.
    enum class Kind { Png, Jpeg, Bmp, Wmf, Emf, MacPict };
    Kind kind = Kind::Png;
    /// The encoded picture: a whole file of that kind, for MacPict without its header of
    /// 512 bytes.
    std::string bytes;
    /// The size in which it is shown, in twips.
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const RichPicture &) const = default;
};

constexpr bool isMetafile(RichPicture::Kind kind) {
    using Kind = RichPicture::Kind;
    return kind == Kind::Wmf || kind == Kind::Emf || kind == Kind::MacPict;
}

} // namespace zolt
