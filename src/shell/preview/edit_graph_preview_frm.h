#pragma once

#include "hp48/source_compiler.h"
#include "platform/cls_style.h"
#include "shell/base/tool_frm.h"

#include <optional>
#include <string>

class QGroupBox;
class QLabel;

namespace zolt {

class RichTextBox;

/// Compiles RtfACompilar to the calculator's string, as the user chooses how, and hands it
/// on as DestinoDaCompilação says. It shows one view after the other: the choice, the
/// progress and, for destination 0, the source code.
class EditGraphPreviewFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditGraphPreviewFrm(QWidget *owner);

public slots:
    /// Compiles and hands on; closes when it's cancelled, or done but for destination 0.
    void compile();
    void cancel();
    /// Asks for a file and writes the compiled text as the calculator takes it.
    void FicheiroGuardarComo();

private:
    QGroupBox *buildChoice();
    QWidget *buildProgress();
    /// Sizes the window to one of its views and hides the others.
    void showView(QWidget *view);
    void showProgressView();
    void showSource();
    /// Shows a step's name, one of Label5 and Label8, and its percentage from 0.
    void showStep(QLabel *name);
    SourceProgress progress();
    /// Lets the windows live and shows nothing.
    Progress quietProgress();
    /// Whether Cancel was pressed or this window closed.
    bool stopped() const;
    /// Nothing if it was stopped.
    std::optional<std::string> sourceOf(const std::string &rtf, const SourceProgress &progress);
    void handOn();

    clsStyle m_style;
    QGroupBox *Frame2;
    QWidget *Frame3;
    QLabel *Label3;
    QLabel *Label4;
    QLabel *Label5;
    QLabel *Label6;
    QLabel *Label7;
    QLabel *Label8;
    RichTextBox *Text3;
    /// With kRichTextStyleMark in its codes.
    std::string m_source;
    bool m_working = false;
};

} // namespace zolt
