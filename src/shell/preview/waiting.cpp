#include "shell/preview/waiting.h"

#include "shell/base/frame.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/preview/wait_frm.h"

namespace zolt {

Waiting::Waiting(QWidget &window, const QString &task)
    : m_window(&window), m_focus(window.focusWidget()), m_wait(&load<WaitFrm>(frameWindow())) {
    shared::CancelarOperação = 0;
    window.setEnabled(false);
    m_wait->setTask(task);
}

Waiting::~Waiting() {
    shared::CancelarOperação = 0;
    if (m_window)
        m_window->setEnabled(true);
    if (m_wait)
        m_wait->finish();
    if (m_window)
        m_window->activateWindow();
    if (m_focus)
        m_focus->setFocus();
}

Progress Waiting::progress() const {
    return m_wait->plainProgress();
}

} // namespace zolt
