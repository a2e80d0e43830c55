#pragma once

#include <QPointer>
#include <utility>

namespace zolt {

/// A dialog that another window owns: it dies with that window, which may close while
/// the dialog stands, or at the end of its use, whichever comes first.
template <class Dialog> class OwnedDialog {
public:
    template <class... Arguments>
    explicit OwnedDialog(Arguments &&...arguments)
        : m_dialog(new Dialog(std::forward<Arguments>(arguments)...)) {}
    ~OwnedDialog() { delete m_dialog.data(); }
    OwnedDialog(const OwnedDialog &) = delete;
    OwnedDialog &operator=(const OwnedDialog &) = delete;

    Dialog &operator*() const { return *m_dialog; }
    Dialog *operator->() const { return m_dialog; }

private:
    QPointer<Dialog> m_dialog;
};

} // namespace zolt
