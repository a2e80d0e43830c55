#pragma once

#include <QObject>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QAbstractScrollArea;

namespace zolt {

/// What a pane reports, after it has acted on it: text, caret and display lines agree.
class PaneEvents : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    void Change();
    /// The selection or the caret moved, by whatever.
    void selectionMoved();
    void keyDown();
    void keyUp();
    void mouseDown(Qt::MouseButton button);
    void mouseUp(Qt::MouseButton button);
    /// A press and a release of the left button in the pane.
    void click();
};

/// A text control as the windows know it, plain or rich. Its text is bytes; a line end
/// is CR LF and counts as two characters, a picture as one, soft wrap adds nothing.
/// Offsets are counted in bytes from 0; one outside the text is taken as the nearest
/// inside, and one between CR and LF as the one before the pair.
class Pane {
public:
    virtual ~Pane() = default;

    virtual QAbstractScrollArea &control() = 0;
    virtual const QAbstractScrollArea &control() const = 0;
    virtual PaneEvents &events() const = 0;
    /// Gives the pane the focus within its window.
    void takeFocus();
    bool hasFocus() const;

    virtual std::string Text() const = 0;
    /// Reads stretches of the text, as long as neither it nor the pane changes: `length`
    /// bytes from an offset on, or those that are left. One between CR and LF counts as it
    /// is. A few stretches cost what they are long; once many are read the text is copied.
    using Reader = std::function<std::string(std::size_t offset, std::size_t length)>;
    virtual Reader reader() const = 0;
    /// Bytes of the text; doesn't read it.
    virtual qsizetype length() const = 0;

    virtual qsizetype SelStart() const = 0;
    /// Makes a caret at the offset.
    virtual void setSelStart(qsizetype offset) = 0;
    qsizetype SelLength() const { return selEnd() - SelStart(); }
    /// Selects that many bytes from SelStart on, with the caret at their end.
    virtual void setSelLength(qsizetype length) = 0;
    virtual qsizetype selEnd() const = 0;
    virtual bool hasSelection() const = 0;
    virtual std::string SelText() const = 0;
    /// Replaces the selection in one undo step, or inserts at the caret; the caret
    /// stands behind the new bytes. In rich text they look like the selection's first
    /// character, or like what would be typed.
    virtual void setSelText(std::string_view bytes) = 0;
    /// Replaces several stretches of one length, at rising offsets, in one undo step;
    /// the caret goes to 0. In rich text each looks like its first character before.
    virtual void replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                             std::string_view replacement) = 0;

    /// Display line, from 0, of an offset: soft-wrapped lines count, and the offset of
    /// a soft break belongs to the line that it begins.
    virtual int lineOfOffset(qsizetype offset) const = 0;
    /// Offset of the start of the display line that holds the caret.
    virtual qsizetype lineStartOfCaret() const = 0;

    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;
    /// Whether the clipboard holds something to paste. Asking takes a while.
    virtual bool canPaste() const = 0;
    /// One step back or forth in the whole history, with the selection that stood there.
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// Brings back what the last step undid, whoever took that step; undoes the last
    /// change if there was a change or a redo since.
    virtual void undoToggle() = 0;
    /// Whether undoToggle would do something.
    virtual bool canUndoToggle() const = 0;
};

} // namespace zolt
