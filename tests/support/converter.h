#pragma once

#include "images/dot_surface.h"
#include "support/other_programs.h"
#include "support/temporary_folder.h"

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace zolt::test {

/// Runs ImageMagick's convert with `arguments`.
inline bool runConvert(const std::string &arguments) {
    return std::system(("convert " + arguments + " 2>/dev/null").c_str()) == 0;
}

/// A grey picture, a byte to the pixel.
struct GreyPicture {
    int width = 0;
    int height = 0;
    std::string pixels;

    bool operator==(const GreyPicture &) const = default;
};

/// Takes a PGM file of one byte to the pixel apart.
inline GreyPicture greyPictureOfPgm(const std::string &bytes) {
    GreyPicture picture;
    int largest = 0;
    int length = 0;
    if (std::sscanf(bytes.c_str(), "P5 %d %d %d%n", &picture.width, &picture.height, &largest, &length) == 3)
        picture.pixels = bytes.substr(static_cast<std::size_t>(length) + 1);
    return picture;
}

/// What ImageMagick makes of files of one kind, in one call.
inline std::vector<GreyPicture> decodedByOther(const std::vector<std::string> &files,
                                               const std::string &kind) {
    const TemporaryFolder folder;
    std::string names;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string name = folder.file(std::to_string(i) + "." + kind);
        putBytes(name, files[i]);
        names += name + " ";
    }
    runConvert(names + "-depth 8 +adjoin " + folder.file("out-%d.pgm"));
    std::vector<GreyPicture> pictures;
    for (std::size_t i = 0; i < files.size(); ++i)
        pictures.push_back(greyPictureOfPgm(bytesOf(folder.file("out-" + std::to_string(i) + ".pgm"))));
    return pictures;
}

/// What a surface has to look like in a file: black on white, 2 by 2 pixels a dot.
inline GreyPicture expectedPicture(const DotSurface &surface) {
    GreyPicture picture{surface.width() * 2, surface.height() * 2, {}};
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            picture.pixels += surface.dot(x / 2, y / 2) ? '\0' : '\xFF';
    return picture;
}

enum class Pattern { White, Black, Noise, Stripes };

inline DotSurface surfaceOf(Pattern pattern, int width, int height) {
    DotSurface surface(width, height);
    std::uint32_t state = 48;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            state = state * 1664525 + 1013904223;
            const bool noise = pattern == Pattern::Noise && state >> 31;
            surface.setDot(x, y,
                           pattern == Pattern::Black || noise || (pattern == Pattern::Stripes && x % 3 == 0));
        }
    return surface;
}

} // namespace zolt::test
