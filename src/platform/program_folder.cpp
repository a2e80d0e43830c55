#include "platform/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace zolt {

namespace {

bool isSystemFolder(const QString &folder) {
    for (const QString &root : {QStringLiteral("/usr"), QStringLiteral("/bin"), QStringLiteral("/sbin"),
                                QStringLiteral("/opt"), QStringLiteral("/snap"), QStringLiteral("/nix")})
        if (folder == root || folder.startsWith(root + u'/'))
            return true;
    return false;
}

std::string bytes(const QString &path) {
    return QFile::encodeName(path).toStdString();
}

/// Copies the files that come with the program, leaving those that stand there.
void provideFiles(const QString &folder) {
    const QDir source(QFile::decodeName(QByteArray::fromStdString(installedDataFolder())));
    for (const QString &name : {QStringLiteral("Default.zls"), QStringLiteral("ZOLTText.ico"),
                                QStringLiteral("ZOLTGraphic.ico"), QStringLiteral("ZOLT.html")})
        if (source.exists(name) && !QFile::exists(folder + u'/' + name))
            QFile::copy(source.filePath(name), folder + u'/' + name);
}

} // namespace

std::string installedDataFolder() {
    const QString own = QCoreApplication::applicationDirPath();
    for (const QString &candidate : {own, own + QStringLiteral("/../share/zolt")})
        if (QFile::exists(candidate + QStringLiteral("/fonts/ZOLT.ttf")))
            return bytes(QDir::cleanPath(candidate));
    return bytes(own);
}

std::string programFolder() {
    if (const QString home = qEnvironmentVariable("ZOLT_HOME"); !home.isEmpty()) {
        const QString folder = QDir::cleanPath(QDir(home).absolutePath());
        QDir().mkpath(folder);
        provideFiles(folder);
        return bytes(folder);
    }
    const QString own = QCoreApplication::applicationDirPath();
    if (QFile::exists(own + QStringLiteral("/ZOLT.ini")) ||
        (QFileInfo(own).isWritable() && !isSystemFolder(own))) {
        provideFiles(own);
        return bytes(own);
    }
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/zolt");
    QDir().mkpath(folder);
    provideFiles(folder);
    return bytes(folder);
}

} // namespace zolt
