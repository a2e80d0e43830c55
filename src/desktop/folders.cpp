#include "desktop/folders.h"

#include "desktop/key_file.h"

#include <cstdlib>

namespace zolt::desktop {

namespace {

std::string variable(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}

/// The absolute folders of a list with colons; others don't count.
std::vector<std::string> foldersIn(std::string_view list) {
    std::vector<std::string> folders;
    for (std::string &folder : splitAt(list, ':')) {
        while (folder.size() > 1 && folder.ends_with('/'))
            folder.pop_back();
        if (folder.starts_with('/'))
            folders.push_back(std::move(folder));
    }
    return folders;
}

/// The user's folder and then the system's, each as its variable says or else by default.
std::vector<std::string> foldersBy(const char *own, const char *inHome, const char *all,
                                   const char *standard) {
    std::vector<std::string> folders = foldersIn(variable(own));
    folders.resize(1);
    if (const std::string home = variable("HOME"); folders[0].empty() && home.starts_with('/'))
        folders[0] = home + inHome;
    std::vector<std::string> others = foldersIn(variable(all));
    if (others.empty())
        others = foldersIn(standard);
    folders.insert(folders.end(), others.begin(), others.end());
    return folders;
}

} // namespace

Folders foldersOfUser() {
    Folders folders;
    folders.data =
        foldersBy("XDG_DATA_HOME", "/.local/share", "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    folders.config = foldersBy("XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg");
    folders.desktops = splitAt(inSmallLetters(variable("XDG_CURRENT_DESKTOP")), ':');
    folders.programs = foldersIn(variable("PATH"));
    return folders;
}

} // namespace zolt::desktop
