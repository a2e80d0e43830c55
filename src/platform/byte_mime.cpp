#include "platform/byte_mime.h"

#include "platform/held_text.h"

#include <QMimeData>
#include <QUrl>
#include <algorithm>

namespace zolt {

namespace {

QString ownType() {
    return QString::fromLatin1(kPaneBytesMimeType);
}

bool carriesFiles(const QMimeData &source) {
    const QList<QUrl> urls = source.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

QMimeData *mimeOfBytes(std::string_view bytes) {
    auto *mime = new QMimeData;
    mime->setData(ownType(), QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
    mime->setText(outsideText(bytes));
    return mime;
}

bool offersBytes(const QMimeData &source) {
    return source.hasFormat(ownType()) || (source.hasText() && !carriesFiles(source));
}

std::string bytesOfMime(const QMimeData &source) {
    return source.hasFormat(ownType()) ? source.data(ownType()).toStdString()
                                       : bytesOfOutsideText(source.text());
}

} // namespace zolt
