#include "desktop/registration.h"

#include "core/file.h"
#include "desktop/exec_line.h"
#include "desktop/file_kinds.h"
#include "desktop/key_file.h"
#include "desktop_entry_text.h"

#include <cstdio>
#include <filesystem>

namespace zolt::desktop {

namespace {

/// The name of this program's entry, wherever it is installed.
constexpr char kEntry[] = "zolt.desktop";
constexpr char kGroup[] = "Desktop Entry";

/// A file's bytes; none if it isn't there. False if it can't be read.
bool readIfThere(const std::string &path, std::string &bytes) {
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return !error;
    FileContents file = readFile(path);
    bytes = std::move(file.bytes);
    return file.ok();
}

/// Writes a file that isn't so already, and the folders that it needs.
std::string put(const std::string &path, const std::string &bytes) {
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    if (error)
        return error.message();
    const FileContents before = readFile(path);
    return before.ok() && before.bytes == bytes ? std::string() : writeFile(path, bytes);
}

/// Changes a file by a function of its bytes. One that can't be read stays as it is.
template <class Change> std::string change(const std::string &path, Change changed) {
    std::string bytes;
    return readIfThere(path, bytes) ? put(path, changed(bytes)) : path + " can't be read";
}

/// A file name that says which extension the type is given.
std::string packageName(std::string_view extension) {
    std::string name = "zolt-";
    for (const char c : inSmallLetters(std::string(extension))) {
        char hexadecimal[4];
        std::snprintf(hexadecimal, sizeof hexadecimal, "%%%02X", static_cast<unsigned char>(c));
        const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        name += plain ? std::string(1, c) : hexadecimal;
    }
    return name + ".xml";
}

/// The type that others give an extension. It goes on as the new type's parent: the
/// programs that opened those files are still offered for them.
std::string typeByOthers(std::string_view extension, const Folders &folders) {
    FileKinds kinds;
    for (const std::string &folder : folders.data)
        kinds.addGlobs(readFile(folder + "/mime/globs2").bytes);
    return kinds.typeOf("name." + std::string(extension), kOwnTypes);
}

std::string entryFor(std::string entry, std::string_view program, const std::string &type) {
    if (valueOf(entry, kGroup, "Exec").empty())
        entry = kDesktopEntryText;
    if (programOf(valueOf(entry, kGroup, "Exec")) != program)
        entry = withValue(entry, kGroup, "Exec", execLine(program));
    for (const char *unusable : {"Hidden", "TryExec"})
        entry = withValue(entry, kGroup, unusable, "");
    std::vector<std::string> types = listOf(valueOf(entry, kGroup, "MimeType"));
    types = without(std::move(types), type);
    types.push_back(type);
    return withValue(entry, kGroup, "MimeType", listValue(types));
}

std::string listFor(std::string list, const std::string &type) {
    constexpr char kDefaults[] = "Default Applications";
    constexpr char kRemoved[] = "Removed Associations";
    const auto removed = without(listOf(valueOf(list, kRemoved, type)), kEntry);
    list = withValue(list, kRemoved, type, listValue(removed));
    return withValue(list, kDefaults, type,
                     listValue(withFirst(listOf(valueOf(list, kDefaults, type)), kEntry)));
}

} // namespace

std::string registerType(std::string_view extension, std::string_view program, std::string_view format,
                         const Folders &folders) {
    const std::string &data = folders.data.front();
    const std::string &config = folders.config.front();
    if (!canBeExtension(extension))
        return "no file names end so";
    if (data.empty() || config.empty())
        return "there is no home folder";
    const std::string type = mimeTypeOf(format);
    std::string reason = put(
        data + "/mime/packages/" + packageName(extension),
        mimePackage(type, format, iconNameOf(type), patternOf(extension), typeByOthers(extension, folders)));
    if (reason.empty())
        reason = change(data + "/applications/" + kEntry,
                        [&](const std::string &entry) { return entryFor(entry, program, type); });
    if (reason.empty())
        reason =
            change(config + "/mimeapps.list", [&](const std::string &list) { return listFor(list, type); });
    return reason;
}

} // namespace zolt::desktop
