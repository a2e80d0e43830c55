#pragma once

#include <string>

namespace zolt {

/// Settings beside those of ZOLT.ini, whose lines are fixed.
struct ExtraSettings {
    /// Whether texts that are thrown away on purpose can be had back for a while.
    bool keepsThrownAway = true;

    bool operator==(const ExtraSettings &) const = default;
};

/// From a file of lines "Name=True" or "Name=False"; what is missing or unknown there is
/// as in a new ExtraSettings. A failure to write gives its reason.
ExtraSettings readExtraSettings(const std::string &path);
std::string writeExtraSettings(const std::string &path, const ExtraSettings &settings);

} // namespace zolt
