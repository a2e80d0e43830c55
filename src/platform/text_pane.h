#pragma once

#include "platform/pane.h"
#include "platform/undo_selections.h"

#include <QByteArray>
#include <QPlainTextEdit>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QTextLine;

namespace zolt {

class PaneLayout;

/// The plain text box of the windows. Its text is bytes; a line end is CR LF and
/// counts as two characters; soft wrap adds nothing. Offsets are counted in
/// bytes from 0; one outside the text is taken as the nearest inside, and one
/// between CR and LF as the one before the pair.
///
/// Typed, pasted and dropped characters become the calculator's bytes, or the
/// nearest signs that it has (see bytesOfCharacter). Enter and any line end from
/// outside give CR LF; the Tab key types byte 9. Alt held while the keypad types
/// a decimal number types the byte of that number, with or without leading zeros.
/// Files, dropped or pasted, are not taken.
///
/// A key costs the same in a long document as in a short one: length, SelStart,
/// selEnd and lineOfOffset don't read the text.
class TextPane : public QPlainTextEdit, public Pane {
    Q_OBJECT
    Q_PROPERTY(QByteArray Text READ textProperty WRITE setTextProperty NOTIFY Change)
    Q_PROPERTY(QByteArray SelText READ selTextProperty WRITE setSelTextProperty)
    Q_PROPERTY(int SelStart READ selStartProperty WRITE setSelStartProperty)
    Q_PROPERTY(int SelLength READ selLengthProperty WRITE setSelLengthProperty)

public:
    /// A pane that wraps has a vertical scroll bar only, and breaks its lines at
    /// words, longer words anywhere. One that doesn't has both scroll bars.
    explicit TextPane(bool wraps, QWidget *parent = nullptr);

    QAbstractScrollArea &control() override { return *this; }
    const QAbstractScrollArea &control() const override { return *this; }
    PaneEvents &events() const override { return *m_events; }
    bool hasSelection() const override { return textCursor().hasSelection(); }
    void replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                     std::string_view replacement) override;
    void cut() override { QPlainTextEdit::cut(); }
    void copy() override { QPlainTextEdit::copy(); }
    void paste() override { QPlainTextEdit::paste(); }
    bool canPaste() const override { return QPlainTextEdit::canPaste(); }
    using Pane::hasFocus;
    std::string Text() const override;
    /// Replaces all and clears the undo history; the caret goes to 0.
    void setText(std::string_view bytes);
    /// Replaces all in one undo step; the caret goes to 0. Only the stretch that
    /// differs is edited.
    void replaceText(std::string_view bytes);
    /// Bytes of the text; doesn't read it.
    qsizetype length() const override;

    qsizetype SelStart() const override;
    /// Makes a caret at the offset.
    void setSelStart(qsizetype offset) override;
    /// Selects that many bytes from SelStart on, with the caret at their end.
    void setSelLength(qsizetype length) override;
    qsizetype selEnd() const override;
    std::string SelText() const override;
    /// Replaces the selection in one undo step, or inserts at the caret; the
    /// caret stands behind the new bytes.
    void setSelText(std::string_view bytes) override;

    /// Display line, from 0, of an offset: soft-wrapped lines count, and the
    /// offset of a soft break belongs to the line that it begins.
    int lineOfOffset(qsizetype offset) const override;
    int displayLineCount() const;
    /// Offset of the start of the display line that holds the caret.
    qsizetype lineStartOfCaret() const override;

    /// The font of the whole pane. What it lacks, such as marks for control
    /// characters, is taken from the font ZOLT.
    void setPaneFont(const QFont &font);
    void setColours(const QColor &text, const QColor &background);

public slots:
    /// One step back or forth in the whole history, with the selection that
    /// stood there.
    void undo() override;
    void redo() override;
    /// Brings back what the last step undid, whoever took that step; undoes the last
    /// change if there was a change or a redo since.
    void undoToggle() override;

public:
    /// Whether undoToggle would do something.
    bool canUndoToggle() const override;

signals:
    // Reported as they happen, after the pane has acted on them: text, caret and
    // display lines agree.
    void Change();
    void keyDown();
    void keyUp();
    void mouseDown(Qt::MouseButton button);
    void mouseUp(Qt::MouseButton button);
    /// A press and a release of the left button in the pane.
    void click();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    QByteArray textProperty() const { return QByteArray::fromStdString(Text()); }
    void setTextProperty(const QByteArray &bytes) { setText({bytes.constData(), std::size_t(bytes.size())}); }
    QByteArray selTextProperty() const { return QByteArray::fromStdString(SelText()); }
    void setSelTextProperty(const QByteArray &bytes) {
        setSelText({bytes.constData(), std::size_t(bytes.size())});
    }
    int selStartProperty() const { return static_cast<int>(SelStart()); }
    void setSelStartProperty(int offset) { setSelStart(offset); }
    int selLengthProperty() const { return static_cast<int>(SelLength()); }
    void setSelLengthProperty(int length) { setSelLength(length); }

    /// Between a QTextCursor's positions, in which a line end is one, and offsets.
    int positionOfOffset(qsizetype offset) const;
    qsizetype offsetOfPosition(int position) const;

    /// The display line that holds a position, always a valid one.
    QTextLine lineOfBlock(const QTextBlock &block, int position) const;
    int lineOfPosition(int position) const;

    PaneSelection selection() const;
    void select(PaneSelection selection);
    /// One undo step; the caret goes behind the new bytes if no place is given.
    void replaceRange(int from, int to, std::string_view bytes, std::optional<int> caret);
    std::string bytesBetween(int from, int to) const;
    /// The selection, which is `bytes`, goes to a place; nothing if that lies in it.
    void moveSelection(int place, const std::string &bytes);
    void walkHistory(void (QPlainTextEdit::*step)(),
                     std::optional<PaneSelection> (UndoSelections::*selectionAt)(int depth));

    void followSelection();
    void followContents(int from, int removed, int added);
    void reportChange();
    /// Makes line ends of the lone CRs at the positions and the lone LFs that a
    /// change brought behind them, within that change's undo step.
    void joinLineEnds(const std::vector<int> &positions);

    PaneEvents *m_events = new PaneEvents(this);
    PaneLayout *m_layout; // the document's
    UndoSelections m_undoSelections;
    PaneSelection m_lastSelection;    // before the change that is under way
    std::vector<int> m_splitLineEnds; // positions of such CRs in the change under way
    bool m_joinsLineEnd = false;
    bool m_holdsChange = false;       // Change is reported when the caret stands where it shall
    std::optional<int> m_typedNumber; // of a byte, while Alt is held
    bool m_walksHistory = false;      // an undo or redo is under way
    bool m_lastStepUndid = false;     // no change and no redo since the last undo
};

} // namespace zolt
