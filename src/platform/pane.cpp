#include "platform/pane.h"

#include <QAbstractScrollArea>

namespace zolt {

void Pane::takeFocus() {
    control().setFocus();
}

bool Pane::hasFocus() const {
    return control().hasFocus();
}

} // namespace zolt
