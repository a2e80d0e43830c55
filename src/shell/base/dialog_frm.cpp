#include "shell/base/dialog_frm.h"

#include "shell/base/frame.h"
#include "shell/base/windows.h"

namespace zolt {

DialogFrm::DialogFrm(QWidget *owner) : QWidget(owner, Qt::Window | Qt::WindowStaysOnTopHint) {
    resize(pixels(100), pixels(100));
    for (std::size_t i = 0; i < m_dialogs.size(); ++i)
        m_dialogs[i] = new CommonDialog(QStringLiteral("Dialog%1").arg(i + 1), this);
    hide();
}

CommonDialog &commonDialog(DialogFrm::Client client) {
    return load<DialogFrm>(frameWindow()).dialog(client);
}

} // namespace zolt
