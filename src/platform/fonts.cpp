#include "platform/fonts.h"

#include "platform/desktop.h"

#include <QDir>
#include <QFontDatabase>

namespace zolt {

bool loadFonts(const std::string &folder) {
    const QString plain = QStringLiteral("ZOLT");
    if (QFontDatabase::hasFamily(plain))
        return true;
    const QDir fonts(fromFileName(folder));
    for (const QString &file : fonts.entryList({QStringLiteral("*.ttf")}, QDir::Files, QDir::Name))
        QFontDatabase::addApplicationFont(fonts.filePath(file));
    return QFontDatabase::hasFamily(plain);
}

QFont zoltFont(const QString &name, double points) {
    QFont font(QStringList{name, QStringLiteral("ZOLT")});
    font.setPointSizeF(points);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

} // namespace zolt
