#pragma once

#include <QPointer>
#include <QWidget>

namespace zolt {

/// Changes the kind of a given window after it was made. Each property is read from the
/// window itself. A write says whether the window now has what was written; meanwhile the
/// window stays visible, where it is and with its focus, if it had any. Without a client
/// everything reads false and writing does nothing.
class clsStyle {
public:
    /// The window to work on; may be null.
    QWidget *Client() const { return m_client; }
    void setClient(QWidget *window) { m_client = window; }

    /// The system menu and the close button.
    bool ControlBox() const;
    bool setControlBox(bool on);
    /// Whether the user can change the size. A window that has a layout and isn't sizable
    /// takes the layout's size.
    bool Sizable() const;
    bool setSizable(bool on);
    /// A small title, and no entry of its own among the desktop's windows; else a dialog.
    bool ToolWindow() const;
    bool setToolWindow(bool on);
    bool TopMost() const;
    bool setTopMost(bool on);

private:
    void setFlags(Qt::WindowFlags flags);

    QPointer<QWidget> m_client;
};

} // namespace zolt
