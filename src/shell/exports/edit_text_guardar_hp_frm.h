#pragma once

#include "shell/base/tool_frm.h"

namespace zolt {

class TextPane;

/// The integrity test's window: the report, the corrected text, and the roads on
/// from there: correct the document, or write the file that the calculator takes.
class EditTextGuardarHPFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextGuardarHPFrm(QWidget *owner);

    /// Tests the text edition's document and fills the window.
    void testDocument();

public slots:
    /// Save: writes the HP file under a name that the calculator takes.
    void Command1_Click();
    /// Correct main document.
    void Command3_Click();

private:
    /// Asks for a file until its name passes the rules; empty on Cancel.
    std::string askForFile();
    bool nameIsAllowed(const std::string &title);

    TextPane *Text1;
    TextPane *Text2;
};

} // namespace zolt
