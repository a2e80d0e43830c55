#pragma once

class QToolBar;
class QWidget;

namespace zolt {

/// The ways of a document from one edition to the other.
enum class Road { TextToGraphical, PreviewToGraphical, GraphicalToTextual, SourceToTextual };

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
    /// Sends the document in use on a road: its window closes without a question, and the
    /// other edition's opens with what the road makes of it, as an unsaved document.
    virtual void send(Road road) = 0;
};

/// The one frame; null before it was made.
Frame *mainFrame();
/// The frame makes itself known; null once it goes.
void setMainFrame(Frame *frame);
/// The frame's window, or null.
QWidget *frameWindow();

} // namespace zolt
