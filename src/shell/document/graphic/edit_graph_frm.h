#pragma once

#include "shell/document/document_frm.h"

#include <QList>
#include <utility>

namespace zolt {

class RichTextBox;

/// The document window of the graphical edition: the document is a rich text that looks
/// as the calculator will show it. Styles are fonts, pictures are pictures. What else a
/// text looks like (size, colour) is an ornament of the screen.
class EditGraphFrm : public DocumentFrm {
    Q_OBJECT

public:
    explicit EditGraphFrm(QWidget *frame);

    /// What tells this edition from the other. Its documents are RTF; a plain text is
    /// taken as one in the plain font.
    static const Edition &edition();

    /// The panes by their own class.
    RichTextBox &richPane(int number) const;
    RichTextBox &activeRichPane() const;

    /// Begins with a document that comes from elsewhere and is in no file.
    void begin(const RichText &text, const QString &caption);

    void insertText(std::string_view bytes) override;
    void fontChosen() override;
    std::unique_ptr<SourceSnapshot> sourceSnapshot() const override;

public slots:
    /// Gives the selection the font FonteDeEstilo, or says why it can't have it. With no
    /// selection it's the font of what is typed next.
    void AplicarEstilosDeLetra();
    /// Gives the whole document the size TamanhoDaLetra.
    void EscolherTamanhoDaLetra();

    /// The source code of the document, or of the selection, in a window; and as the
    /// calculator's file.
    void MnuVerPrévisualizar();
    void MnuVerPrévisualizarSelecçao();
    void MnuFicheiroGuardaremformatoHP();
    /// Asks whether the document may lose its looks, then sends it.
    void MnuFicheiroEnviarparaEdicaotextual();
    void EnviarParaEdiçãoTextual();
    void EnviarCódigoFonteParaEdiçãoTextual();

protected:
    std::string fileOf(std::string stored) const override;
    void takeFileBytes(std::string_view bytes, Panes panes) override;
    std::string stored() const override;
    RichText printout(bool selection) const override;
    std::function<std::string()> storedLater(const Pane &pane) const override;
    void clear() override;
    void copyDocument(const Pane &from, Pane &to) override;
    void foldHiddenPane() override;
    void applySettings() override;
    void applyPaneColours() override;
    void applyTextColour() override;
    void changeCase(CaseCommand command) override;
    FullscreenFrm &loadFullscreen() override;
    void applyDefaultScheme() override;

private:
    /// Fills a pane with plain text in the look of the settings, for good.
    void fill(RichTextBox &pane, std::string_view plain);
    /// Opens the compiler with a rich text for one of its destinations.
    void compile(const std::string &rtf, std::int16_t destination);
    /// Why the selection can't get a style's font; empty if it can.
    std::string_view refusal(const std::string &font) const;
    void gatherStyleButtons();
    void showStyleAtCaret();

    /// The format toolbar's buttons, by the fonts that they give.
    QList<std::pair<std::string_view, QAction *>> m_styleButtons;
};

} // namespace zolt
