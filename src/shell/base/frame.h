#pragma once

class QToolBar;
class QWidget;

namespace zolt {

/// What the other windows know of the main frame.
class Frame {
public:
    virtual ~Frame() = default;

    /// The frame as a window: what others stand before, disable and hide.
    virtual QWidget &window() = 0;
    /// Activates the frame and gives the focus to the document's pane, or to the frame
    /// itself without a document.
    virtual void takeFocusBack() = 0;
    /// Shows the quick bar as CharTool says: nowhere, floating or docked.
    virtual void applyCharTool() = 0;
};

/// The one frame; null before it was made.
Frame *mainFrame();
/// The frame makes itself known; null once it goes.
void setMainFrame(Frame *frame);
/// The frame's window, or null.
QWidget *frameWindow();

} // namespace zolt
