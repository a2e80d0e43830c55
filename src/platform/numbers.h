#pragma once

#include <QLocale>
#include <QString>
#include <optional>

namespace zolt {

/// The number that a text is by a locale's rules. A comma or a point that they give no
/// meaning is a decimal sign: "2,5" and "2.5" are one number, but where the sign parts
/// thousands "2,500" is 2500. Nothing for a text that is none, or no finite one.
std::optional<double> numberFromText(const QString &text, const QLocale &locale = QLocale());

/// A number with as many decimals as it needs, six digits at most.
QString textFromNumber(double number, QLocale locale = QLocale());

} // namespace zolt
