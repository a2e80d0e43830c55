#include "platform/desktop.h"

#include "core/charset.h"
#include "core/utf8.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace zolt {

bool openInDesktop(const std::string &path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(fromFileName(path)));
}

QString fromWindows(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes)
        text += QChar(static_cast<char16_t>(windowsCharacter(static_cast<unsigned char>(byte))));
    return text;
}

std::string windowsBytes(const QString &text) {
    return windowsFromUtf8(text.toStdString());
}

QString fromFileName(const std::string &bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

std::string fileNameBytes(const QString &name) {
    return QFile::encodeName(name).toStdString();
}

} // namespace zolt
