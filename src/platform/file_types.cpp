#include "platform/file_types.h"

#include "core/file.h"
#include "desktop/associations.h"
#include "desktop/file_kinds.h"
#include "desktop/folders.h"
#include "desktop/registration.h"
#include "platform/desktop.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <utility>

namespace zolt {

namespace {

/// The sizes in dots that every icon theme has folders for.
constexpr int kThemeSizes[] = {16, 22, 24, 32, 36, 48, 64, 72, 96, 128, 192, 256};

QString dataFolder() {
    return fromFileName(desktop::foldersOfUser().data.front());
}

QString themeFolder() {
    return dataFolder() + QStringLiteral("/icons/hicolor");
}

/// A failure leaves the files without that picture.
void putPicture(const QString &path, const QByteArray &bytes) {
    QDir().mkpath(QFileInfo(path).path());
    writeFile(fileNameBytes(path), bytes.toStdString());
}

QByteArray pngOf(const QImage &image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

/// Puts the images of an icon file into the user's icons, each at its size.
void putTypeIcon(const std::string &icon, const QString &name) {
    QImageReader reader(fromFileName(icon));
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const QImage image = reader.read();
        if (image.width() == image.height() && std::ranges::count(kThemeSizes, image.width()) == 1)
            putPicture(
                QStringLiteral("%1/%2x%2/mimetypes/%3.png").arg(themeFolder()).arg(image.width()).arg(name),
                pngOf(image));
    }
}

/// The program's own picture, which its entry names, where no installation has brought it.
void putProgramIcon() {
    const QString place = QStringLiteral("icons/hicolor/scalable/apps/zolt.svg");
    if (!QStandardPaths::locate(QStandardPaths::GenericDataLocation, place).isEmpty())
        return;
    QFile picture(QStringLiteral(":/icons/zolt.svg"));
    if (picture.open(QFile::ReadOnly))
        putPicture(dataFolder() + u'/' + place, picture.readAll());
}

/// Desktops read indexes of these folders; without the programs that make them they take
/// notice in their own time.
void refreshDesktop() {
    std::error_code ignored;
    // An index of icons counts no more once its folder is newer.
    std::filesystem::last_write_time(fileNameBytes(themeFolder()),
                                     std::filesystem::file_time_type::clock::now(), ignored);
    for (const auto &[program, folder] : {std::pair{"update-mime-database", "/mime"},
                                          std::pair{"update-desktop-database", "/applications"}}) {
        const QString path = QStandardPaths::findExecutable(QString::fromUtf8(program));
        if (path.isEmpty())
            continue;
        QProcess update;
        update.setProgram(path);
        update.setArguments({dataFolder() + QString::fromUtf8(folder)});
        update.setStandardOutputFile(QProcess::nullDevice());
        update.setStandardErrorFile(QProcess::nullDevice());
        update.startDetached();
    }
}

/// Refreshes once for all types that are registered together.
void refreshSoon() {
    static bool waits = false;
    if (std::exchange(waits, true))
        return;
    QTimer::singleShot(0, qApp, [] {
        waits = false;
        refreshDesktop();
    });
}

} // namespace

std::string RegistarTipoDeFicheiro(const std::string &extension, const std::string &program,
                                   const std::string &format, const std::string &icon) {
    const std::string reason = desktop::registerType(extension, program, format, desktop::foldersOfUser());
    if (!reason.empty())
        return reason;
    putTypeIcon(icon, QString::fromStdString(desktop::iconNameOf(desktop::mimeTypeOf(format))));
    putProgramIcon();
    refreshSoon();
    return {};
}

std::string ProgramaAssociado(const std::string &extension) {
    return desktop::programFor(extension, desktop::foldersOfUser());
}

bool opensInThisProgram(const std::string &extension, const std::string &program) {
    std::error_code error;
    return std::filesystem::equivalent(ProgramaAssociado(extension), program, error);
}

} // namespace zolt
