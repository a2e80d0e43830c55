#pragma once

#include "core/progress.h"

#include <QPointer>
#include <QWidget>

namespace zolt {

class WaitFrm;

/// Puts a window out of use while work on its behalf is shown in WaitFrm, whose Cancel
/// sets CancelarOperação.
class Waiting {
public:
    Waiting(QWidget &window, const QString &task);
    ~Waiting();
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

    Progress progress() const;

private:
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_focus;
    QPointer<WaitFrm> m_wait;
};

} // namespace zolt
