#pragma once

#include "shell/base/tool_frm.h"

#include <QList>
#include <QPointer>
#include <array>

class QRect;

namespace zolt {

class FullscreenLeaveFrm;
class Pane;

/// The document in use alone on the whole screen, for editing, in a pane of its own. The
/// document takes the text back, as one step of undo, when this window closes, by whatever
/// way, and before the document window or the frame closes. The two editions' windows are
/// its heirs.
class FullscreenFrm : public ToolFrm {
    Q_OBJECT

public:
    /// Takes the document in use and covers the screen that the frame is on.
    void enter();

signals:
    /// The document has its text back.
    void left();

protected:
    /// `newPane` makes a pane, one that wraps its lines for Text1, one that doesn't for Text2.
    FullscreenFrm(Pane *(*newPane)(bool wraps, QWidget *parent), QWidget *owner);

    /// Puts the document of a pane into one of this window, with its look.
    virtual void take(const Pane &document, Pane &pane) = 0;
    /// Makes the document that of a pane of this window, in one step of undo.
    virtual void giveBack(const Pane &pane, Pane &document) = 0;
    /// What is typed next looks alike in both panes.
    virtual void copyTypedLook(const Pane & /*from*/, Pane & /*to*/) {}
    /// The small window that leaves this one.
    virtual FullscreenLeaveFrm &loadLeaveWindow() = 0;

    void closing() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The pane that TxtWWrap names.
    Pane &pane() const;
    void coverScreen();
    /// The tools beside the document would write into its pane, which waits.
    void disableTools();
    void giveDocumentBack();
    void copyCaret(const Pane &from, Pane &to);
    void switchToLeaveWindow();
    void keepCaretInSight();
    /// On the screen: the caret, and the pane without its scroll bars.
    QRect caret() const;
    QRect room() const;

    std::array<Pane *, 2> m_panes{};
    FullscreenLeaveFrm *m_leaveWindow = nullptr; // a child
    QPointer<QWidget> m_document;
    QList<QPointer<QWidget>> m_disabledTools;
    bool m_touched = false;
};

} // namespace zolt
