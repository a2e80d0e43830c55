#include "platform/numbers.h"

#include <cmath>

namespace zolt {

std::optional<double> numberFromText(const QString &text, const QLocale &locale) {
    const QString trimmed = text.trimmed();
    bool isNumber = false;
    double number = locale.toDouble(trimmed, &isNumber);
    if (!isNumber) {
        QLocale plain = QLocale::c();
        plain.setNumberOptions(QLocale::RejectGroupSeparator);
        number = plain.toDouble(QString(trimmed).replace(u',', u'.'), &isNumber);
    }
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QString textFromNumber(double number, QLocale locale) {
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(number, 'g', 6);
}

} // namespace zolt
