#include "core/document.h"
#include "core/glyphs.h"
#include "core/path.h"
#include "hp48/preview_compiler.h"
#include "hp48/preview_json.h"
#include "hp48/screen.h"
#include "hp48/styled_rich_text.h"
#include "images/dot_surface.h"
#include "zoltc/command_table.h"
#include "zoltc/png_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace zolt::cli {

namespace {

constexpr int kLargestScale = 16;
/// What readers of PNG files take by default, in pixels.
constexpr std::int64_t kHighestPicture = 1'000'000;
/// 256 MiB in the memory of whoever reads the picture.
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

constexpr int kBitsOfByte = 8;

/// Eight dots as bits, the first in the highest. The product has each dot's bit at its
/// place in the highest byte, and no other one there.
unsigned bitsOfEight(const std::uint8_t *dots) {
    constexpr std::uint64_t kFactor =
        std::endian::native == std::endian::little ? 0x8040201008040201 : 0x0102040810204080;
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, dots, sizeof bytes);
    return static_cast<unsigned>(bytes * kFactor >> 56);
}

/// Puts a row of dots, a byte of 0 or 1 for each, into `bits` as a row of a PNG file,
/// `scale` pixels to the dot. A dot that is on is black, so its bits are clear.
void packRow(std::span<const std::uint8_t> dots, int scale, std::string &bits) {
    const unsigned dotOn = (1U << scale) - 1;
    unsigned waiting = 0; // the lowest bits of it
    int waitingBits = 0;
    bits.clear();
    for (; scale == 1 && dots.size() >= kBitsOfByte; dots = dots.subspan(kBitsOfByte))
        bits += static_cast<char>(~bitsOfEight(dots.data()));
    for (const std::uint8_t dot : dots) {
        waiting = waiting << scale | (dotOn * dot);
        for (waitingBits += scale; waitingBits >= kBitsOfByte; waitingBits -= kBitsOfByte)
            bits += static_cast<char>(~(waiting >> (waitingBits - kBitsOfByte)));
    }
    if (waitingBits > 0)
        bits += static_cast<char>(~(waiting << (kBitsOfByte - waitingBits)));
}

/// The compiled text as a PNG file, one dot `scale` by `scale` pixels, black on white:
/// the exit code. Unusable if that makes a picture beyond the limits, or a line wider than a
/// surface.
int writePng(const StyledText &text, int scale, const std::string &name) {
    const std::vector<ScreenLine> lines = screenLines(text);
    const std::int64_t width = screenWidth(lines);
    const std::int64_t height = lines.back().top + lines.back().height;
    const std::int64_t highest = std::min(kHighestPicture / scale, kMostPixels / (width * scale * scale));
    if (width > kLargestSide || height > highest)
        return unusable(name, "the text is too large for one picture");
    Output output(name);
    PngWriter png(static_cast<std::uint32_t>(width * scale), static_cast<std::uint32_t>(height * scale),
                  [&output](std::string_view piece) { output.append(piece); });
    std::string row;
    const std::int64_t band = std::min<std::int64_t>(kMostDots / width, kLargestSide);
    for (std::int64_t top = 0; top < height; top += band) {
        const std::int64_t bottom = std::min(top + band, height);
        DotSurface surface(static_cast<int>(width), static_cast<int>(bottom - top));
        drawLines(surface, text, linesBetween(lines, top, bottom), glyph, top);
        for (int y = 0; y < surface.height(); ++y) {
            packRow({surface.row(y), static_cast<std::size_t>(width)}, scale, row);
            for (int repeat = 0; repeat < scale; ++repeat)
                png.addRow(row);
        }
    }
    png.finish();
    return output.finish() ? Done : Unusable;
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
    const CompiledText compiled = compileText(documentFromFile(std::move(file)), *flavour);
    if (extension == "png")
        return writePng(compiled.text, scale, output);
    Output written(output);
    const ByteSink sink = [&written](std::string_view piece) { written.append(piece); };
    if (extension == "rtf")
        writeRtf(compiled.text, sink);
    else
        writePreviewJson(compiled, sink);
    return written.finish() ? Done : Unusable;
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
