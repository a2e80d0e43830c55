#pragma once

#include "shell/base/tool_frm.h"

#include <string>

class QCheckBox;
class QLineEdit;

namespace zolt {

/// Lets the desktop open the program's types of files with it, and another extension that
/// the user names. What isn't ticked stays as it is.
class FileAssFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit FileAssFrm(QWidget *owner);

public slots:
    /// Associates what is ticked.
    void associate();
    /// Associates the program's own types, as far as ticked, and closes.
    void accept() override;

private:
    void associateOwnTypes();

    QCheckBox *Check1;
    QCheckBox *Check2;
    QCheckBox *Check3;
    QLineEdit *Text1;
};

/// Associates the text documents, and the graphic ones; the reason of a failure, else an
/// empty text.
std::string associateTextDocuments();
std::string associateGraphicDocuments();

} // namespace zolt
