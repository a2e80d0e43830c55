// The commands of the symbol window.

#include "core/file.h"
#include "platform/byte_line.h"
#include "platform/desktop.h"
#include "platform/held_text.h"
#include "platform/message_box.h"
#include "platform/text_pane.h"
#include "shell/base/dialog_frm.h"
#include "shell/base/document_in_use.h"
#include "shell/base/shared_values.h"
#include "shell/base/status_line.h"
#include "shell/base/windows.h"
#include "shell/symbols/symbol_frm.h"
#include "shell/widgets/cell_views.h"

#include <QLabel>
#include <QListWidget>
#include <QTabWidget>
#include <algorithm>

namespace zolt {

int SymbolFrm::selectedSymbol() const {
    const QListWidgetItem *item = List1->currentItem();
    return item && item->isSelected() ? List1->currentRow() + 1 : 0;
}

void SymbolFrm::selectSymbol(int number) {
    List1->setCurrentRow(number - 1);
}

void SymbolFrm::followSelection() {
    Text1->setText(m_symbols.ExpressoesDosSimbolos(selectedSymbol()));
    Picture29->setDots(Thumbnail(Text1->Text()));
}

void SymbolFrm::ActualizarLista() {
    List1->clear();
    for (int i = 1; i <= m_symbols.NumeroDeSimbolos(); ++i)
        List1->addItem(heldText(m_symbols.NomesDosSimbolos(i)));
    showCount();
}

void SymbolFrm::showCount() {
    Label2->setText(QStringLiteral("Number of symbols:%1").arg(m_symbols.NumeroDeSimbolos()));
}

void SymbolFrm::showFileName() {
    constexpr int kExtension = 4;
    QString title = fromFileName(titleOf(shared::settings.DefltSmb));
    if (title.size() > kExtension && title[title.size() - kExtension] == u'.')
        title.chop(kExtension);
    Label1->setText(title);
}

void SymbolFrm::Transferir() {
    draw(zolt::Transferir(Text1->Text()));
}

void SymbolFrm::Expressao() {
    Picture26->setDots(Picture25->dots());
    Text3->setText(zolt::Expressao(Picture26->dots()));
}

void SymbolFrm::draw(const CellDots &dots) {
    Picture25->setDots(dots);
    Expressao();
}

void SymbolFrm::cleanDrawing() {
    draw({});
    Picture25->setFocus();
}

void SymbolFrm::fillDrawing() {
    draw(filled());
    Picture25->setFocus();
}

void SymbolFrm::invertDrawing() {
    draw(inverted(Picture25->dots()));
    Picture25->setFocus();
}

void SymbolFrm::newSymbol() {
    draw({});
    Text2->setText(m_symbols.defaultTitle());
    Picture25->setFocus();
}

void SymbolFrm::addSymbol() {
    if (m_symbols.add(Text2->Text(), Text3->Text()))
        List1->addItem(heldText(m_symbols.NomesDosSimbolos(m_symbols.NumeroDeSimbolos())));
    showCount();
    Picture25->setFocus();
}

void SymbolFrm::replaceSymbol() {
    const int symbol = SimboloSeleccionado;
    if (!m_symbols.replace(symbol, Text2->Text(), Text3->Text()))
        return;
    ActualizarLista();
    showPage(ListPage);
    selectSymbol(symbol);
}

void SymbolFrm::editSymbol() {
    const int symbol = selectedSymbol();
    if (symbol == 0)
        return;
    showPage(EditionPage);
    Text2->setText(m_symbols.NomesDosSimbolos(symbol));
    Transferir();
}

void SymbolFrm::removeSymbol() {
    const int symbol = selectedSymbol();
    if (m_symbols.remove(symbol)) {
        ActualizarLista();
        selectSymbol(std::min(symbol, m_symbols.NumeroDeSimbolos()));
    }
    List1->setFocus();
}

void SymbolFrm::duplicateSymbol() {
    const int symbol = selectedSymbol();
    if (m_symbols.duplicate(symbol)) {
        ActualizarLista();
        selectSymbol(symbol);
    }
    List1->setFocus();
}

void SymbolFrm::moveSelected(int step) {
    const int symbol = selectedSymbol();
    if (symbol > 0 && m_symbols.swap(std::min(symbol, symbol + step))) {
        ActualizarLista();
        selectSymbol(symbol + step);
    }
    List1->setFocus();
}

void SymbolFrm::moveUp() {
    moveSelected(-1);
}
void SymbolFrm::moveDown() {
    moveSelected(1);
}

void SymbolFrm::cleanList() {
    m_symbols.clear();
    ActualizarLista();
    List1->setFocus();
}

std::string SymbolFrm::askForFile(const QString &title, int flags) {
    CommonDialog &dialog = commonDialog(DialogFrm::Symbols);
    dialog.DialogTitle = title;
    dialog.Filter = QStringLiteral("Symbol file (*.zls)|*.zls|");
    dialog.FilterIndex = 1;
    dialog.Flags = flags;
    dialog.InitDir = dialog.FileName = shared::settings.DefltSmb;
    const int ended = flags & kFileMustExist ? dialog.ShowOpen(this) : dialog.ShowSave(this);
    return ended == kDialogDone ? dialog.FileName : std::string();
}

bool SymbolFrm::loadList(const std::string &path) {
    const FileContents file = readFile(path);
    if (!file.ok())
        return false;
    const SymbolsRead read = m_symbols.load(file.bytes);
    return read.complete || read.count > 0;
}

void SymbolFrm::openList() {
    const std::string path = askForFile(QStringLiteral("Open"), kFileMustExist);
    if (!path.empty())
        openFile(path);
}

bool SymbolFrm::openFile(const std::string &path) {
    if (!loadList(path))
        return false;
    shared::settings.DefltSmb = path;
    ActualizarLista();
    selectSymbol(1);
    showFileName();
    List1->setFocus();
    return true;
}

void SymbolFrm::saveList() {
    const std::string path = askForFile(QStringLiteral("Save as"), kOverwritePrompt | kAddExtension);
    if (path.empty() || !savedOrSaid(path, writeFile(path, m_symbols.save())))
        return;
    shared::settings.DefltSmb = path;
    showFileName();
    List1->setFocus();
}

void SymbolFrm::importList() {
    const std::string path = askForFile(QStringLiteral("Import symbols"), kFileMustExist);
    if (path.empty())
        return;
    const FileContents file = readFile(path);
    if (!file.ok())
        return;
    const SymbolsRead read = m_symbols.import(file.bytes);
    ActualizarLista();
    selectSymbol(1);
    List1->setFocus();
    if (read.complete)
        showMessage(this, QStringLiteral("Added %1 symbols to the list").arg(read.count));
}

void SymbolFrm::insert() {
    const bool listed = SSTab1->currentIndex() == ListPage;
    DocumentInUse *document = documentInUse();
    if (!document || (listed && selectedSymbol() == 0))
        return;
    const std::string expression = (listed ? Text1 : Text3)->Text();
    document->insertText(expression);
}

void SymbolFrm::saveAndClose() {
    const std::string &path = shared::settings.DefltSmb;
    if (savedOrSaid(path, writeFile(path, m_symbols.save())))
        close();
}

void SymbolFrm::cancel() {
    close();
}

} // namespace zolt
