#pragma once

#include <QWidget>

namespace zolt {

/// The picture that stands on the screen while the program starts.
class SplashFrm : public QWidget {
    Q_OBJECT

public:
    explicit SplashFrm(QWidget *owner);
};

} // namespace zolt
