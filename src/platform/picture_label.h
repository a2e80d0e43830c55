#pragma once

#include <QLabel>

namespace zolt {

/// A picture that reports clicks.
class PictureLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

signals:
    void click();
    void doubleClick();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
};

} // namespace zolt
