#include "platform/picture_label.h"

#include <QMouseEvent>

namespace zolt {

void PictureLabel::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        emit click();
}

void PictureLabel::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        emit doubleClick();
}

} // namespace zolt
