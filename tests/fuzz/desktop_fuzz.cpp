#include "desktop/associations.h"
#include "desktop/exec_line.h"
#include "desktop/file_kinds.h"
#include "desktop/key_file.h"
#include "fuzz/memory_file.h"
#include "fuzz/require.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace {

using namespace zolt::desktop;
using zolt::test::require;

/// A word that can stand in a line of a file as it is.
std::string wordOf(std::string_view bytes) {
    std::string word(bytes);
    std::erase_if(word, [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '='; });
    return word.empty() || word.front() == '[' || word.front() == '#' ? "x" + word : word;
}

/// Every line of `file` but those of the key stands in `changed`, in the same order.
void checkOtherLines(std::string_view file, const std::string &changed, const std::string &key) {
    std::size_t at = 0;
    const std::vector<std::string> after = splitAt(changed, '\n');
    for (const std::string &line : splitAt(file, '\n')) {
        if (line.find(key) != std::string::npos)
            continue;
        while (at < after.size() && after[at] != line)
            ++at;
        require(at++ < after.size(), "a line lost");
    }
}

void checkKeyFile(std::string_view file, const std::string &word) {
    for (const char *group : {"Default Applications", "Desktop Entry"}) {
        for (const std::string &value : {word, std::string()}) {
            const std::string changed = withValue(file, group, word, value);
            require(valueOf(changed, group, word) == value, "another value than was put there");
            require(withValue(changed, group, word, value) == changed, "another file at the second time");
            checkOtherLines(file, changed, word);
        }
        const std::vector<std::string> pieces = listOf(valueOf(file, group, "text/plain"));
        const std::vector<std::string> first = withFirst(pieces, word);
        require(first.front() == word && without(first, word) == without(pieces, word), "another list");
    }
}

void checkExecLine(const std::string &program) {
    const std::string line = execLine(program);
    require(line.find_first_of("\n\r\t") == std::string::npos, "a value of several lines");
    require(program.empty() || programOf(line) == program, "another program than the line was made for");
}

void checkFileKinds(std::string_view file, const std::string &extension) {
    FileKinds kinds;
    kinds.addSubclasses(file);
    if (canBeExtension(extension)) {
        kinds.addGlobs("50:text/x-own:" + patternOf(extension) + "\n");
        require(kinds.typeOf("a." + extension) == "text/x-own", "an extension that its own pattern misses");
    }
    kinds.addGlobs(file);
    kinds.typeOf("a." + extension);
    std::vector<std::string> types = kinds.withParents("text/x-own");
    std::ranges::sort(types);
    require(std::ranges::adjacent_find(types) == types.end(), "a type that is its own parent");
    const std::string package = mimePackage(extension, extension, extension, extension, "x" + extension);
    require(std::ranges::count(package, '<') == 10 && std::ranges::count(package, '"') == 16,
            "a package whose texts are marks");
}

/// The folders of a desktop of which each file is the same one.
Folders foldersOf(const std::string &file) {
    static const zolt::test::TemporaryFolder folder;
    for (const char *name : {"data/mime", "data/applications", "config"})
        std::filesystem::create_directories(folder.file(name));
    for (const char *name : {"data/mime/globs2", "data/mime/subclasses", "data/applications/mimeinfo.cache",
                             "data/applications/a.desktop", "config/mimeapps.list"})
        std::filesystem::create_symlink(file, folder.file(name));
    return {{folder.file("data")}, {folder.file("config")}, {"desk"}, {"/bin"}};
}

void checkDesktop(std::string_view bytes, const std::string &extension) {
    static const zolt::test::MemoryFile file;
    static const Folders folders = foldersOf(file.path());
    file.put(bytes);
    const std::string program = programFor(extension, folders);
    require(program.empty() || program.front() == '/', "a program without its folder");
}

} // namespace

/// Files of a desktop: what is put into them is found there, and all else stays. Their
/// last line is the word that is put there and looked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    constexpr std::size_t kLongestWord = 12;
    const std::string_view file(reinterpret_cast<const char *>(data), size);
    const std::string_view end = file.substr(file.rfind('\n') + 1).substr(0, kLongestWord);
    checkKeyFile(file, wordOf(end));
    checkExecLine(std::string(end));
    checkFileKinds(file, std::string(end));
    checkDesktop(file, wordOf(end));
    return 0;
}
