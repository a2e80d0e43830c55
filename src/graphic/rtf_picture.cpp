#include "graphic/rtf_picture.h"

#include <algorithm>
#include <array>

namespace zolt {

namespace {

using namespace std::string_view_literals;

constexpr int kTwipsAPixel = 15;
/// Larger sizes are noise: this is the side of 32767 dots of 30 twips, and more.
constexpr std::int64_t kLargestTwips = 1 << 20;
constexpr std::int64_t kTwipsAnInch = 1440;
/// Metafiles are measured in hundredths of a millimetre.
constexpr std::int64_t kHundredthsAnInch = 2540;

constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1A\n";
constexpr std::string_view kJpegSignature = "\xFF\xD8";

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kInfoHeader = 40;
constexpr std::uint32_t kBitFields = 3;

/// Numbers in the bytes of a file; what lies behind its end reads as 0.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_bytes(bytes) {}

    std::size_t size() const { return m_bytes.size(); }
    std::uint32_t byte(std::size_t at) const {
        return at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[at]) : 0;
    }
    std::uint32_t little16(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    std::uint32_t little32(std::size_t at) const { return little16(at) | little16(at + 2) << 16; }
    std::uint32_t big16(std::size_t at) const { return byte(at) << 8 | byte(at + 1); }
    std::uint32_t big32(std::size_t at) const { return big16(at) << 16 | big16(at + 2); }

private:
    std::string_view m_bytes;
};

std::int32_t asSize(std::uint32_t value) {
    return static_cast<std::int32_t>(std::min<std::uint32_t>(value, kLargestTwips));
}

/// A height may be negative: rows from the top.
std::int32_t asHeight(std::uint32_t value) {
    return asSize(value > 0x7FFFFFFF ? 0 - value : value);
}

PictureSize jpegSize(const Bytes &file) {
    std::size_t at = 2;
    while (at + 9 <= file.size() && file.byte(at) == 0xFF) {
        const std::uint32_t marker = file.byte(at + 1);
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame)
            return {asSize(file.big16(at + 7)), asSize(file.big16(at + 5))};
        at += marker == 0xFF ? 1 : 2 + file.big16(at + 2);
    }
    return {};
}

/// How a DIB is laid out; sizes in bytes, `header` 0 when it makes no sense.
struct DibLayout {
    std::size_t header = 0;
    std::size_t colours = 0;
    std::size_t dots = 0;
    PictureSize size;
};

DibLayout layoutOf(std::string_view dib) {
    const Bytes bytes(dib);
    const std::uint32_t header = bytes.little32(0);
    const bool core = header == kCoreHeader;
    if (dib.size() < header || (!core && (header < kInfoHeader || header > 256)))
        return {};

    DibLayout layout;
    layout.header = header;
    const std::uint32_t width = core ? bytes.little16(4) : bytes.little32(4);
    const std::uint32_t height = core ? bytes.little16(6) : bytes.little32(8);
    layout.size = {asSize(width), asHeight(height)};
    const std::uint32_t bits = bytes.little16(core ? 10 : 14);
    const std::uint32_t compression = core ? 0 : bytes.little32(16);
    const std::uint32_t coloursUsed = core ? 0 : bytes.little32(32);

    if (layout.size.width <= 0 || layout.size.height <= 0 || bits == 0 || bits > 32)
        return {};
    std::size_t colours = bits <= 8 ? std::size_t{1} << bits : 0;
    if (coloursUsed != 0)
        colours = bits <= 8 ? std::min<std::size_t>(coloursUsed, colours) : std::min(coloursUsed, 256u);
    layout.colours = colours * (core ? 3 : 4);
    if (header == kInfoHeader && compression == kBitFields)
        layout.colours += 12;

    if (compression == 0 || compression == kBitFields) {
        const std::size_t row = (static_cast<std::size_t>(layout.size.width) * bits + 31) / 32 * 4;
        layout.dots = row * static_cast<std::size_t>(layout.size.height);
    } else {
        layout.dots = bytes.little32(20);
    }
    return layout;
}

PictureSize bmpSize(std::string_view file) {
    return layoutOf(file.substr(std::min(file.size(), kFileHeader))).size;
}

void appendLittle32(std::string &out, std::size_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>(value >> shift & 255);
}

/// What a metafile begins with that tells its size.
constexpr std::uint32_t kPlaceable = 0x9AC6CDD7;

/// Where the DIB begins in a metafile record that draws one.
struct DibRecord {
    std::uint32_t function;
    std::size_t offset;
};

constexpr std::size_t kRecordHeader = 6;
constexpr std::array<DibRecord, 4> kDibRecords{{
    {0x0F43, kRecordHeader + 22}, // StretchDIBits
    {0x0B41, kRecordHeader + 20}, // DIBStretchBlt
    {0x0D33, kRecordHeader + 18}, // SetDIBitsToDevice
    {0x0940, kRecordHeader + 16}, // DIBBitBlt
}};

/// One side of a picture in twips, as \picwgoal, \picw and the picture itself tell it;
/// 0 for what isn't told.
struct Side {
    std::int64_t goal;
    std::int64_t natural;
    std::int64_t fromFile;
};

std::int32_t shownSize(Side side, int scale) {
    std::int64_t twips = kTwipsAnInch;
    for (const std::int64_t told : {side.fromFile, side.natural, side.goal}) {
        if (told > 0)
            twips = told;
    }
    twips = std::min(twips, kLargestTwips) * std::clamp(scale, 1, 10000) / 100;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(twips, 1, kLargestTwips));
}

