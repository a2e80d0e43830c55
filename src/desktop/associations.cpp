#include "desktop/associations.h"

#include "core/file.h"
#include "desktop/exec_line.h"
#include "desktop/file_kinds.h"
#include "desktop/key_file.h"

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace zolt::desktop {

namespace {

/// A system's lists have some 100 KB.
constexpr std::uint64_t kLargestList = 16 << 20;

std::string textOf(const std::string &path) {
    return readFile(path, kLargestList).bytes;
}

bool isThere(const std::string &path) {
    return ::access(path.c_str(), F_OK) == 0;
}

bool isProgram(const std::string &path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

/// A program as an entry names it, found; empty if it isn't there.
std::string foundProgram(const std::string &name, const Folders &folders) {
    if (name.starts_with('/'))
        return isProgram(name) ? name : std::string();
    if (!name.empty() && name.find('/') == std::string::npos)
        for (const std::string &folder : folders.programs)
            if (isProgram(folder + "/" + name))
                return folder + "/" + name;
    return {};
}

/// The lists of one place, in the order in which they count.
struct Place {
    /// mimeapps.list, those of the running desktop before it.
    std::vector<std::string> lists;
    /// The folder of desktop entries, and its index by type; empty for a folder of settings.
    std::string entries;
    std::string cache;
};

std::vector<Place> placesOf(const Folders &folders) {
    std::vector<Place> places;
    const auto add = [&](const std::string &folder, bool hasEntries) {
        Place place;
        for (const std::string &name : folders.desktops)
            place.lists.push_back(textOf(folder + "/" + name + "-mimeapps.list"));
        place.lists.push_back(textOf(folder + "/mimeapps.list"));
        if (hasEntries) {
            place.lists.push_back(textOf(folder + "/defaults.list")); // an older name
            place.entries = folder;
            place.cache = textOf(folder + "/mimeinfo.cache");
        }
        places.push_back(std::move(place));
    };
    for (const std::string &folder : folders.config)
        add(folder, false);
    for (const std::string &folder : folders.data)
        add(folder + "/applications", true);
    return places;
}

/// The file of an entry: a "-" in its name may be a subfolder.
std::string entryIn(const std::string &folder, std::string name) {
    for (std::size_t dash = 0; dash != std::string::npos; dash = name.find('-', dash + 1)) {
        if (dash > 0)
            name[dash] = '/';
        if (isThere(folder + "/" + name))
            return folder + "/" + name;
    }
    return {};
}

class Lookup {
public:
    explicit Lookup(const Folders &folders) : m_folders(folders), m_places(placesOf(folders)) {}

    std::string programFor(const std::string &type) const {
        for (const std::string &entry : entriesFor(type))
            if (const std::string program = programOfEntry(entry); !program.empty())
                return program;
        return {};
    }

private:
    /// The entries named for a type: the defaults and then all others.
    std::vector<std::string> entriesFor(const std::string &type) const {
        std::vector<std::string> entries;
        const auto append = [&](const std::vector<std::string> &more) {
            entries.insert(entries.end(), more.begin(), more.end());
        };
        for (const Place &place : m_places)
            for (const std::string &list : place.lists)
                append(listOf(valueOf(list, "Default Applications", type)));
        std::vector<std::string> removed;
        const auto appendOthers = [&](std::vector<std::string> more) {
            std::erase_if(more, [&](const std::string &entry) {
                return std::ranges::find(removed, entry) != removed.end();
            });
            append(more);
        };
        for (const Place &place : m_places) {
            for (const std::string &list : place.lists) {
                appendOthers(listOf(valueOf(list, "Added Associations", type)));
                for (std::string &entry : listOf(valueOf(list, "Removed Associations", type)))
                    removed.push_back(std::move(entry));
            }
            std::vector<std::string> known = listOf(valueOf(place.cache, "MIME Cache", type));
            // An entry of the same name in a folder before this one stands for it.
            std::erase_if(known,
                          [&](const std::string &entry) { return folderOfEntry(entry) != place.entries; });
            appendOthers(std::move(known));
        }
        return entries;
    }

    std::string folderOfEntry(const std::string &entry) const {
        for (const Place &place : m_places)
            if (!place.entries.empty() && !entryIn(place.entries, entry).empty())
                return place.entries;
        return {};
    }

    /// The program of an entry that can be used; else empty.
    std::string programOfEntry(const std::string &entry) const {
        const std::string folder = folderOfEntry(entry);
        const std::string text = folder.empty() ? std::string() : textOf(entryIn(folder, entry));
        const auto value = [&](const char *key) { return valueOf(text, "Desktop Entry", key); };
        const std::string needed = value("TryExec");
        if (value("Hidden") == "true" || (!needed.empty() && foundProgram(needed, m_folders).empty()))
            return {};
        return foundProgram(programOf(value("Exec")), m_folders);
    }

    const Folders &m_folders;
    std::vector<Place> m_places;
};

} // namespace

std::string programFor(std::string_view extension, const Folders &folders) {
    FileKinds kinds;
    for (const std::string &folder : folders.data) {
        kinds.addGlobs(textOf(folder + "/mime/globs2"));
        kinds.addSubclasses(textOf(folder + "/mime/subclasses"));
    }
    const std::string point = extension.starts_with('.') ? "" : ".";
    const std::string type = kinds.typeOf("tmp0" + point + std::string(extension));
    if (type.empty())
        return {};
    const Lookup lookup(folders);
    for (const std::string &kind : kinds.withParents(type))
        if (std::string program = lookup.programFor(kind); !program.empty())
            return program;
    return {};
}

} // namespace zolt::desktop
