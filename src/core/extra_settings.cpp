#include "core/extra_settings.h"

#include "core/file.h"
#include "core/settings.h"

#include <charconv>
#include <sstream>
#include <string_view>

namespace zolt {

namespace {

struct Flag {
    std::string_view name;
    bool ExtraSettings::*value;
};

struct Number {
    std::string_view name;
    int ExtraSettings::*value;
};

constexpr Flag kFlags[] = {
    {"KeepThrownAway", &ExtraSettings::keepsThrownAway},
    {"LivePreview", &ExtraSettings::showsLivePreview},
    {"LivePreviewBelow", &ExtraSettings::livePreviewIsBelow},
    {"VisibleColumns", &ExtraSettings::showsColumns},
    {"ShowStyles", &ExtraSettings::showsStyles},
    {"ShowPictures", &ExtraSettings::showsPictures},
    {"ShowColumnLimit", &ExtraSettings::showsColumnLimit},
};

constexpr Number kNumbers[] = {
    {"LivePreviewSize", &ExtraSettings::livePreviewSize},
};

constexpr std::string_view kRecentFile = "RecentFile";

void readLine(std::string_view name, std::string_view value, ExtraSettings &settings) {
    for (const Flag &flag : kFlags)
        for (const bool on : {true, false})
            if (name == flag.name && value == flagText(on))
                settings.*flag.value = on;
    for (const Number &number : kNumbers)
        if (int read = 0; name == number.name) {
            const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), read);
            if (error == std::errc() && end == value.data() + value.size())
                settings.*number.value = read;
        }
    if (name == kRecentFile && !value.empty())
        settings.recentFiles.emplace_back(value);
}

} // namespace

ExtraSettings readExtraSettings(const std::string &path) {
    ExtraSettings settings;
    std::istringstream lines(readFile(path).bytes);
    for (std::string line; std::getline(lines, line);)
        if (const std::size_t sign = line.find('='); sign != std::string::npos)
            readLine(std::string_view(line).substr(0, sign), std::string_view(line).substr(sign + 1),
                     settings);
    return settings;
}

std::string writeExtraSettings(const std::string &path, const ExtraSettings &settings) {
    std::string file;
    const auto addLine = [&file](std::string_view name, std::string_view value) {
        file.append(name).append("=").append(value).append("\n");
    };
    for (const Flag &flag : kFlags)
        addLine(flag.name, flagText(settings.*flag.value));
    for (const Number &number : kNumbers)
        addLine(number.name, std::to_string(settings.*number.value));
    for (const std::string &name : settings.recentFiles)
        if (name.find('\n') == std::string::npos)
            addLine(kRecentFile, name);
    return writeFile(path, file);
}

} // namespace zolt
