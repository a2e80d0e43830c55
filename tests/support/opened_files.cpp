#include "support/opened_files.h"

#include <QDesktopServices>

namespace zolt::test {

OpenedFiles::OpenedFiles() {
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
}

OpenedFiles::~OpenedFiles() {
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void OpenedFiles::open(const QUrl &url) {
    paths << url.toLocalFile();
}

} // namespace zolt::test
