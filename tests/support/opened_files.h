#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>

namespace zolt::test {

/// Takes the files that the program opens in the desktop, while it lives.
class OpenedFiles : public QObject {
    Q_OBJECT

public:
    OpenedFiles();
    ~OpenedFiles() override;

    QStringList paths;

public slots:
    void open(const QUrl &url);
};

} // namespace zolt::test
