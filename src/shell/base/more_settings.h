#pragma once

#include "core/extra_settings.h"

#include <functional>

namespace zolt {

/// The settings of the file beside ZOLT.ini. They are written at once, not at the end:
/// another program that runs may change them too.

const ExtraSettings &extraSettings();
void loadExtraSettings();
/// Changes what the file holds by now, and writes it. A failure is said in the status bar.
void changeExtraSettings(const std::function<void(ExtraSettings &)> &change);

} // namespace zolt
