#include "images/grob.h"

#include "core/codes.h"
#include "core/reporter.h"

#include <algorithm>
#include <charconv>

namespace zolt {

namespace {

constexpr std::string_view kWord = "GROB";
/// Transfer programs put a header line of their own before the word.
constexpr std::size_t kHeaderWithin = 100;
constexpr int kLongestRow = 136;
constexpr int kRowStep = 8;
/// The width of the surface for the longest row; the row's last dots fall outside.
constexpr int kWidestSurface = 132;

/// The number that stands behind a blank at `start` and reaches up to the next
/// blank; `start` then is at that blank.
std::optional<std::int64_t> numberBehindBlank(std::string_view text, std::size_t &start) {
    if (start >= text.size() || text[start] != ' ')
        return std::nullopt;
    const std::size_t end = text.find(' ', start + 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    std::int64_t number = 0;
    const char *first = text.data() + start + 1;
    const char *last = text.data() + end;
    const auto [stop, error] = std::from_chars(first, last, number);
    if (error != std::errc() || stop != last || *first == '-')
        return std::nullopt;
    start = end;
    return number;
}

} // namespace

int grobRowLength(std::int64_t width) {
    if (width > kLongestRow - kRowStep)
        return kLongestRow;
    const std::int64_t rounded = (width + kRowStep - 1) / kRowStep * kRowStep;
    return static_cast<int>(std::max<std::int64_t>(rounded, kRowStep));
}

std::optional<GrobHeader> readGrobHeader(std::string_view text) {
    const std::string_view front = text.substr(0, kHeaderWithin);
    const std::size_t word = front.find(kWord);
    if (word == std::string_view::npos)
        return std::nullopt;
    const std::size_t start = word + kWord.size();
    std::size_t middle = start;
    const auto width = numberBehindBlank(front, middle);
    std::size_t end = middle;
    const auto height = width ? numberBehindBlank(front, end) : std::nullopt;
    if (!height)
        return std::nullopt;
    const std::string widthText(front.substr(start, middle - start));
    const std::string heightText(front.substr(middle, end - middle));
    return GrobHeader{*width, *height, end, "(" + widthText + " x " + heightText + " ) "};
}

PictureOfText VerGrob(std::string_view text, const Progress &progress) {
    const auto header = readGrobHeader(text);
    if (!header)
        return {{}, "it holds no GROB with its width and height"};
    if (header->width < 1 || header->height < 1)
        return {{}, "its GROB has no dots"};
    const int rowLength = grobRowLength(header->width);
    const int width = std::min(rowLength, kWidestSurface);
    if (header->width > kLargestSide || !isSurfaceSize(width, header->height))
        return {{}, "the picture is too large"};

    DotSurface surface(width, static_cast<int>(header->height));
    int x = 0;
    int y = 0;
    Reporter reporter(progress, text.size());
    for (std::size_t i = header->end; i < text.size() && y < surface.height(); ++i) {
        if (!reporter.goOn(i))
            break;
        const int value = hexDigitValue(text[i]);
        if (value < 0)
            continue;
        surface.setDigit(x, y, value);
        x += kDotsPerDigit;
        if (x >= rowLength) {
            x = 0;
            ++y;
        }
    }
    return {std::move(surface), {}};
}

GrobSize grobSizeOfSurface(const DotSurface &surface) {
    return {surface.width() - 1, surface.height() - 1};
}

GrobSize grobSizeOfImageText(const ImageTextSize &size) {
    const std::int64_t width = size.columns * kCellWidth;
    const std::int64_t height = size.lines * kCellHeight - 1;
    if (!isSurfaceSize(width, height))
        return {-1, -1};
    return {static_cast<int>(width) - 1, static_cast<int>(height) - 1};
}

std::string FiguraParaGrob(const DotSurface &surface, GrobSize size, const Progress &progress) {
    if (size.width < 0 || size.height < 0)
        return {};
    const int rowLength = grobRowLength(size.width);
    std::string text = "  " + std::string(kWord) + " " + std::to_string(size.width) + " " +
                       std::to_string(size.height) + " ";
    text.reserve(text.size() +
                 static_cast<std::size_t>(rowLength / kDotsPerDigit) * static_cast<std::size_t>(size.height));
    for (int y = 0; y < size.height; ++y) {
        if (!goOn(progress, static_cast<std::size_t>(y) + 1, static_cast<std::size_t>(size.height)))
            break;
        for (int x = 0; x < rowLength; x += kDotsPerDigit)
            text += kHexDigits[static_cast<std::size_t>(surface.digit(x, y))];
    }
    return text;
}

} // namespace zolt
