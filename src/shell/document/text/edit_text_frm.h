#pragma once

#include "shell/document/document_frm.h"

#include <QFont>
#include <optional>

namespace zolt {

class TextPane;

/// The document window of the textual edition: the document is what is stored, codes
/// and picture cells included.
class EditTextFrm : public DocumentFrm {
    Q_OBJECT

public:
    explicit EditTextFrm(QWidget *frame);

    /// What tells this edition from the other. Any bytes can be its document.
    static const Edition &edition();

    /// The panes by their own class.
    TextPane &textPane(int number) const;
    TextPane &activeTextPane() const;

    /// Begins with a document that comes from elsewhere and is in no file.
    void begin(const std::string &text, const QString &caption);
    /// A text as it looks in the panes.
    static RichText inPaneLook(std::string_view text);

    void insertText(std::string_view bytes) override;
    void fontChosen() override;
    std::unique_ptr<SourceSnapshot> sourceSnapshot() const override;

public slots:
    /// Sends the document to the graphical edition.
    void EnviarParaEdiçãoGráfica();

    void AplicarEstilosDeLetra();
    void LimparEstilosDeLetra();
    void EscolherFonte();

    void OptimizarImagens();
    void OptimizarImagensSelecção();

    /// Puts line ends at words in the lines that the selection touches, or in all, and
    /// joins first, if asked, what a wrap broke; one step of undo.
    void MnuFerramentasWrapAtWords();
    void MnuFerramentasWrapReflow();

    void ExportarHTML();
    void FicheiroExportarPrevisualizarpaginaWeb();
    void MnuInserirListadesímbolos();
    void MnuInserirCriarnovosímbolo();
    void TesteDeIntegridade();

    /// Shows how many columns the caret's line takes, or doesn't.
    void MnuVerVisibleColumns();
    void MnuVerPrévisualizartudoNormal();
    void MnuVerPrévisualizartudoComquebrasdelinha();
    void MnuVerPrévisualizartudoEstiloHP48();
    void VerPrévisualizarselecçãoNormal();
    void VerPrévisualizarselecçãoComquebrasdelinha();
    void VerPrévisualizarselecçãoEstiloHP48();

    /// What the panes show beside the characters follows the items' checks, and is kept.
    void MnuVerShowStyles();
    void MnuVerShowPictures();
    void MnuVerShowColumnLimit();

protected:
    void updateStatus() override;
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
    void wrapLines(bool reflow);
    /// The panes' font as the settings have it.
    static QFont fontOfSettings();
    void applyPaneFont();
    /// What the panes show beside the characters: as the settings have it, and kept in
    /// them and shown as the menu's checks have it.
    void readShows();
    void keepShows();
    void applyShows();
    /// Takes a font into the settings, both panes and the frame's lists.
    void chooseFont(const QFont &font);

    /// Compiles a text and shows it in the preview that `open` brings.
    void preview(const std::string &text, void (MDIFrm::*open)());
    /// The same for the selection, and says so if there is none.
    void previewSelection(void (MDIFrm::*open)());
    /// The document as a Web page; nothing, with a message, if it is empty.
    std::optional<std::string> buildWebPage();

    QLabel *PanelColumns;
};

} // namespace zolt
