#include "shell/base/recent_files.h"

#include "shell/base/more_settings.h"

namespace zolt {

void rememberFile(const std::string &path) {
    changeExtraSettings([&path](ExtraSettings &settings) {
        std::erase(settings.recentFiles, path);
        settings.recentFiles.insert(settings.recentFiles.begin(), path);
        if (settings.recentFiles.size() > kRecentFiles)
            settings.recentFiles.resize(kRecentFiles);
    });
}

void forgetFile(const std::string &path) {
    changeExtraSettings([&path](ExtraSettings &settings) { std::erase(settings.recentFiles, path); });
}

} // namespace zolt
