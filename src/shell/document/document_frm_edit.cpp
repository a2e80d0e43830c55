// The Edit menu's commands of a document window.

#include "platform/pane.h"
#include "shell/base/command_table.h"
#include "shell/base/shared_values.h"
#include "shell/document/document_frm.h"
#include "shell/frame/mdi_frm.h"
#include "shell/tools/edit_text_find_frm.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QToolBar>

namespace zolt {

namespace {

/// What greys out together, and when it can act.
struct EditCommand {
    const char *menuItem;
    const char *popUpItem;
    QList<const char *> tools;
    bool (*canAct)(const Pane &pane, bool clipboardFits);
};

bool hasSelection(const Pane &pane, bool) {
    return pane.hasSelection();
}

const QList<EditCommand> &editCommands() {
    static const QList<EditCommand> commands{
        {"MnuEditarAnularintrodução",
         "MnuPopUpAnularintroducao",
         {"Anular Introdução", "Refazer Introdução"},
         [](const Pane &pane, bool) { return pane.canUndoToggle(); }},
        {"MnuEditarCortar", "MnuPopUpCortar", {"Cortar"}, hasSelection},
        {"MnuEditarCopiar", "MnuPopUpCopiar", {"Copiar"}, hasSelection},
        {"MnuEditarColar", "MnuPopUpColar", {"Colar"}, [](const Pane &, bool fits) { return fits; }},
        {"MnuEditarSeleccionartudo",
         "MnuPopUpSeleccionartudo",
         {},
         [](const Pane &pane, bool) { return pane.length() > 0; }},
    };
    return commands;
}

} // namespace

void DocumentFrm::gatherEditActions() {
    for (const EditCommand &command : editCommands()) {
        QList<QAction *> actions{menuItem(command.menuItem), zolt::menuItem({MnuPopUp}, command.popUpItem)};
        for (const char *tool : command.tools)
            actions
                << m_frame->toolbar(m_edition.standardToolbar)->findChild<QAction *>(QString::fromUtf8(tool));
        m_editActions << actions;
    }
    // To ask another program for its clipboard takes a while: not at every key.
    const auto lookAtClipboard = [this] {
        m_clipboardFits = activePane().canPaste();
        updateEditActions();
    };
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, lookAtClipboard);
    lookAtClipboard();
}

void DocumentFrm::updateEditActions() {
    for (qsizetype i = 0; i < m_editActions.size(); ++i)
        for (QAction *action : m_editActions[i])
            action->setEnabled(editCommands()[i].canAct(activePane(), m_clipboardFits));
}

void DocumentFrm::EditarCortar() {
    activePane().takeFocus();
    activePane().cut();
}

void DocumentFrm::EditarCopiar() {
    activePane().takeFocus();
    activePane().copy();
}

void DocumentFrm::EditarColar() {
    activePane().takeFocus();
    activePane().paste();
}

void DocumentFrm::EditarAnularintrodução() {
    activePane().takeFocus();
    activePane().undoToggle();
}

void DocumentFrm::EditarSeleccionarTudo() {
    activePane().takeFocus();
    activePane().setSelStart(0);
    activePane().setSelLength(activePane().length());
}

void DocumentFrm::EditarLocalizar() {
    EditTextFindFrm &window = load<EditTextFindFrm>();
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
}

void DocumentFrm::EditarLocalizarESubstituir() {
    m_frame->MostrarEditTextFindFrm();
    loaded<EditTextFindFrm>()->focusFindBox();
}

void DocumentFrm::EditarTranslinearpalavras() {
    const bool touched = m_touched;
    Pane &from = activePane();
    shared::settings.TxtWWrap = &from == &pane(1) ? 2 : 1;
    Pane &to = activePane();
    copyDocument(from, to);
    to.setSelStart(from.SelStart());
    to.setSelLength(from.SelLength());
    m_touched = touched;
    showActivePane();
    foldHiddenPane();
    updateStatus();
}

} // namespace zolt
