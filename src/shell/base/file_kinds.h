#pragma once

#include <string_view>

namespace zolt {

/// What the program does with a file that comes by its name alone.
enum class FileKind {
    Unknown,
    TextDocument,
    GraphicalDocument,
    PcPicture,
    Grob,
    ZoltImage,
    SymbolList,
};

/// By the name's ending, in capitals or small letters.
FileKind kindOfFile(std::string_view name);

constexpr bool isDocument(FileKind kind) {
    return kind == FileKind::TextDocument || kind == FileKind::GraphicalDocument;
}

} // namespace zolt
