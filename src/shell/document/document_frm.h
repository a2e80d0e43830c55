#pragma once

#include "core/file_stamp.h"
#include "core/letter_case.h"
#include "core/progress.h"
#include "core/settings.h"
#include "graphic/rich_text.h"
#include "platform/lock_keys.h"
#include "shell/base/command_table.h"
#include "shell/base/document_in_use.h"
#include "shell/base/document_keeper.h"

#include <QColor>
#include <QMdiSubWindow>
#include <array>
#include <functional>
#include <string>
#include <utility>

class QLabel;
class QMenu;
class QStatusBar;
class QTimer;

namespace zolt {

class CommonDialog;
class FullscreenFrm;
class MDIFrm;

/// What tells one edition's document window from the other's.
struct Edition {
    /// The value of EdiçãoActiva.
    std::int16_t number;
    const char *icon;
    /// The numbers of the frame's two toolbars.
    int standardToolbar;
    int formatToolbar;
    const QList<MenuRow> &(*menus)();
    const QList<MenuRow> &(*popUp)();
    /// The document's file dialogs: which files they show, and which kind first, from 1.
    const char *filter;
    int filterIndex;
    /// A new pane; one that wraps its lines for Text1, one that doesn't for Text2.
    Pane *(*newPane)(bool wraps, QWidget *parent);
    /// Why the bytes of a file can't be this edition's document; empty if they can.
    std::string (*refusal)(std::string_view bytes);
};

/// A document window: two panes of which one shows, status bar, menus, and the whole
/// life of a document from new to exit. There is no document but what stands in the
/// active pane; the hidden pane's text is stale until the next switch. The two editions
/// are its heirs.
class DocumentFrm : public QMdiSubWindow, public DocumentInUse {
    Q_OBJECT

public:
    ~DocumentFrm() override;

    QMdiSubWindow &window() override { return *this; }
    Pane &activePane() const override;
    Pane &hiddenPane() const;
    /// Text1 for 1, Text2 for 2.
    Pane &pane(int number) const { return *m_panes[static_cast<std::size_t>(number - 1)]; }

    /// The document's display name.
    QString caption() const { return m_caption; }
    void setCaption(const QString &caption);
    void setCaption(const std::string &fileTitle);

    KeptSnapshot snapshotOf(const Pane &pane) const override;
    /// Lets the program's keeper follow this document.
    void keepAgain() override;
    /// Keeps the document among those that were thrown away, if it has changes; gives
    /// whether it has.
    bool keepThrownAway();

    /// The document is that of the dialog's file as this was at a time, in seconds since
    /// 1970: saving over a later one asks.
    void followFileSince(std::int64_t time);

    /// The one road by which a file becomes the document: menu, command line, drop. The
    /// bytes are those of the file `path`, file system bytes; the document's name and
    /// DefltDir become the file's. The hidden pane takes the document too, if asked. The
    /// reason is returned, and nothing has changed, if the edition refuses the bytes.
    enum Panes { ActivePane, BothPanes };
    std::string showFile(const std::string &path, const std::string &bytes, Panes panes);

    /// True if another file may take the document's place: nothing was changed here since
    /// it was opened, begun or saved, or the user, asked, saved or threw that away.
    bool mayBeReplaced();

    bool wouldAsk() const override { return m_wouldAsk; }
    void say(const QString &message) override;
    void setCommandsEnabled(bool enabled) override;

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
    /// Prints the document, or its selection, as the pane shows it.
    void Imprimir();
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
    void MnuVerEcrainteiro();
    void MnuVerBarradeestado();
    void MnuVerBarrasdeferramentasPadrão();
    void MnuVerBarrasdeferramentasFormatação();

    void MnuInserirLinhahorizontal();
    void MnuFormatarMaiusculasminusculasMai();
    void MnuFormatarMaiusculasminusculasMin();
    void MnuFormatarMaiusculasminusculasInverter();
    void MnuFormatarMaiusculasminusculasRetAcent();
    void EscolherCorBackground();
    void EscolherCorForeground();
    void MnuFormatarPadrão();
    void MnuFormatarAltocontraste();
    void MnuFormatarHp48();

protected:
    DocumentFrm(const Edition &edition, QWidget *frame);
    /// The end of the heir's making: the panes take the settings and one shows.
    void begin();

