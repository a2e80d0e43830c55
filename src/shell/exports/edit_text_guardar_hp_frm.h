#pragma once

#include "platform/text_pane.h"
#include "shell/base/tool_frm.h"

#include <QPointer>

class QPushButton;

namespace zolt {

/// The integrity test's window: the report, the corrected text, and the roads on
/// from there: correct the document, or write the file that the calculator takes.
class EditTextGuardarHPFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextGuardarHPFrm(QWidget *owner);

    /// Tests the document that a pane of the text edition holds, and fills the window. All
    /// windows live meanwhile; closing this one ends the test.
    void testDocument(TextPane &pane);

public slots:
    /// Writes the HP file under a name that the calculator takes.
    void save();
    /// Puts the corrected text into the document, if the user agrees.
    void correctDocument();

private:
    /// Asks for a file until its name passes the rules; empty on Cancel.
    std::string askForFile();
    bool nameIsAllowed(const std::string &title);
    /// Saving and correcting, which need a text that has been tested.
    void enableCommands(bool enabled);

    int m_run = 0; // which test is the newest
    QPointer<TextPane> m_document;
    TextPane *Text1;
    TextPane *Text2;
    QPushButton *Command1;
    QPushButton *Command3;
};

} // namespace zolt
