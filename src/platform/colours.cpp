#include "platform/colours.h"

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>

namespace zolt {

QColor qtColour(Colour value, QPalette::ColorRole otherwise) {
    const QPalette palette = QGuiApplication::palette();
    if (value == kSystemWindow)
        return palette.color(QPalette::Base);
    if (value == kSystemWindowText)
        return palette.color(QPalette::Text);
    if (value & 0x80000000)
        return palette.color(otherwise);
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                  static_cast<int>(value >> 16 & 0xFF));
}

Colour colourValue(const QColor &colour) {
    return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

Colour colourFromSetting(const std::string &text) {
    return static_cast<Colour>(std::strtoll(text.c_str(), nullptr, 10));
}

std::string settingFromColour(Colour value) { return std::to_string(static_cast<std::int32_t>(value)); }

} // namespace zolt
