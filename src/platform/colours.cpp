#include "platform/colours.h"

#include <QGuiApplication>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace zolt {

namespace {

constexpr bool isOfSystem(Colour value) {
    return value & 0x80000000;
}

} // namespace

QColor qtColour(Colour value, QPalette::ColorRole otherwise) {
    const QPalette palette = QGuiApplication::palette();
    if (value == kSystemWindow)
        return palette.color(QPalette::Base);
    if (value == kSystemWindowText)
        return palette.color(QPalette::Text);
    if (isOfSystem(value))
        return palette.color(otherwise);
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                  static_cast<int>(value >> 16 & 0xFF));
}

QColor readableOn(const QColor &background) {
    // Where the contrast to black and to white is the same, by its measure in
    // https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio
    constexpr double kMiddle = 0.179;
    const auto light = [](float part) {
        return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const QColor colour = background.toRgb();
    const double luminance =
        0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF()) + 0.0722 * light(colour.blueF());
    return luminance > kMiddle ? Qt::black : Qt::white;
}

QColor textColourOn(Colour text, Colour background) {
    if (isOfSystem(text) && !isOfSystem(background))
        return readableOn(qtColour(background, QPalette::Base));
    return qtColour(text, QPalette::Text);
}

Colour colourValue(const QColor &colour) {
    return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

Colour colourFromSetting(const std::string &text) {
    return static_cast<Colour>(std::strtoll(text.c_str(), nullptr, 10));
}

std::string settingFromColour(Colour value) {
    return std::to_string(static_cast<std::int32_t>(value));
}

} // namespace zolt
