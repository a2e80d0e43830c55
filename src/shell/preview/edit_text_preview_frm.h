#pragma once

#include "shell/base/tool_frm.h"

class QLabel;
class QMenu;
class QTableWidget;

namespace zolt {

class RichTextBox;

/// The document on the calculator's display, at twice its size: a text that
/// scrolls, the caret's line below it, and the list of menu entries over it.
class EditTextPreviewFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextPreviewFrm(QWidget *owner);

    /// Compiles the text to preview. False if it was cancelled.
    bool compile();

public slots:
    /// Shows the number of the line that holds the caret.
    void MostrarLinhaActual();
    /// Lays the list of menu entries over the text.
    void MnuPopUpMenu();

private:
    void buildText();
    void buildList();
    void fillList();
    /// Shows the line of the list's current entry.
    void showEntryLine();
    /// Hides the list and moves to its current entry.
    void leaveList();
    bool eventFilter(QObject *watched, QEvent *event) override;

    RichTextBox *Text4;
    QTableWidget *Grid1;
    QLabel *Label1;
    QMenu *MnuPopUp;
};

} // namespace zolt
