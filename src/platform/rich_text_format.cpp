// Character formats between RichText and Qt.

#include "platform/rich_text_document.h"

#include "core/codes.h"

#include <QBrush>
#include <QColor>
#include <algorithm>
#include <cmath>
#include <limits>

namespace zolt {

namespace {

constexpr double kDefaultPoints = 10;
constexpr int kColourProperty = QTextFormat::UserProperty + 1;
constexpr Colour kSystemColour = 0x80000000;

QStringList familiesOf(const std::string &font) {
    const QString plain = QString::fromLatin1(kPlainFont.data(), kPlainFont.size());
    const QString name = QString::fromLatin1(font);
    return name == plain ? QStringList{plain} : QStringList{name, plain};
}

} // namespace

QTextCharFormat qtFontName(const std::string &font) {
    QTextCharFormat format;
    format.setFontFamilies(familiesOf(font));
    // As zoltFont: each character on its own column, each dot on whole pixels.
    format.setFontKerning(false);
    format.setFontHintingPreference(QFont::PreferNoHinting);
    return format;
}

QTextCharFormat qtFontSize(double points) {
    QTextCharFormat format;
    format.setFontPointSize(points);
    return format;
}

QTextCharFormat qtTextColour(Colour colour) {
    QTextCharFormat format;
    // Without a brush the text takes the control's own colour.
    if (colour & kSystemColour)
        format.setForeground(Qt::NoBrush);
    else
        format.setForeground(QColor(colour & 255, colour >> 8 & 255, colour >> 16 & 255));
    format.setProperty(kColourProperty, QVariant::fromValue<uint>(colour));
    return format;
}

QTextCharFormat qtFormat(const CharFormat &format, const std::string &font) {
    QTextCharFormat result = qtFontName(font);
    result.merge(qtFontSize(format.halfPoints / 2.0));
    result.merge(qtTextColour(format.colour));
    result.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
    result.setFontItalic(format.italic);
    result.setFontUnderline(format.underline);
    result.setFontStrikeOut(format.strikeThru);
    return result;
}

std::string fontNameOf(const QTextCharFormat &format) {
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? std::string(kPlainFont) : families.first().toLatin1().toStdString();
}

FontKind fontKindOf(const QTextCharFormat &format) {
    return fontKind(fontNameOf(format));
}

double fontSizeOf(const QTextCharFormat &format) {
    return format.hasProperty(QTextFormat::FontPointSize) ? format.fontPointSize() : kDefaultPoints;
}

Colour textColourOf(const QTextCharFormat &format) {
    return format.hasProperty(kColourProperty) ? format.property(kColourProperty).toUInt() : kWindowText;
}

CharFormat charFormatOf(const QTextCharFormat &format) {
    CharFormat result;
    const double halfPoints =
        std::clamp<double>(std::round(fontSizeOf(format) * 2), 1, std::numeric_limits<std::uint16_t>::max());
    result.halfPoints = static_cast<std::uint16_t>(halfPoints);
    result.colour = textColourOf(format);
    result.bold = format.fontWeight() >= QFont::DemiBold;
    result.italic = format.fontItalic();
    result.underline = format.fontUnderline();
    result.strikeThru = format.fontStrikeOut();
    return result;
}

} // namespace zolt
