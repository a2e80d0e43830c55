#include "core/document.h"
#include "core/glyphs.h"
#include "core/path.h"
#include "graphic/rtf_writer.h"
#include "hp48/preview_compiler.h"
#include "hp48/preview_json.h"
#include "hp48/screen.h"
#include "zoltc/command_table.h"

#include <QBuffer>
#include <QImage>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace zolt::cli {

namespace {

constexpr int kLargestScale = 16;
/// What readers of PNG files take by default, in pixels.
constexpr std::int64_t kHighestPicture = 1'000'000;
/// 256 MiB of memory.
constexpr std::int64_t kMostPixels = std::int64_t{1} << 31;

struct Flavour {
    std::string_view name;
    PreviewFlavour flavour;
};

constexpr std::array<Flavour, 3> kFlavours{{
    {"hp48", PreviewFlavour::Hp48},
    {"normal", PreviewFlavour::Normal},
    {"wrapped", PreviewFlavour::Wrapped},
}};

std::optional<PreviewFlavour> flavourOfName(std::string_view name) {
    const auto found = std::find_if(kFlavours.begin(), kFlavours.end(),
                                    [&](const Flavour &flavour) { return flavour.name == name; });
    return found == kFlavours.end() ? std::nullopt : std::optional(found->flavour);
}

/// Puts the dots of a surface on an image, each as `scale` by `scale` pixels, from
/// the pixel row `firstRow` on.
void putDots(QImage &image, const DotSurface &surface, int scale, int firstRow) {
    std::string row(static_cast<std::size_t>(image.bytesPerLine()), '\0');
    for (int y = 0; y < surface.height(); ++y) {
        std::fill(row.begin(), row.end(), '\0');
        for (int x = 0; x < surface.width(); ++x) {
            if (!surface.dot(x, y))
                continue;
            for (int pixel = x * scale; pixel < (x + 1) * scale; ++pixel)
                row[static_cast<std::size_t>(pixel / 8)] |= static_cast<char>(0x80 >> pixel % 8);
        }
        for (int repeat = 0; repeat < scale; ++repeat)
            std::memcpy(image.scanLine(firstRow + y * scale + repeat), row.data(), row.size());
    }
}

/// The compiled text as a PNG file, one dot `scale` by `scale` pixels, black on white.
/// Empty if that makes a picture beyond the limits, or a line wider than a surface.
std::string pngOfPreview(const Preview &preview, int scale) {
    const std::vector<ScreenLine> lines = screenLines(preview.styled);
    const std::int64_t width = screenWidth(lines);
    const std::int64_t height = lines.back().top + lines.back().height;
    const std::int64_t highest = std::min(kHighestPicture / scale, kMostPixels / (width * scale * scale));
    if (width > kLargestSide || height > highest)
        return {};
    QImage image(static_cast<int>(width * scale), static_cast<int>(height * scale), QImage::Format_Mono);
    if (image.isNull())
        return {};
    image.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    const std::int64_t band = std::min<std::int64_t>(kMostDots / width, kLargestSide);
    for (std::int64_t top = 0; top < height; top += band) {
        const std::int64_t bottom = std::min(top + band, height);
        DotSurface surface(static_cast<int>(width), static_cast<int>(bottom - top));
        drawLines(surface, preview.styled, linesBetween(lines, top, bottom), glyph, top);
        putDots(image, surface, scale, static_cast<int>(top * scale));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        return {};
    return bytes.toStdString();
}

int runPreview(const Arguments &arguments) {
    const std::string &input = arguments.files[0];
    const std::string &output = arguments.files[1];
    const auto flavour = flavourOfName(arguments.value("style", kFlavours.front().name));
    if (!flavour)
        return unusable("--style", "hp48, normal or wrapped");
    const int scale = wholeNumber(arguments.value("scale", "1")).value_or(0);
    if (scale < 1 || scale > kLargestScale)
        return unusable("--scale", "a number from 1 to " + std::to_string(kLargestScale));
    const std::string extension = extensionOf(output);
    if (extension != "png" && extension != "rtf" && extension != "json")
        return unusable(output, "no extension of a preview: .png, .rtf or .json");

    std::string file;
    if (!readInput(input, file))
        return Unusable;
    const Preview preview = compilePreview(documentFromFile(file), *flavour);
    if (extension == "rtf")
        return writeOutput(output, rtfFromRichText(preview.text)) ? Done : Unusable;
    if (extension == "json")
        return writeOutput(output, previewJson(preview)) ? Done : Unusable;
    const std::string png = pngOfPreview(preview, scale);
    if (png.empty())
        return unusable(output, "the text is too large for one picture");
    return writeOutput(output, png) ? Done : Unusable;
}

} // namespace

Command previewCommand() {
    return {"preview",
            "INPUT OUTPUT",
            "Shows a document as the calculator does, as dots, rich text or JSON.\n"
            "OUTPUT's extension decides: .png, the dots of the text, black on white; .rtf, the rich text;\n"
            ".json, its texts, fonts, pictures and menu entries.",
            {{"style", "STYLE", "hp48 or wrapped: lines folded at 33 columns; normal: not folded (hp48)"},
             {"scale", "N", "pixels to the side of a dot in a .png, 1 to 16 (1)"}},
            2,
            2,
            runPreview};
}

} // namespace zolt::cli
