#pragma once

#include "shell/base/document_keeper.h"
#include "shell/base/source_snapshot.h"

#include <QObject>
#include <memory>
#include <string_view>

class QMdiSubWindow;
class QString;

namespace zolt {

class Pane;

/// The document window in use, as the tools beside it know it: they ask for it and
/// know neither edition.
class DocumentInUse {
public:
    virtual ~DocumentInUse() = default;

    /// The window; a command's slot is looked for in it first.
    virtual QMdiSubWindow &window() = 0;
    /// The pane that TxtWWrap names.
    virtual Pane &activePane() const = 0;
    /// Puts bytes where a command inserts that serves the whole document, in the place
    /// of the selection: in the text edition into both panes.
    virtual void insertText(std::string_view bytes) = 0;
    /// Says something in panel 1 of the status bar, until the next save or key.
    virtual void say(const QString &message) = 0;
    /// Whether closing the window would ask about changes, as known a moment after the
    /// last change. Unlike the question itself it doesn't read the document.
    virtual bool wouldAsk() const = 0;
    /// Puts the menus, the pop-up menu and the edition's toolbars out of reach, or back.
    virtual void setCommandsEnabled(bool enabled) = 0;
    /// The calculator's text of the document.
    virtual std::unique_ptr<SourceSnapshot> sourceSnapshot() const = 0;
    /// The document as it would be kept, with the text of `pane`.
    virtual KeptSnapshot snapshotOf(const Pane &pane) const = 0;
    /// Whoever kept the document in another pane gives it back.
    virtual void keepAgain() = 0;
    /// The settings have a new font name or size: the panes take it.
    virtual void fontChosen() = 0;
};

/// Says what becomes of the document in use.
class DocumentInUseEvents : public QObject {
    Q_OBJECT

signals:
    /// Another pane shows the document, or another document is in use, or none.
    void paneChanged();
};

DocumentInUseEvents &documentInUseEvents();

/// Null while no document is open.
DocumentInUse *documentInUse();
/// A document window registers as it sets EdiçãoActiva, and null as it goes.
void setDocumentInUse(DocumentInUse *document);

/// The pane in use, in which tools beside the document read and write; null while no
/// document is open.
Pane *activePane();

/// Gives a pane the keyboard, also from another window.
void takeFocus(Pane &pane);

/// Puts bytes in the place of the selection of the pane in use, in the look of the text
/// there, and gives it the focus back.
void insertIntoActivePane(std::string_view bytes);

} // namespace zolt
