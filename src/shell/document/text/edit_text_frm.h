#pragma once

#include "core/letter_case.h"
#include "core/settings.h"
#include "graphic/rich_text.h"
#include "platform/lock_keys.h"

#include <QColor>
#include <QFont>
#include <QMdiSubWindow>
#include <array>
#include <optional>
#include <string>
#include <utility>

class QLabel;
class QMenu;
class QStatusBar;
class QTimer;

namespace zolt {

class MDIFrm;
class TextPane;

/// The document window of the textual edition. The document is what stands in the
/// active pane; the hidden pane's text is stale until the next switch.
class EditTextFrm : public QMdiSubWindow {
    Q_OBJECT

public:
    explicit EditTextFrm(QWidget *frame);

    /// The pane that TxtWWrap names.
    TextPane &activePane() const;
    /// Text1 for 1, Text2 for 2.
    TextPane &pane(int number) const { return *m_panes[static_cast<std::size_t>(number - 1)]; }

    /// The document's display name.
    QString caption() const { return m_caption; }
    void setCaption(const QString &caption);
    void setCaption(const std::string &fileTitle);

    /// A document that has just come from a file or begun, with the caret at its start.
    void documentBegins();
    /// Whether closing the window would ask about changes, as known a moment after the
    /// last change. Unlike the question itself it doesn't read the document.
    bool wouldAsk() const { return m_wouldAsk; }

    /// Says something in panel 1 of the status bar, until the next save or key.
    void say(const QString &message);

    /// Gives both panes the font and the colours of the settings.
    void applyPaneFont();
    void applyPaneColours();

    QAction *menuItem(const char *name) const;
    const QList<QMenu *> &menus() const { return m_menus; }
    QMenu *popUp() const { return MnuPopUp; }

public slots:
    void OperaçõesDeSaída();
    void FicheiroNovo();
    void FicheiroAbrir();
    void FicheiroGuardar();
    void FicheiroGuardarComo();
    void FicheiroFechar();
    void AbandonarPrograma();

    void EditarCortar();
    void EditarCopiar();
    void EditarColar();
    void EditarSeleccionarTudo();
    void EditarTranslinearpalavras();
    void EditarAnularintrodução();
    void EditarLocalizar();
    void EditarLocalizarESubstituir();

    void VerBarradecaracteres();
    void VerTabeladecaracteres();

    void MnuInserirDataehora();
    void MnuInserirLinhahorizontal();

    void AplicarEstilosDeLetra();
    void LimparEstilosDeLetra();
    void MnuFormatarMaiusculasminusculasMai();
    void MnuFormatarMaiusculasminusculasMin();
    void MnuFormatarMaiusculasminusculasInverter();
    void MnuFormatarMaiusculasminusculasRetAcent();
    void EscolherCorBackground();
    void EscolherCorForeground();
    void EscolherFonte();
    void MnuFormatarPadrão();
    void MnuFormatarAltocontraste();
    void MnuFormatarHp48();

    void OptimizarImagens();
    void OptimizarImagensSelecção();
    void MnuFerramentasContarpalavras();

    void ExportarHTML();
    void FicheiroExportarPrevisualizarpaginaWeb();
    void MnuFicheiroExportarPDF();
    void MnuInserirListadesímbolos();
    void MnuInserirCriarnovosímbolo();

    void TesteDeIntegridade();

    void MnuVerPrévisualizartudoNormal();
    void MnuVerPrévisualizartudoComquebrasdelinha();
    void MnuVerPrévisualizartudoEstiloHP48();
    void VerPrévisualizarselecçãoNormal();
    void VerPrévisualizarselecçãoComquebrasdelinha();
    void VerPrévisualizarselecçãoEstiloHP48();

    void MnuInserirImagemBmpgifjpg();
    void MnuInserirImagemGrob();
    void MnuInserirImagemFormatovelda();
    void MnuFerramentasConverterformatos();

    void MnuVerBarradeestado();
    void MnuVerBarrasdeferramentasPadrão();
    void MnuVerBarrasdeferramentasFormatação();
    void MnuVerSemprenotopo();
    void TileVertically();
    void TileHorizontally();
    void Cascade();
    void MinimizeAll();
    void RestoreAll();
    void CloseAll();
    void MnuAjudadozolt();
    void MnuAcercadozolt();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    enum Panel { Progress, Caret, Length, NumLock, CapsLock, Date, Time, PanelCount };

    void buildPanes();
    void buildStatusBar();
    void followPane(TextPane *pane);
    void showActivePane();
    void updateStatus();
    void updateClock();
    /// Says in panel 1, with the caption, that a document with changes went.
    void sayReplaced(const QString &caption);

    /// Notes that the document changed, and whether closing it would ask now.
    void followChange();
    void showWouldAsk(bool wouldAsk);
    /// Keeps PosiçãoCursor where a key has put the caret.
    void followKeyCaret();
    void followLockKeys(const QKeyEvent *event);
    /// Finds the Edit menu's items, the pop-up menu's and the toolbar's buttons.
    void gatherEditActions();
    /// Greys out those that can't act now.
    void updateEditActions();
    bool eventFilter(QObject *watched, QEvent *event) override;
    void toggleTextToolbars();
    /// The panes' font as the settings have it.
    static QFont fontOfSettings();
    /// Takes a font into the settings, both panes and the frame's lists.
    void chooseFont(const QFont &font);
    /// Asks for a colour that a setting holds, beginning with the one shown; false on Cancel.
    bool chooseColour(std::string Settings::*setting, const QColor &shown);
    void chooseColours(Colour text, Colour background);
    void changeCase(CaseCommand command);
    /// Notes in the settings which windows stand beside the document.
    void recordCompanions();
    void closeCompanions();

    /// Compiles a text and shows it in the preview that `open` brings.
    void preview(const std::string &text, void (MDIFrm::*open)());
    /// The same for the selection, and says so if there is none.
    void previewSelection(void (MDIFrm::*open)());
    /// Puts text into the active pane for good: an opened document has no history.
    void showDocument(const std::string &document, const QString &caption);
    bool writeDocument();
    bool documentChanged() const;
    void discardDocument();
    /// True if the document may go: it is unchanged, saved now, or discarded.
    bool mayLeaveDocument();

    /// The document as a Web page; nothing, with a message, if it is empty.
    std::optional<std::string> buildWebPage();

    MDIFrm *m_frame;
    std::array<TextPane *, 2> m_panes;
    QStatusBar *StatusBar1;
    std::array<QLabel *, PanelCount> m_panels;
    QList<QMenu *> m_menus;
    QMenu *MnuPopUp;

    QString m_caption;
    /// True since the document was changed after it was opened, begun or saved.
    bool m_touched = false;
    bool m_wouldAsk = false;
    /// Compares document and saved text once the keys rest, where lengths don't tell.
    QTimer *m_comparison;
    /// The active pane's selection before the key under way: start and end.
    std::pair<qsizetype, qsizetype> m_selectionBeforeKey;
    LockKeys m_lockKeys;
    /// What each of the Edit menu's commands greys out; see edit_text_frm_edit.cpp.
    QList<QList<QAction *>> m_editActions;
    bool m_clipboardFits = false;
};

} // namespace zolt
