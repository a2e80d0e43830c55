#pragma once

#include "platform/pane.h"
#include "platform/undo_selections.h"

#include <QByteArray>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zolt {

/// What the plain and the rich text control do alike, over Qt's control for either.
///
/// Typed characters become the calculator's bytes, or the nearest signs that it has (see
/// bytesOfCharacter). Enter gives CR LF, with Shift or without; the Tab key types byte 9.
/// Alt held while the keypad types a decimal number types the byte of that number, with or
/// without leading zeros.
///
/// Set read-only it is locked: keys move the caret, which stays visible, and nothing
/// types. The program's own setters work all the same.
///
/// length, SelStart, selEnd and the setters of the selection don't read the text.
template <class Edit> class PaneControl : public Edit, public Pane {
public:
    QAbstractScrollArea &control() override { return *this; }
    const QAbstractScrollArea &control() const override { return *this; }
    PaneEvents &events() const override { return *m_events; }
    using Edit::hasFocus;
    QTextCursor textCursor() const {
        fillUpTo(1);
        return Edit::textCursor();
    }

    std::string Text() const override;
    Reader reader() const override;
    qsizetype length() const override;
    qsizetype SelStart() const override;
    void setSelStart(qsizetype offset) override;
    void setSelLength(qsizetype length) override;
    qsizetype selEnd() const override;
    bool hasSelection() const override;
    std::string SelText() const override;

    void cut() override;
    void copy() override;
    void paste() override;
    bool canPaste() const override;
    void undo() override;
    void redo() override;
    void undoToggle() override;
    bool canUndoToggle() const override;

    /// `fill` puts a text in once somebody reads the pane or sees it: a hidden pane costs
    /// nothing until then. It reports no change.
    void fillLater(std::function<void()> fill);

protected:
    explicit PaneControl(QWidget *parent);

    /// While one stands nothing is reported; the end of the last one makes one step of
    /// undo of what happened meanwhile, as far as that is one for Qt, and reports it.
    class HeldChange {
    public:
        explicit HeldChange(PaneControl &pane) : m_pane(pane) { ++m_pane.m_holds; }
        ~HeldChange() {
            if (--m_pane.m_holds == 0)
                m_pane.tell();
        }
        HeldChange(const HeldChange &) = delete;
        HeldChange &operator=(const HeldChange &) = delete;

    private:
        PaneControl &m_pane;
    };

    /// The text between two positions of a QTextCursor.
    std::string bytesBetween(int from, int to) const;
    /// The bytes of characters that stand in the document.
    virtual std::string bytesOf(QStringView characters) const = 0;
    /// The characters in which bytes stand where the caret is.
    virtual QString characters(std::string_view bytes) const = 0;
    /// Where a selection ends that is to end at an offset.
    virtual int positionOfSelectionEnd(qsizetype offset) const { return positionOfOffset(offset); }
    /// A key that is the control's, with the characters that it types.
    virtual void takeKey(QKeyEvent &key) { Edit::keyPressEvent(&key); }
    /// Moves the selected text to a position outside the selection, in one undo step.
    virtual void moveSelection(int place) = 0;
    /// The text has changed between two positions; nothing may be edited now.
    virtual void noteContents(int /*from*/, int /*end*/) {}
    /// The change is done, but not reported. What is edited here belongs to it.
    virtual void finishChange() {}

    /// The start of a text is in, with the caret; `fill` puts in the rest of its `length`
    /// bytes once somebody asks for it.
    void fillRestLater(std::function<void()> fill, qsizetype length);
    /// So many bytes of it are in.
    void noteFilled(qsizetype bytes) { m_waiting->filled = bytes; }
    /// Puts in what waits.
    void fillNow() const;
    /// The same unless it is a hidden pane's whole text.
    void fillRest() const;
    /// The same if not so many bytes are in.
    void fillUpTo(qsizetype bytes) const;
    /// Nothing waits any more.
    void forgetFill() { m_waiting.reset(); }
    /// Begins a new history for a text that was put in whole.
    void beginHistory();
    /// Follows the document that the control has from now on.
    void followDocument();
    /// Edits that follow belong to the undo step of the last change.
    void extendStep(const std::function<void(QTextCursor &cursor)> &edit);
    /// Keeps what follows out of the undo step of the last change: Qt joins typing to the
    /// last insertion of a modified document.
    void endStep();

    int positionOfOffset(qsizetype offset) const;
    qsizetype offsetOfPosition(int position) const;
    /// A cursor over a part of the text.
    QTextCursor cursorOver(int from, int to) const;
    PaneSelection selection() const;
    void select(PaneSelection selection);
    void placeCaret(int position) { select({position, position}); }

    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    QByteArray textProperty() const { return QByteArray::fromStdString(Text()); }
    QByteArray selTextProperty() const { return QByteArray::fromStdString(SelText()); }
    void setSelTextProperty(const QByteArray &bytes) { setSelText(viewOf(bytes)); }
    int selStartProperty() const { return static_cast<int>(SelStart()); }
    void setSelStartProperty(int offset) { setSelStart(offset); }
    int selLengthProperty() const { return static_cast<int>(SelLength()); }
    void setSelLengthProperty(int length) { setSelLength(length); }
    static std::string_view viewOf(const QByteArray &bytes) {
        return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
    }

private:
    void takeKeyOrLeaveIt(QKeyEvent &event);
    void walkHistory(void (Edit::*step)(), std::optional<PaneSelection> (UndoSelections::*selectionAt)(int));
    void followSelection();
    void followContents(int from, int removed, int added);
    void followChange();
    void tell();

    PaneEvents *m_events; // a child
    /// A text that isn't all in the control.
    struct Waiting {
        std::function<void()> fill;
        /// Bytes that are in, and all of them; 0 while none is.
        qsizetype filled = 0;
        qsizetype length = 0;
    };
    mutable std::optional<Waiting> m_waiting;
    UndoSelections m_undoSelections;
    PaneSelection m_toldSelection; // as it was before the change that is under way
    int m_holds = 0;
    bool m_changed = false;           // and not yet reported
    bool m_extendsStep = false;       // an edit of extendStep is under way
    bool m_walksHistory = false;      // an undo or redo is under way
    bool m_lastStepUndid = false;     // no change and no redo since the last undo
    std::optional<int> m_typedNumber; // of a byte, while Alt is held
};

extern template class PaneControl<QPlainTextEdit>;
extern template class PaneControl<QTextEdit>;

} // namespace zolt
