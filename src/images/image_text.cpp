#include "images/image_text.h"

#include "core/reporter.h"

#include <algorithm>

namespace zolt {

namespace {

std::string cellAt(const DotSurface &surface, int x, int y) {
    std::string cell(1, kCellMark);
    for (int row = 0; row < kCellHeight; ++row)
        cell += kHexDigits[static_cast<std::size_t>(surface.digit(x, y + row))];
    return cell;
}

} // namespace

std::string pictureTextFromFile(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find_first_of(kLineEnd), bytes.size());
        text.append(bytes, 0, end).append(kLineEnd);
        const std::size_t endLength = bytes.substr(end, kLineEnd.size()) == kLineEnd ? kLineEnd.size() : 1;
        bytes.remove_prefix(std::min(end + endLength, bytes.size()));
    }
    if (!text.empty())
        text.resize(text.size() - kLineEnd.size());
    return text;
}

ImageTextSize measureImageText(std::string_view text) {
    ImageTextSize size;
    std::int64_t cells = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == kCellMark) {
            size.columns = std::max(size.columns, ++cells);
        } else if (text.substr(i, kLineEnd.size()) == kLineEnd) {
            ++size.lines;
            cells = 0;
        }
    }
    return size;
}

PictureOfText VerVelda(std::string_view text, const Progress &progress) {
    const ImageTextSize size = measureImageText(text);
    if (size.columns == 0)
        return {{}, "it holds no picture cell"};
    const std::int64_t width = size.columns * kCellWidth;
    const std::int64_t height = size.lines * kCellHeight;
    if (!isSurfaceSize(width, height))
        return {{}, "the picture is too large"};

    DotSurface surface(static_cast<int>(width), static_cast<int>(height));
    DigitPlace place;
    Reporter reporter(progress, text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!reporter.goOn(i))
            break;
        if (const int value = hexDigitValue(text[i]); value >= 0) {
            surface.setDigit(place.x, place.y, value);
            place.nextRow();
        } else if (text.substr(i, kLineEnd.size()) == kLineEnd) {
            place.nextLine();
        }
    }
    return {std::move(surface), {}};
}

std::string LerFigura(const DotSurface &surface, const Progress &progress) {
    const int columns = (surface.width() + kCellWidth - 1) / kCellWidth;
    const int lines = (surface.height() + kCellHeight - 1) / kCellHeight;
    const auto cells = static_cast<std::size_t>(columns) * static_cast<std::size_t>(lines);
    std::string text;
    text.reserve(cells * kCellLength + static_cast<std::size_t>(lines) * kLineEnd.size());
    for (int line = 0; line < lines; ++line) {
        if (line > 0)
            text += kLineEnd;
        for (int column = 0; column < columns; ++column) {
            if (!goOn(progress, static_cast<std::size_t>(line) + 1, static_cast<std::size_t>(lines)))
                return text;
            text += cellAt(surface, column * kCellWidth, line * kCellHeight);
        }
    }
    return text;
}

} // namespace zolt
