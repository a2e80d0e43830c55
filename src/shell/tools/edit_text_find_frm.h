#pragma once

#include "core/find.h"
#include "shell/base/tool_frm.h"

#include <cstdint>

class QCheckBox;
class QPushButton;

namespace zolt {

class ByteLine;
class Pane;

/// Finds and replaces text in the pane in use, from PosiçãoCursor on towards the
/// text's end. A search lets the windows live, and the document stays usable
/// beside it.
class EditTextFindFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextFindFrm(QWidget *owner);

    void focusFindBox();
    /// Whether there is a text to find.
    bool hasText() const;

public slots:
    void findNext();
    /// Replaces the selection, if it is what is searched, and finds the next.
    void replace();
    void replaceAll();
    void stop();
    /// Takes over whether Check1 is checked.
    void takeMatchCase();

protected:
    void closing() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FindOptions options(const std::string &find) const { return {find, DistinguirMaiúsculas == 1}; }
    /// Lets `search` run while the caret walks along in the pane. False if its result
    /// is stale: another command began meanwhile, the text was changed, or a window
    /// went.
    bool search(Pane &pane, const std::function<void(const Progress &)> &search);
    /// Gives the pane the focus. A search that a key began in this window leaves the
    /// window the keyboard, and the pane has the focus within the frame: the next Enter
    /// searches on and types nothing into the document.
    void giveFocus(Pane &pane);
    void sayEnd();

    ByteLine *Text1;
    ByteLine *Text2;
    QCheckBox *Check1;

    /// 1 = Match Case.
    std::int16_t DistinguirMaiúsculas = 0;
    /// 1 = the running search is to stop.
    std::int16_t PararProcura = 0;
    QString MensagemFimDaProcura;
    /// Counts the searches begun.
    int m_searches = 0;
    /// Whether a key rather than the mouse pressed a button of this window last.
    bool m_byKey = false;
};

} // namespace zolt
