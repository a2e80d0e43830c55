#include "shell/base/file_kinds.h"

#include "core/path.h"

namespace zolt {

namespace {

struct Extension {
    std::string_view name;
    FileKind kind;
};

/// The pictures' are those that the insert windows' dialogs show first.
constexpr Extension kExtensions[] = {
    {"zlt", FileKind::TextDocument},
    {"txt", FileKind::TextDocument},
    {"zlg", FileKind::GraphicalDocument},
    {"rtf", FileKind::GraphicalDocument},
    {"bmp", FileKind::PcPicture},
    {"gif", FileKind::PcPicture},
    {"jpg", FileKind::PcPicture},
    {"jpeg", FileKind::PcPicture},
    {"jpe", FileKind::PcPicture},
    {"jfif", FileKind::PcPicture},
    {"ico", FileKind::PcPicture},
    {"cur", FileKind::PcPicture},
    {"gro", FileKind::Grob},
    {"grb", FileKind::Grob},
    {"zli", FileKind::ZoltImage},
    {"zls", FileKind::SymbolList},
};

} // namespace

FileKind kindOfFile(std::string_view name) {
    const std::string extension = extensionOf(name);
    for (const Extension &known : kExtensions)
        if (extension == known.name)
            return known.kind;
    return FileKind::Unknown;
}

} // namespace zolt
