#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace zolt::test {

inline double luminance(const QColor &colour) {
    const auto light = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF()) + 0.0722 * light(colour.blueF());
}

/// 1 to 21: https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio
inline double contrast(const QColor &one, const QColor &other) {
    const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
    return (bright + 0.05) / (dark + 0.05);
}

} // namespace zolt::test
