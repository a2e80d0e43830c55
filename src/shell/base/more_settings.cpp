#include "shell/base/more_settings.h"

#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"

namespace zolt {

namespace {

ExtraSettings theSettings;

std::string fileOfSettings() {
    return shared::programFolder + "/ZOLT.more";
}

} // namespace

const ExtraSettings &extraSettings() {
    return theSettings;
}

void loadExtraSettings() {
    theSettings = readExtraSettings(fileOfSettings());
}

void changeExtraSettings(const std::function<void(ExtraSettings &)> &change) {
    loadExtraSettings();
    const ExtraSettings before = theSettings;
    change(theSettings);
    if (theSettings != before)
        savedOrSaid(fileOfSettings(), writeExtraSettings(fileOfSettings(), theSettings));
}

} // namespace zolt
