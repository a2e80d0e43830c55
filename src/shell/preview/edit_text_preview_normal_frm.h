#pragma once

#include "shell/base/tool_frm.h"

namespace zolt {

class RichTextBox;

/// The compiled document as a reading copy, which can be stored as RTF, printed and copied.
class EditTextPreviewNormalFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit EditTextPreviewNormalFrm(QWidget *owner);

    /// Compiles the text to preview. False if it was cancelled.
    bool compile();
    RichTextBox &text() const { return *Text4; }

public slots:
    void AbrirFicheiro();
    void GuardarComoFicheiro();
    /// Prints what shows here.
    void Imprimir();
    /// Puts the whole text on the clipboard.
    void Copy();
    /// Shows the list of menu entries.
    void MenuPreview();
    /// Asks whether the document may lose its looks, then sends what shows here to the
    /// graphical edition.
    void EnviarGraphic();
    void EnviarPrevisualizaçãoParaEdiçãoGráfica();

protected:
    void closing() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    RichTextBox *Text4;
};

} // namespace zolt