    /// The bytes of a file that holds a document, of what stored() gave of it.
    virtual std::string fileOf(std::string stored) const = 0;
    /// Puts a file's bytes into the active pane for good: an opened document has no
    /// history. The hidden pane gets them too, if asked, once it is read or shown.
    virtual void takeFileBytes(std::string_view bytes, Panes panes) = 0;
    /// What TextoGuardado holds of a document: its text, or its rich text.
    virtual std::string stored() const = 0;
    /// The same of a pane, made from values of it as it is now, beside the windows.
    virtual std::function<std::string()> storedLater(const Pane &pane) const = 0;
    /// The document, or its selection, in the pane's look.
    virtual RichText printout(bool selection) const = 0;
    /// Begins an empty document, without a history.
    virtual void clear() = 0;
    /// Makes a pane's document that of another one.
    virtual void copyDocument(const Pane &from, Pane &to) = 0;
    /// Lets the hidden pane keep its stale document in little memory.
    virtual void foldHiddenPane() = 0;
    /// Gives both panes the font and the colours of the settings.
    virtual void applySettings() = 0;
    /// Gives both panes the background of the settings, and in the textual edition the
    /// text colour that goes with it.
    virtual void applyPaneColours() = 0;
    /// A text colour was chosen, and stands in the settings.
    virtual void applyTextColour() = 0;
    virtual void changeCase(CaseCommand command) = 0;
    virtual FullscreenFrm &loadFullscreen() = 0;
    /// The scheme Default, whose colours stand in the settings: they and the plain font.
    virtual void applyDefaultScheme() = 0;

    MDIFrm &frame() const { return *m_frame; }
    /// A document that has just come from a file or begun, with the caret at its start.
    void documentBegins();
    /// The same for one that comes from elsewhere: it is in no file, so that opening
    /// another loses it.
    void documentArrives();
    virtual void updateStatus();
    /// A panel of an edition's own, behind the caret's position.
    QLabel *addPanelBehindCaret(const char *name);
    /// Shows the step that the reading of a file has reached.
    Progress openingProgress();
    /// The colour that the text of the settings shows in.
    QColor shownTextColour() const;

    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    enum Panel { Message, Caret, Length, NumLock, CapsLock, Date, Time, PanelCount };

    void buildPanes();
    void buildStatusBar();
    /// A panel of the status bar, which stands in none of its places yet.
    QLabel *newPanel(const QString &name);
    void followPane(Pane &pane);
    void showActivePane();
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
    void toggleToolbars();
    /// Asks for a colour that a setting holds, beginning with the one shown; false on Cancel.
    bool chooseColour(std::string Settings::*setting, const QColor &shown);
    void chooseColours(Colour text, Colour background);
    /// Notes in the settings which windows stand beside the document.
    void recordCompanions();
    void closeCompanions();

    CommonDialog &documentDialog(const QString &title, int flags);
    bool writeDocument();
    bool documentChanged() const;
    void discardDocument();
    /// True if the document may go: it is unchanged, saved now, or discarded.
    bool mayLeaveDocument();
    /// Whether the file is still as it was opened or saved here; if not, asks what to do.
    enum Answer { Overwrite, SaveAs, Leave };
    Answer askAboutChangedFile();

    const Edition &m_edition;
    MDIFrm *m_frame;
    std::array<Pane *, 2> m_panes{};
    QStatusBar *StatusBar1;
    std::array<QLabel *, PanelCount> m_panels{};
    QList<QMenu *> m_menus;
    QMenu *MnuPopUp;

    QString m_caption;
    /// Of the document's file, when it was opened or saved.
    FileStamp m_stamp;
    /// Of TextoGuardado's text, in bytes.
    qsizetype m_savedLength = 0;
    /// True since the document was changed after it was opened, begun or saved.
    bool m_touched = false;
    bool m_wouldAsk = false;
    /// Compares document and saved text once the keys rest, where their lengths don't tell.
    QTimer *m_comparison;
    /// The active pane's selection before the key under way: start and end.
    std::pair<qsizetype, qsizetype> m_selectionBeforeKey;
    LockKeys m_lockKeys;
    /// What each of the Edit menu's commands greys out; see document_frm_edit.cpp.
    QList<QList<QAction *>> m_editActions;
    bool m_clipboardFits = false;
};

} // namespace zolt
