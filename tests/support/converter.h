#pragma once

#include "images/dot_surface.h"
#include "support/other_programs.h"
#include "support/temporary_folder.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace zolt::test {

/// Runs ImageMagick's convert with `arguments`.
inline bool runConvert(const std::string &arguments) {
    return std::system(("convert " + arguments + " 2>/dev/null").c_str()) == 0;
}

/// The pixels that ImageMagick sees in files of one kind, a grey byte each, in one call.
inline std::vector<std::string> decodedByOther(const std::vector<std::string> &files,
                                               const std::string &kind) {
    const TemporaryFolder folder;
    std::string names;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string name = folder.file(std::to_string(i) + "." + kind);
        putBytes(name, files[i]);
        names += name + " ";
    }
    runConvert(names + "-depth 8 +adjoin " + folder.file("out-%d.gray"));
    std::vector<std::string> pictures;
    for (std::size_t i = 0; i < files.size(); ++i)
        pictures.push_back(bytesOf(folder.file("out-" + std::to_string(i) + ".gray")));
    return pictures;
}

/// What a surface has to look like in a file: black on white, 2 by 2 pixels a dot.
inline std::string expectedPixels(const DotSurface &surface) {
    std::string pixels;
    for (int y = 0; y < surface.height() * 2; ++y)
        for (int x = 0; x < surface.width() * 2; ++x)
            pixels += surface.dot(x / 2, y / 2) ? '\0' : '\xFF';
    return pixels;
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
