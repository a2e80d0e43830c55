#include "core/extra_settings.h"

#include "core/file.h"
#include "core/settings.h"

#include <sstream>

namespace zolt {

namespace {

struct Flag {
    const char *name;
    bool ExtraSettings::*value;
};

constexpr Flag kFlags[] = {
    {"KeepThrownAway", &ExtraSettings::keepsThrownAway},
};

} // namespace

ExtraSettings readExtraSettings(const std::string &path) {
    ExtraSettings settings;
    std::istringstream lines(readFile(path).bytes);
    for (std::string line; std::getline(lines, line);)
        for (const Flag &flag : kFlags)
            for (const bool on : {true, false})
                if (line == std::string(flag.name) + "=" + flagText(on))
                    settings.*flag.value = on;
    return settings;
}

std::string writeExtraSettings(const std::string &path, const ExtraSettings &settings) {
    std::string file;
    for (const Flag &flag : kFlags)
        file.append(flag.name).append("=").append(flagText(settings.*flag.value)).append("\n");
    return writeFile(path, file);
}

} // namespace zolt