std::optional<RichPicture::Kind> metafileKind(RtfPicture::Kind kind) {
    switch (kind) {
    case RtfPicture::Kind::Wmf:
        return RichPicture::Kind::Wmf;
    case RtfPicture::Kind::Emf:
        return RichPicture::Kind::Emf;
    case RtfPicture::Kind::MacPict:
        return RichPicture::Kind::MacPict;
    default:
        return std::nullopt;
    }
}

PictureSize sizeInUnits(std::int64_t width, std::int64_t height, std::int64_t unitsAnInch) {
    const auto twips = [unitsAnInch](std::int64_t units) {
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(units * kTwipsAnInch / unitsAnInch, 0, kLargestTwips));
    };
    return {twips(width), twips(height)};
}

/// A metafile that draws no more than a picture is that picture.
RichPicture fromMetafile(RichPicture::Kind kind, std::string bytes) {
    if (kind == RichPicture::Kind::Wmf) {
        if (std::string bmp = bmpFromDib(dibInMetafile(bytes)); !bmp.empty())
            return {RichPicture::Kind::Bmp, std::move(bmp)};
    }
    return {kind, std::move(bytes)};
}

/// The picture without its size.
RichPicture decoded(RtfPicture &picture) {
    if (picture.kind == RtfPicture::Kind::Dib)
        return {RichPicture::Kind::Bmp, bmpFromDib(picture.bytes)};
    if (picture.bytes.starts_with(kPngSignature))
        return {RichPicture::Kind::Png, std::move(picture.bytes)};
    if (picture.bytes.starts_with(kJpegSignature))
        return {RichPicture::Kind::Jpeg, std::move(picture.bytes)};
    if (const auto kind = metafileKind(picture.kind))
        return fromMetafile(*kind, std::move(picture.bytes));
    return {};
}

} // namespace

PictureSize pictureSize(std::string_view file) {
    const Bytes bytes(file);
    if (file.starts_with(kPngSignature))
        return {asSize(bytes.big32(16)), asSize(bytes.big32(20))};
    if (file.starts_with(kJpegSignature))
        return jpegSize(bytes);
    if (file.starts_with("BM"))
        return bmpSize(file);
    return {};
}

std::string dibFromBmp(std::string_view file) {
    if (!file.starts_with("BM") || file.size() < kFileHeader)
        return {};
    const std::size_t dotsAt = Bytes(file).little32(10);
    const std::string_view dib = file.substr(kFileHeader);
    const DibLayout layout = layoutOf(dib);
    const std::size_t tables = layout.header + layout.colours;
    if (layout.header == 0 || dotsAt < kFileHeader + tables || dotsAt > file.size())
        return std::string(dib);
    std::string packed(dib.substr(0, tables));
    packed += file.substr(dotsAt);
    return packed;
}

std::string bmpFromDib(std::string_view dib) {
    const DibLayout layout = layoutOf(dib);
    const std::size_t tables = layout.header + layout.colours;
    if (layout.header == 0 || tables > dib.size() || layout.dots > dib.size() - tables)
        return {};
    std::string file = "BM";
    file.reserve(kFileHeader + dib.size());
    appendLittle32(file, kFileHeader + dib.size());
    appendLittle32(file, 0);
    appendLittle32(file, kFileHeader + tables);
    file += dib;
    return file;
}

std::string_view dibInMetafile(std::string_view metafile) {
    const Bytes bytes(metafile);
    std::size_t at = bytes.little32(0) == kPlaceable ? 22 : 0;
    at += std::size_t{bytes.little16(at + 2)} * 2;
    while (at + kRecordHeader <= metafile.size()) {
        const std::size_t size = std::size_t{bytes.little32(at)} * 2;
        if (size < kRecordHeader)
            return {};
        const std::uint32_t function = bytes.little16(at + 4);
        for (const DibRecord &record : kDibRecords) {
            if (record.function == function && size > record.offset + kCoreHeader &&
                at + size <= metafile.size())
                return metafile.substr(at + record.offset, size - record.offset);
        }
        at += size;
    }
    return {};
}

PictureSize metafileSize(std::string_view metafile) {
    const Bytes bytes(metafile);
    const auto between = [](std::uint32_t from, std::uint32_t to) {
        return static_cast<std::int32_t>(to - from);
    };
    const bool enhanced = bytes.little32(0) == 1 && bytes.little32(40) == 0x464D4520;
    if (enhanced)
        return sizeInUnits(between(bytes.little32(24), bytes.little32(32)),
                           between(bytes.little32(28), bytes.little32(36)), kHundredthsAnInch);
    const std::uint32_t unitsAnInch = bytes.little16(14);
    if (bytes.little32(0) != kPlaceable || unitsAnInch == 0)
        return {};
    const auto edge = [&bytes](std::size_t at) { return static_cast<std::int16_t>(bytes.little16(at)); };
    return sizeInUnits(edge(10) - edge(6), edge(12) - edge(8), unitsAnInch);
}

std::optional<RichPicture> richPicture(RtfPicture picture) {
    const bool inPixels = picture.kind != RtfPicture::Kind::Wmf && picture.kind != RtfPicture::Kind::Emf;
    const auto twips = [inPixels](std::int64_t natural) {
        return inPixels ? natural * kTwipsAPixel : natural * kTwipsAnInch / kHundredthsAnInch;
    };
    RichPicture result = decoded(picture);
    if (result.bytes.empty())
        return std::nullopt;
    PictureSize own = metafileSize(result.bytes);
    if (!isMetafile(result.kind)) {
        const PictureSize pixels = pictureSize(result.bytes);
        own = {pixels.width * kTwipsAPixel, pixels.height * kTwipsAPixel};
    }
    result.width = shownSize({picture.goalWidth, twips(picture.width), own.width}, picture.scaleX);
    result.height = shownSize({picture.goalHeight, twips(picture.height), own.height}, picture.scaleY);
    return result;
}

} // namespace zolt
