#include "platform/dropped_files.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSysInfo>
#include <QUrl>

namespace zolt {

namespace {

/// Some programs name this machine in the addresses of its files.
bool isHere(const QUrl &address) {
    const QString host = address.host();
    return address.isLocalFile() && (host.isEmpty() || host == QStringLiteral("localhost") ||
                                     host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0);
}

/// A name's bytes need not be UTF-8.
std::string pathOf(const QUrl &address) {
    return QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

} // namespace

DroppedFiles filesOf(const QMimeData &source) {
    DroppedFiles files;
    const QList<QUrl> addresses = source.urls();
    for (const QUrl &address : addresses)
        if (isHere(address))
            files.paths.push_back(pathOf(address));
        else
            ++files.others;
    return files;
}

void takeAsCopy(QDropEvent &event) {
    if (!event.possibleActions().testFlag(Qt::CopyAction))
        return event.ignore();
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace zolt
