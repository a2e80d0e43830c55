#pragma once

#include "platform/dropped_files.h"
#include "shell/base/command_table.h"
#include "shell/base/file_kinds.h"
#include "shell/base/frame.h"
#include "shell/base/windows.h"
#include "shell/tools/recover_frm.h"

#include <QMainWindow>
#include <string>

class QComboBox;
class QDockWidget;
class QMdiArea;
class QMenu;
class QToolBar;

namespace zolt {

class InsertFrm;

/// The main frame: it holds the document windows, the toolbars and a menu for the
/// time when no document is open. Its own commands open other windows; a toolbar
/// button calls the same slot as the document window's menu item.
class MDIFrm : public QMainWindow, public Frame {
    Q_OBJECT

public:
    explicit MDIFrm(QWidget *owner = nullptr);
    ~MDIFrm() override;

    QWidget &window() override { return *this; }

    /// Shows kept documents, of which one can be given back.
    void showKept(RecoverFrm::What what, std::vector<KeptDocuments::Entry> entries);

    /// Puts a document window into the frame.
    void adopt(QWidget *documentWindow);
    /// Shows the name of a maximised document, behind a star if closing it would ask.
    void showTitle();
    /// A frame that is hidden and shown again stands where it stood.
    void setVisible(bool visible) override;
    /// Lists the open document windows at the end of a Window menu, each time it opens.
    void listChildWindows(QMenu *menu);
    /// Lists the recent files in a File menu's submenu, each time it opens.
    void listRecentFiles(const QList<QMenu *> &menus);
    /// Shows the insert window of the edition in use for this source, which has to be
    /// closed, with a file.
    InsertFrm &insertPicture(FileKind kind, const std::string &path);
    void takeFocusBack() override;
    /// Shows a document window's menus in the place of the frame's own, or the
    /// frame's own again for an empty list.
    void showMenus(const QList<QMenu *> &menus);
    /// Toolbar `number`, from 1 to 5.
    QToolBar *toolbar(int number) const;
    /// Gives a toolbar of an edition its buttons, behind the lists that it may hold.
    void fillToolbar(int number, const QList<ToolRow> &rows);
    /// Shows or hides an edition's two bars, the standard one, of this number, above the
    /// format one, of the next.
    void showDocumentToolbars(int standardNumber, bool standard, bool format);
    /// Checks the frame's own toolbar item, as at the start.
    void checkOwnToolbar();
    /// Shows a font's name and size in the toolbars' lists, without acting on it.
    void showFont(const QString &name, int points);

    void applyCharTool() override;
    void send(Road road) override { emit roadChosen(road); }
    /// A docked bar's panel: Picture3 at the top, Picture4 on the right.
    QWidget *topPanel() const { return Picture3; }
    QWidget *rightPanel() const { return Picture4; }

signals:
    /// The frame has closed and the settings are written: the program is to end.
    void ended();
    /// An edition was chosen for a new document, 1 textual or 2 graphical, or for the
    /// file that the program was started with.
    void editionChosen(int edition);
    void editionOfFileChosen(int edition);
    void roadChosen(Road road);
    /// A recent file is to be opened; files were dropped on the frame.
    void recentFileChosen(const std::string &path);
    void filesDropped(const DroppedFiles &files);
    /// A kept document is to be given back.
    void keptDocumentChosen(const KeptDocuments::Entry &entry);

public slots:
    void MostrarQuestionFrm();
    void MostrarMensagemFrm();
    void MostrarSymbolFrm();
    void MostrarEditTextExportPDFFrm();
    void MostrarEditTextGuardarHPFrm();
    void MostrarEditTextInsertImageFrm();
    void MostrarEditTextInsertGrobFrm();
    void MostrarEditTextInsertVeldaFrm();
    void MostrarEditTextConvImgFrm();
    /// A new one, with its first view.
    void MostrarEditGraphPreviewFrm();
    void MostrarEditGraphInsertImageFrm();
    void MostrarEditGraphInsertGrobFrm();
    void MostrarEditGraphInsertVeldaFrm();
    void MostrarWaitFrm();
    /// Both compile TextoPrevisualizar first; a cancelled preview doesn't show.
    void MostrarEditTextPreviewFrm();
    void MostrarEditTextPreviewNormalFrm();
    void MostrarAboutFrm();
    /// What was thrown away.
    void MostrarRecoverFrm();
    void MostrarCaracterToolbar();
    void MostrarCaracterTableFrm();
    void MostrarDateTimeFrm();
    void MostrarEditPageSetupFrm();
    void MostrarEditTextFindFrm();
    void MostrarEditTextOptionsFrm();
    void MostrarFileAssFrm();
    void MostrarEditTextWordCountFrm();

    void MnuFicheiroNovo();
    void MnuFicheiroSair();
    void MnuVerBarradeferramentas();
    void MnuVerSemprenotopo();
    /// Shows the live preview, or puts it away.
    void MnuVerLivePreview();
    void MnuAjudadozolt();
    void MnuAjudaAcercadoZOLT();

    /// Presses a button of the docked quick bar; puts that bar away.
    void pressDockedButton(int index);
    void closeDockedBar();
    /// Moves the keyboard between the document and the quick bar.
    void switchToQuickBar();
    /// Goes to the next match of what was searched last, or shows the window that asks.
    void findNext();

    /// The window commands, which serve the document windows' menus too.
    void tileVertically();
    void tileHorizontally();
    void cascade();
    void minimizeAll();
    void restoreAll();
    void closeAll();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void placeAtStart();
    void buildToolbars();
    void buildCombos();
    QComboBox *addCombo(int toolbarNumber, const char *name, const char *toolTip);
    void buildQuickBar();
    void buildLivePreview();
    /// Checks the menu items of the live preview as it shows.
    void checkLivePreview();
    void keepLivePreviewsPlace();
    void tile(Qt::Orientation orientation);

    /// Shows the one window of a class before the frame and gives it the focus.
    template <class Window> Window &showWindow() {
        Window &window = load<Window>(this);
        window.show();
        window.raise();
        window.activateWindow();
        return window;
    }

    /// Shows it and leaves the focus where it is.
    template <class Window> void showBeside() {
        Window &window = load<Window>(this);
        window.setAttribute(Qt::WA_ShowWithoutActivating);
        window.show();
        window.setAttribute(Qt::WA_ShowWithoutActivating, false);
    }

    /// The same for an insert window, whose file dialog comes before it is drawn.
    template <class Window> Window &showInsertFrm(const std::string &path = {}) {
        Window &window = load<Window>(this);
        if (!window.isVisible())
            window.begin(path);
        return showWindow<Window>();
    }

    /// The same for a new preview, if it is compiled to its end.
    template <class Window> void showPreview();

    QMdiArea *m_area;
    /// What saveGeometry gave when the frame was last hidden, in this run or the last.
    QByteArray m_place;
    QList<QToolBar *> m_toolbars;
    QList<QMenu *> m_ownMenus;
    QComboBox *Combo1;
    QComboBox *Combo2;
    QComboBox *Combo3;
    QWidget *Picture3;
    QWidget *Picture4;
    QDockWidget *m_livePreview;
};

} // namespace zolt
