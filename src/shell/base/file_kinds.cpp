#include "shell/base/file_kinds.h"

#include <algorithm>
#include <string>

namespace zolt {

namespace {

struct Ending {
    std::string_view ending;
    FileKind kind;
};

/// The pictures' are those that the insert windows' dialogs show first.
constexpr Ending kEndings[] = {
    {".zlt", FileKind::TextDocument},
    {".txt", FileKind::TextDocument},
    {".zlg", FileKind::GraphicalDocument},
    {".rtf", FileKind::GraphicalDocument},
    {".bmp", FileKind::PcPicture},
    {".gif", FileKind::PcPicture},
    {".jpg", FileKind::PcPicture},
    {".jpeg", FileKind::PcPicture},
    {".jpe", FileKind::PcPicture},
    {".jfif", FileKind::PcPicture},
    {".ico", FileKind::PcPicture},
    {".cur", FileKind::PcPicture},
    {".gro", FileKind::Grob},
    {".grb", FileKind::Grob},
    {".zli", FileKind::ZoltImage},
    {".zls", FileKind::SymbolList},
};

} // namespace

FileKind kindOfFile(std::string_view name) {
    std::string small(name);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const Ending &known : kEndings)
        if (small.ends_with(known.ending))
            return known.kind;
    return FileKind::Unknown;
}

} // namespace zolt
